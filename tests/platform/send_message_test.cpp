#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "desktop/presenter.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "game_thread.h"
#include "test_window.h"

namespace {

constexpr UINT kAdd = WM_USER + 10;
constexpr UINT kEnd = WM_USER + 1;

/// Answers kAdd with the sum of its parameters; kEnd destroys the window.
LRESULT adding(HWND window, const TestWindow::Heard& heard) {
    if (heard.message == kAdd) return static_cast<LRESULT>(heard.wParam) + heard.lParam;
    if (heard.message == kEnd) return DestroyWindow(window);
    return TestWindow::defaultProcedure(window, heard);
}

TEST(SendMessage, RunsTheProcedureOnTheWindowsThreadAndBringsItsResultBack) {
    DWORD ranOn = 0;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message == kAdd) ranOn = GetCurrentThreadId();
        return adding(handle, heard);
    });
    LRESULT sum = 0;
    const GameThread game([&] {
        sum = SendMessageA(window.handle(), kAdd, 40, 2);
        PostMessageA(window.handle(), kEnd, 0, 0);
    });
    EXPECT_EQ(TestWindow::loop(), 0);
    game.join();
    EXPECT_EQ(sum, 42);
    EXPECT_EQ(ranOn, GetCurrentThreadId());
}

TEST(SendMessage, FromTheOwnThreadCallsTheProcedureAtOnce) {
    const TestWindow window(adding);
    EXPECT_EQ(SendMessageA(window.handle(), kAdd, 3, 4), 7);
}

TEST(SendMessage, IsServedWhileTheWindowsThreadWaitsForSomethingElse) {
    const TestWindow window(adding);
    LRESULT sum = 0;
    const GameThread game([&] { sum = SendMessageA(window.handle(), kAdd, 1, 1); });
    game.join();  // a plain join here would be the deadlock
    EXPECT_EQ(sum, 2);
}

TEST(SendMessage, GivesZeroAtOnceWhenTheWindowIsGone) {
    HWND gone = nullptr;
    {
        const TestWindow window(adding);
        gone = window.handle();
    }
    EXPECT_EQ(SendMessageA(gone, kAdd, 1, 1), 0);
    EXPECT_EQ(PostMessageA(gone, kAdd, 1, 1), FALSE);
    const std::uint32_t pixel = 0;
    EXPECT_FALSE(platform::showFrame(gone, &pixel, 1, 1, 4));
    EXPECT_FALSE(platform::setFullScreen(gone, true));
}

TEST(SendMessage, IsAnsweredWithZeroWhenTheWindowGoesWhileItWaits) {
    auto window = std::make_unique<TestWindow>(adding);
    const HWND handle = window->handle();
    LRESULT answer = -1;
    const GameThread game([&] { answer = SendMessageA(handle, kAdd, 1, 1); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // the call is most likely waiting by now
    window.reset();
    game.join();
    EXPECT_EQ(answer, 0);
}

TEST(SendMessage, WakesAWaitingLoopWithoutDelay) {
    const TestWindow window(adding);
    constexpr int kCalls = 100;
    std::chrono::steady_clock::duration taken{};
    const GameThread game([&] {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kCalls; ++i) {
            SendMessageA(window.handle(), kAdd, 1, 1);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));  // lets the loop fall asleep again
        }
        taken = std::chrono::steady_clock::now() - start;
        PostMessageA(window.handle(), kEnd, 0, 0);
    });
    TestWindow::loop();
    game.join();
    EXPECT_LT(taken, std::chrono::milliseconds(20) * kCalls) << "only the loop's 50 ms net woke it";
}

/// One life of a window under fire: three threads send, post and present from before its first message to after its
/// end.
void liveAndDieUnderFire(int round, bool handDriven) {
    std::unique_ptr<platform::testing::HandDrivenClock> clock;
    if (handDriven) clock = std::make_unique<platform::testing::HandDrivenClock>();
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
}

TEST(SendMessage, NeverHangsUnderTheHandDrivenClock) {
    for (int round = 0; round < 200; ++round) liveAndDieUnderFire(round, true);
}

TEST(GetMessage, SaysErrorInsteadOfWaitingWhenNothingCanCome) {
    MSG message;
    EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), -1);
}

TEST(GetMessage, GivesPostedMessagesInOrderAndQuitLast) {
    TestWindow window([](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message == WM_DESTROY) return LRESULT{0};
        return TestWindow::defaultProcedure(handle, heard);
    });
    PostQuitMessage(0);
    for (UINT i = 0; i < 3; ++i) PostMessageA(window.handle(), kAdd + i, 0, 0);
    MSG message;
    for (UINT i = 0; i < 3; ++i) {
        EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), 1);
        EXPECT_EQ(message.message, kAdd + i);
    }
    EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), 0);
}

TEST(Window, IsNotThereWhenTheClassOrTheSystemRefuses) {
    using platform::testing::Call;
    using platform::testing::FailingCall;
    EXPECT_EQ(CreateWindowExA(0, "no such class", "", 0, 0, 0, 8, 8, nullptr, nullptr, nullptr, nullptr), nullptr);
    {
        const FailingCall refused(Call::CreateWindow);
        EXPECT_EQ(TestWindow().handle(), nullptr);
    }
    const TestWindow unwanted([](HWND, const TestWindow::Heard& heard) { return heard.message == WM_CREATE ? -1 : 0; });
    EXPECT_EQ(unwanted.handle(), nullptr);
    const FailingCall refused(Call::RegisterClass);
    WNDCLASSEXA about{};
    about.lpfnWndProc = DefWindowProcA;
    about.lpszClassName = "RefusedClass";
    EXPECT_EQ(RegisterClassExA(&about), 0);
}

TEST(Window, HasAClientAreaOfTheSizeTheGameCounts) {
    const TestWindow framed;
    const auto size = platform::testing::windowSize(framed.handle());
    ASSERT_TRUE(size);
    EXPECT_EQ(size->x, 800);
    EXPECT_EQ(size->y, 600);
}

TEST(Window, ComesBackFromFullScreenInItsOldSize) {
    const TestWindow window;
    platform::testing::resizeWindow(window.handle(), 1000, 700);
    EXPECT_TRUE(platform::setFullScreen(window.handle(), true));
    EXPECT_TRUE(platform::setFullScreen(window.handle(), true));
    EXPECT_TRUE(platform::setFullScreen(window.handle(), false));
    const auto size = platform::testing::windowSize(window.handle());
    ASSERT_TRUE(size);
    EXPECT_EQ(size->x, 1000);
    EXPECT_EQ(size->y, 700);
}

TEST(Window, DesktopSizeCanBeAnyForTests) {
    const platform::testing::DesktopSize small(640, 480);
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 640);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), 480);
    EXPECT_EQ(platform::desktopMode().width, 640);
}

}  // namespace
