#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "desktop/icons.h"
#include "desktop/input_map.h"
#include "desktop/picture.h"
#include "desktop/presenter.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "game_thread.h"
#include "test_window.h"

namespace {

namespace testing_ = platform::testing;
using platform::MouseButton;
using platform::PictureArea;

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlack = 0xFF000000;

/// 800 x 600 pixels of one colour with a mark in the top left corner.
std::vector<std::uint32_t> plainPicture(std::uint32_t colour) {
    std::vector<std::uint32_t> pixels(800UL * 600, colour & 0x00FFFFFFU);
    pixels[0] = 0x00123456;
    return pixels;
}

bool present(const TestWindow& window, const std::vector<std::uint32_t>& pixels) {
    return platform::showFrame(window.handle(), pixels.data(), 800, 600, 800 * 4);
}

std::uint32_t pixelAt(const testing_::Picture& picture, int x, int y) {
    return picture.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                             static_cast<std::size_t>(x));
}

bool heardAny(const std::vector<TestWindow::Heard>& heard, UINT message) {
    for (const auto& one : heard) {
        if (one.message == message) return true;
    }
    return false;
}

TEST(PictureArea, IsAsLargeAsFitsAndCentred) {
    struct Row {
        int windowWidth, windowHeight;
        int x, y, width, height;
        bool wholeFactor;
    };
    for (const auto& row : {
             Row{800, 600, 0, 0, 800, 600, true},
             Row{1600, 1200, 0, 0, 1600, 1200, true},
             Row{1920, 1080, 240, 0, 1440, 1080, false},
             Row{800, 1000, 0, 200, 800, 600, true},
             Row{400, 300, 0, 0, 400, 300, false},
             Row{1, 1, 0, 0, 1, 1, false},
             Row{0, -5, 0, 0, 1, 1, false},
         }) {
        const auto area = PictureArea::fit(row.windowWidth, row.windowHeight, 800, 600);
        EXPECT_EQ(area.x, row.x) << row.windowWidth;
        EXPECT_EQ(area.y, row.y) << row.windowWidth;
        EXPECT_EQ(area.width, row.width) << row.windowWidth;
        EXPECT_EQ(area.height, row.height) << row.windowWidth;
        EXPECT_EQ(area.isWholeFactor(), row.wholeFactor) << row.windowWidth;
    }
}

TEST(PictureArea, FindsEveryColumnAgainAndKeepsTheSideOutside) {
    for (const auto& [width, height] : {std::pair{800, 600}, std::pair{1920, 1080}, std::pair{1000, 900}}) {
        const auto area = PictureArea::fit(width, height, 800, 600);
        for (int column = -100; column < 900; ++column) EXPECT_EQ(area.column(area.windowX(column)), column);
        for (int row = -100; row < 700; ++row) EXPECT_EQ(area.row(area.windowY(row)), row);
        EXPECT_EQ(area.column(area.x - 1), -1);
        EXPECT_EQ(area.column(area.x + area.width), 800);
    }
}

TEST(MouseMessages, CountClicksAsWindowsDoes) {
    struct Row {
        MouseButton button;
        bool down;
        int clicks;
        UINT withDoubleClicks, without;  // 0: none
    };
    for (const auto& row : {
             Row{MouseButton::Left, true, 1, WM_LBUTTONDOWN, WM_LBUTTONDOWN},
             Row{MouseButton::Left, true, 2, WM_LBUTTONDBLCLK, WM_LBUTTONDOWN},
             Row{MouseButton::Left, true, 3, WM_LBUTTONDOWN, WM_LBUTTONDOWN},
             Row{MouseButton::Left, true, 4, WM_LBUTTONDBLCLK, WM_LBUTTONDOWN},
             Row{MouseButton::Left, false, 2, WM_LBUTTONUP, WM_LBUTTONUP},
             Row{MouseButton::Right, true, 1, WM_RBUTTONDOWN, WM_RBUTTONDOWN},
             Row{MouseButton::Right, true, 2, WM_RBUTTONDBLCLK, WM_RBUTTONDOWN},
             Row{MouseButton::Right, false, 1, WM_RBUTTONUP, WM_RBUTTONUP},
             Row{MouseButton::Middle, true, 1, 0, 0},
             Row{MouseButton::Middle, false, 1, 0, 0},
             Row{MouseButton::None, false, 0, WM_MOUSEMOVE, WM_MOUSEMOVE},
         }) {
        EXPECT_EQ(platform::mouseMessage(row.button, row.down, row.clicks, true).value_or(0), row.withDoubleClicks);
        EXPECT_EQ(platform::mouseMessage(row.button, row.down, row.clicks, false).value_or(0), row.without);
    }
}

TEST(MouseMessages, CarrySignedHalves) {
    struct Row {
        int x, y;
        std::uint32_t packed;
    };
    for (const auto& [x, y, packed] : {Row{1, 2, 0x00020001}, Row{-1, 599, 0x0257FFFF}, Row{799, -3, 0xFFFD031F},
                                       Row{100'000, -100'000, 0x80007FFF}}) {
        EXPECT_EQ(static_cast<std::uint32_t>(platform::mousePosition(x, y)), packed);
    }
}

TEST(MouseMessages, ReachTheWindowInPixelsOfThePictureAtAnySize) {
    TestWindow window;
    ShowWindow(window.handle(), SW_SHOW);
    present(window, plainPicture(kRed));
    for (const auto& [width, height] : {std::pair{800, 600}, std::pair{1600, 900}, std::pair{500, 700}}) {
        testing_::resizeWindow(window.handle(), width, height);
        window.pump();
        testing_::injectMouse(window.handle(), 1, true, 2, 123, 45);
        const auto heard = window.pump();
        ASSERT_TRUE(heardAny(heard, WM_LBUTTONDBLCLK)) << width;
        for (const auto& one : heard) {
            if (one.message != WM_LBUTTONDBLCLK) continue;
            EXPECT_NEAR(static_cast<int>(one.lParam & 0xFFFF), 123, 1) << width;  // a smaller window skips columns
            EXPECT_NEAR(static_cast<int>(one.lParam >> 16), 45, 1) << width;
        }
    }
}

TEST(Keys, ReachTheProcedureAndAltF4ClosesTheWindow) {
    bool closed = false;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        closed = closed || heard.message == WM_CLOSE;
        return heard.message == WM_CLOSE ? 0 : TestWindow::defaultProcedure(handle, heard);
    });
    EXPECT_TRUE(testing_::injectKey(window.handle(), "Left", true));
    EXPECT_FALSE(testing_::injectKey(window.handle(), "no such key", true));
    EXPECT_TRUE(heardAny(window.pump(), WM_KEYDOWN));
    testing_::injectKey(window.handle(), "Alt", true);
    window.pump();
    testing_::injectKey(window.handle(), "X", true);
    EXPECT_FALSE(heardAny(window.pump(), WM_KEYDOWN)) << "Alt+X must not dig";
    testing_::injectKey(window.handle(), "Left", false);
    EXPECT_TRUE(heardAny(window.pump(), WM_KEYUP)) << "a release arrives under Alt, too";
    EXPECT_FALSE(closed);
    testing_::injectKey(window.handle(), "F4", true);
    window.pump();
    EXPECT_TRUE(closed);
}

TEST(Closing, IsAskedOnce) {
    int asked = 0;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message != WM_CLOSE) return TestWindow::defaultProcedure(handle, heard);
        ++asked;
        return LRESULT{0};
    });
    testing_::injectClose(window.handle());
    window.pump();
    EXPECT_EQ(asked, 1);
}

TEST(Presenting, ShowsTheLatestPictureAndCountsAll) {
    TestWindow window;
    ShowWindow(window.handle(), SW_SHOW);
    EXPECT_TRUE(present(window, plainPicture(kGreen)));
    EXPECT_TRUE(present(window, plainPicture(kRed)));
    EXPECT_EQ(pixelAt(testing_::lastPicture(window.handle()), 0, 0), 0xFF123456) << "known before it is on the screen";
    window.pump();
    const auto screen = testing_::screen(window.handle());
    EXPECT_EQ(pixelAt(screen, 0, 0), 0xFF123456);
    EXPECT_EQ(pixelAt(screen, 799, 599), kRed);
    EXPECT_EQ(testing_::presentedPictures(window.handle()), 2U);
}

TEST(Presenting, ShowsThePictureAgainOnExposeWithoutANewOne) {
    TestWindow window;
    ShowWindow(window.handle(), SW_SHOW);
    present(window, plainPicture(kRed));
    window.pump();
    testing_::blankScreen(window.handle());
    EXPECT_EQ(pixelAt(testing_::screen(window.handle()), 400, 300), kBlack);
    testing_::injectExpose(window.handle());
    EXPECT_TRUE(heardAny(window.pump(), WM_PAINT));
    EXPECT_EQ(pixelAt(testing_::screen(window.handle()), 400, 300), kRed);
    EXPECT_EQ(testing_::presentedPictures(window.handle()), 1U);
}

TEST(Presenting, KeepsTheAspectInALargerWindow) {
    TestWindow window;
    ShowWindow(window.handle(), SW_SHOW);
    present(window, plainPicture(kRed));
    testing_::resizeWindow(window.handle(), 1000, 600);
    window.pump();
    const auto screen = testing_::screen(window.handle());
    ASSERT_EQ(screen.width, 1000);
    EXPECT_EQ(pixelAt(screen, 99, 300), kBlack);
    EXPECT_EQ(pixelAt(screen, 100, 300), kRed);
    EXPECT_EQ(pixelAt(screen, 899, 300), kRed);
    EXPECT_EQ(pixelAt(screen, 900, 300), kBlack);
}

TEST(Presenting, TakesRowsWithAnyStride) {
    const TestWindow window;
    const std::array<std::uint32_t, 6> rows{1, 2, 99, 3, 4, 99};
    EXPECT_TRUE(platform::showFrame(window.handle(), rows.data(), 2, 2, 3 * 4));
    const auto picture = testing_::lastPicture(window.handle());
    EXPECT_EQ(picture.pixels, (std::vector<std::uint32_t>{0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004}));
}

TEST(FullScreen, IsReportedAsRefusedAndLeavesTheWindowAsItWas) {
    TestWindow window;
    const auto sizeIs = [&](LONG width) { return testing_::windowSize(window.handle())->x == width; };
    {
        const testing_::FailingCall refused(testing_::Call::FullScreen);
        EXPECT_FALSE(platform::setFullScreen(window.handle(), true));
        EXPECT_TRUE(sizeIs(800));
    }
    EXPECT_TRUE(platform::setFullScreen(window.handle(), true));
    EXPECT_TRUE(sizeIs(platform::desktopMode().width));
    EXPECT_TRUE(platform::setFullScreen(window.handle(), false));
    EXPECT_TRUE(sizeIs(800));
}

TEST(Painting, IsAskedUntilTheWindowIsValidated) {
    int paints = 0;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message != WM_PAINT) return TestWindow::defaultProcedure(handle, heard);
        if (++paints == 3 && GetUpdateRect(handle, nullptr, FALSE) != FALSE) ValidateRect(handle, nullptr);
        if (paints == 4) ADD_FAILURE() << "painted after validation";
        if (paints == 3) PostMessageA(handle, WM_USER + 5, 0, 0);
        return LRESULT{0};
    });
    testing_::injectExpose(window.handle());
    MSG message;
    do {
        ASSERT_GT(GetMessageA(&message, nullptr, 0, 0), 0);
        DispatchMessageA(&message);
    } while (message.message != WM_USER + 5);
    EXPECT_EQ(paints, 3);
    EXPECT_FALSE(GetUpdateRect(window.handle(), nullptr, FALSE));
}

TEST(Icons, AreThoseTheProgramOffers) {
    EXPECT_EQ(LoadIconA(nullptr, MAKEINTRESOURCEA(7)), nullptr);
    EXPECT_NE(LoadIconA(nullptr, IDI_WINLOGO), nullptr);
    EXPECT_NE(LoadCursorA(nullptr, IDC_ARROW), nullptr);
    platform::setIconResource(101, std::array<std::uint32_t, 1>{kRed}, 1, 1);
    const HICON icon = LoadIconA(nullptr, MAKEINTRESOURCEA(101));
    ASSERT_NE(icon, nullptr);
    const TestWindow window;
    EXPECT_EQ(SetClassLongA(window.handle(), GCL_HICON, reinterpret_cast<LONG_PTR>(icon)), 0);
    EXPECT_EQ(SetClassLongA(window.handle(), GCL_HICON, 0), reinterpret_cast<LONG_PTR>(icon));
}

}  // namespace
