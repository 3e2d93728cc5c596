#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "control/testing.h"
#include "desktop/presenter.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "game_thread.h"
#include "test_window.h"

// Messages to a window from its own and from other threads, its life, and message boxes.
namespace {

using platform::HandDrivenClock;

constexpr UINT kAdd = WM_USER + 10;
constexpr UINT kEnd = WM_USER + 1;

/// Answers kAdd with the sum of its parameters; kEnd destroys the window.
LRESULT adding(HWND window, const TestWindow::Heard& heard) {
    if (heard.message == kAdd) return static_cast<LRESULT>(heard.wParam) + heard.lParam;
    if (heard.message == kEnd) return DestroyWindow(window);
    return TestWindow::defaultProcedure(window, heard);
}

TEST(SendMessage, RunsTheProcedureOnTheWindowsThreadAlsoWhileThatWaitsForSomethingElse) {
    DWORD ranOn = 0;
    const TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        ranOn = GetCurrentThreadId();
        return adding(handle, heard);
    });
    EXPECT_EQ(SendMessageA(window.handle(), kAdd, 3, 4), 7) << "from the own thread";
    LRESULT sum = 0;
    const GameThread game([&] { sum = SendMessageA(window.handle(), kAdd, 40, 2); });
    game.join();  // a plain join here would be the deadlock
    EXPECT_EQ(sum, 42);
    EXPECT_EQ(ranOn, GetCurrentThreadId());
}

TEST(SendMessage, IsAnsweredWithZeroWhenTheWindowGoesOrIsGone) {
    const HandDrivenClock clock(HandDrivenClock::Moves::ByHand);
    auto window = std::make_unique<TestWindow>(adding);
    const HWND handle = window->handle();
    LRESULT answer = -1;
    const GameThread game([&] { answer = SendMessageA(handle, kAdd, 1, 1); });
    clock.settle();  // the call waits for the window
    window.reset();
    game.join();
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(SendMessageA(handle, kAdd, 1, 1), 0);
    EXPECT_EQ(PostMessageA(handle, kAdd, 1, 1), FALSE);
    const std::uint32_t pixel = 0;
    EXPECT_FALSE(platform::showFrame(handle, &pixel, 1, 1, 4));
    EXPECT_FALSE(platform::setFullScreen(handle, true));
}

/// One life of a window under fire: three threads send, post and present from before its first message to after its
/// end.
void liveAndDieUnderFire(int round, bool handDriven) {
    const auto clock = handDriven ? std::make_unique<HandDrivenClock>() : nullptr;
    const TestWindow window(adding, 80, 60);  // small: the time is to go into messages, not into pixels
    const HWND handle = window.handle();
    std::atomic<bool> stop{false};
    std::atomic<int> wrong{0};
    const auto fire = [&](int thread) {
        const std::array<std::uint32_t, 16> picture{};
        for (int i = 0; !stop; ++i) {
            const auto sum = SendMessageA(handle, kAdd, 5, i);
            if (sum != 5 + i && sum != 0) ++wrong;
            if (sum == 0) break;
            platform::showFrame(handle, picture.data(), 4, 4, 16);
            if (thread == 0 && i == 1 && round % 10 == 0) platform::setFullScreen(handle, true);
            if (thread == 0 && i == round % 11) PostMessageA(handle, kEnd, 0, 0);
        }
    };
    const GameThread first([&] { fire(0); });
    const GameThread second([&] { fire(1); });
    const GameThread third([&] { fire(2); });
    EXPECT_EQ(TestWindow::loop(), 0);
    stop = true;
    EXPECT_EQ(wrong, 0);
}

TEST(SendMessage, NeverHangsWhileWindowsComeAndGo) {
    for (int round = 0; round < 1000; ++round) liveAndDieUnderFire(round, false);
    for (int round = 0; round < 200; ++round) liveAndDieUnderFire(round, true);
}

TEST(GetMessage, GivesPostedMessagesInOrderAndQuitLast) {
    MSG message;
    EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), -1) << "without a window nothing can come";
    const TestWindow window([](HWND handle, const TestWindow::Heard& heard) {
        return heard.message == WM_DESTROY ? 0 : TestWindow::defaultProcedure(handle, heard);
    });
    PostQuitMessage(0);
    for (UINT i = 0; i < 3; ++i) PostMessageA(window.handle(), kAdd + i, 0, 0);
    for (UINT i = 0; i < 3; ++i) {
        EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), 1);
        EXPECT_EQ(message.message, kAdd + i);
    }
    EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), 0);
}

TEST(Window, ComesBackFromFullScreenInItsOldSize) {
    const TestWindow window;
    const auto width = [&] { return platform::testing::windowSize(window.handle()).value_or(POINT{}).x; };
    EXPECT_EQ(width(), 800) << "inside the frame";
    platform::testing::resizeWindow(window.handle(), 1000, 700);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(platform::setFullScreen(window.handle(), true));
    EXPECT_EQ(width(), platform::desktopMode().width);
    EXPECT_TRUE(platform::setFullScreen(window.handle(), false));
    EXPECT_EQ(width(), 1000);
}

TEST(MessageBoxes, AreALineOnStandardErrorWithoutADisplay) {
    if (!platform::headless()) GTEST_SKIP() << "a box would wait for an answer";
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageBoxA(nullptr, "it broke: %s", "Package", MB_ICONERROR), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Package: it broke: %s\n");
}

TEST(MessageBoxes, OfTheWindowsThreadLetOtherThreadsSend) {
    using platform::testing::MessageBoxRecorder;
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    const TestWindow window(adding);
    LRESULT sum = 0;
    const GameThread game([&] {
        while (recorder.boxes().empty()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        sum = SendMessageA(window.handle(), kAdd, 40, 2);
        recorder.answerAll();
    });
    MessageBoxA(window.handle(), "fatal", "DirectX error", MB_ICONERROR);
    EXPECT_EQ(sum, 42);
}

}  // namespace
