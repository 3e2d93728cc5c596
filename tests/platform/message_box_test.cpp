#include <dxerr8.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "control/testing.h"
#include "desktop/video.h"
#include "game_thread.h"
#include "test_window.h"

namespace {

using platform::testing::MessageBoxRecorder;

constexpr UINT kStyle = MB_OK | MB_ICONERROR | MB_TASKMODAL;

TEST(MessageBoxes, AreRecordedByteForByte) {
    const MessageBoxRecorder recorder;
    EXPECT_EQ(MessageBoxA(nullptr, "text %s", "caption", kStyle), IDOK);
    ASSERT_EQ(recorder.boxes().size(), 1U);
    EXPECT_EQ(recorder.boxes()[0].text, "text %s");
    EXPECT_EQ(recorder.boxes()[0].caption, "caption");
    EXPECT_EQ(recorder.boxes()[0].style, 0x2010U);
}

TEST(MessageBoxes, AreALineOnStandardErrorWithoutADisplay) {
    if (!platform::headless()) GTEST_SKIP() << "a box would wait for somebody to answer it";
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageBoxA(nullptr, "it broke", "Package", kStyle), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Package: it broke\n");
}

TEST(MessageBoxes, BlockOnlyTheirCallerWhileUnanswered) {
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    int served = 0;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message == WM_USER) ++served;
        return TestWindow::defaultProcedure(handle, heard);
    });
    const GameThread game([&] { MessageBoxA(window.handle(), "missing", "Package", kStyle); });
    while (recorder.boxes().empty()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_FALSE(game.hasEnded());
    PostMessageA(window.handle(), WM_USER, 0, 0);
    window.pump();
    EXPECT_EQ(served, 1) << "the window is not served while a box is open";
    DestroyWindow(window.handle());
    recorder.answerAll();
    game.join();
    SUCCEED();
}

TEST(MessageBoxes, OfTheWindowsThreadLetOtherThreadsSend) {
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    const TestWindow window([](HWND handle, const TestWindow::Heard& heard) {
        return heard.message == WM_USER ? 77 : TestWindow::defaultProcedure(handle, heard);
    });
    LRESULT answer = 0;
    const GameThread game([&] {
        while (recorder.boxes().empty()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        answer = SendMessageA(window.handle(), WM_USER, 0, 0);
        recorder.answerAll();
    });
    MessageBoxA(window.handle(), "fatal", "DirectX error", kStyle);
    EXPECT_EQ(answer, 77);
}

TEST(ResultNames, AreTheSymbolsOfTheCodes) {
    EXPECT_STREQ(DXGetErrorString8A(S_OK), "S_OK");
    EXPECT_STREQ(DXGetErrorString8A(static_cast<HRESULT>(0x8876086A)), "D3DERR_NOTAVAILABLE");
    EXPECT_STREQ(DXGetErrorString8A(static_cast<HRESULT>(0x88760868)), "D3DERR_DEVICELOST");
    EXPECT_STREQ(DXGetErrorString8A(static_cast<HRESULT>(0x8876086C)), "D3DERR_INVALIDCALL");
    EXPECT_STREQ(DXGetErrorString8A(static_cast<HRESULT>(0x88780078)), "DSERR_NODRIVER");
    EXPECT_STREQ(DXGetErrorString8A(static_cast<HRESULT>(0x88780096)), "DSERR_BUFFERLOST");
    EXPECT_STREQ(DXGetErrorString8A(12345), "Unknown");
}

}  // namespace
