#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "control/testing.h"
#include "desktop/input_map.h"
#include "desktop/presenter.h"
#include "desktop/screen_picture.h"
#include "desktop/window.h"
#include "test_window.h"

// Pictures on the screen, and what keys and mouse do in a window of any size.
namespace {

namespace testing_ = platform::testing;
using platform::PictureArea;
using platform::PointerButton;

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kMark = 0xFF123456;
constexpr std::uint32_t kBlack = 0xFF000000;

/// Hands the window 800 x 600 pixels of one colour with a mark in the top left corner; the fourth byte is 0.
bool present(const TestWindow& window, std::uint32_t colour) {
    std::vector<std::uint32_t> pixels(800UL * 600, colour & 0x00FFFFFFU);
    pixels[0] = kMark & 0x00FFFFFFU;
    return platform::showFrame(window.handle(), pixels.data(), 800, 600, 800 * 4);
}

std::uint32_t pixelAt(const testing_::ScreenPicture& picture, int x, int y) {
    return picture.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                             static_cast<std::size_t>(x));
}

bool heardAny(const std::vector<TestWindow::Heard>& heard, UINT message) {
    return std::ranges::find(heard, message, &TestWindow::Heard::message) != heard.end();
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
        const char* what;
        PointerButton button;
        bool down;
        int clicks;
        UINT withDoubleClicks, without;  // 0: no message
    };
    for (const auto& row : {
             Row{"pressed twice", PointerButton::Left, true, 2, WM_LBUTTONDBLCLK, WM_LBUTTONDOWN},
             Row{"pressed thrice", PointerButton::Left, true, 3, WM_LBUTTONDOWN, WM_LBUTTONDOWN},
             Row{"released", PointerButton::Left, false, 2, WM_LBUTTONUP, WM_LBUTTONUP},
             Row{"right", PointerButton::Right, true, 1, WM_RBUTTONDOWN, WM_RBUTTONDOWN},
             Row{"right, four times", PointerButton::Right, true, 4, WM_RBUTTONDBLCLK, WM_RBUTTONDOWN},
             Row{"middle", PointerButton::Middle, true, 1, 0, 0},
             Row{"moved", PointerButton::None, false, 0, WM_MOUSEMOVE, WM_MOUSEMOVE},
         }) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(platform::mouseMessage(row.button, row.down, row.clicks, true).value_or(0), row.withDoubleClicks);
        EXPECT_EQ(platform::mouseMessage(row.button, row.down, row.clicks, false).value_or(0), row.without);
    }
    EXPECT_EQ(platform::mousePosition(-1, 599), 0x0257FFFF);
    EXPECT_EQ(static_cast<std::uint32_t>(platform::mousePosition(100'000, -100'000)), 0x80007FFFU);
}

TEST(MouseMessages, ReachTheWindowInPixelsOfThePictureAtAnySize) {
    TestWindow window;
    present(window, kRed);
    struct Row {
        int width, height, left, top;  // of the window, and where the picture starts in it
    };
    for (const auto& [width, height, left, top] :
         {Row{800, 600, 0, 0}, Row{1600, 900, 200, 0}, Row{1000, 700, 33, 0}, Row{800, 1000, 0, 200}}) {
        SCOPED_TRACE(width);
        testing_::resizeWindow(window.handle(), width, height);
        window.pump();
        const auto shown = platform::windowOf(window.handle());
        const PictureArea area = shown->presenter.area(*shown->system);
        EXPECT_EQ(std::pair(area.x, area.y), std::pair(left, top));
        testing_::injectMouse(window.handle(), 1, true, 2, 123, 45);
        const auto heard = window.pump();
        const auto click = std::ranges::find(heard, UINT{WM_LBUTTONDBLCLK}, &TestWindow::Heard::message);
        ASSERT_NE(click, heard.end());
        EXPECT_EQ(click->lParam, 45 << 16 | 123);
    }
}

TEST(Keys, ReachTheProcedureAndAltF4AsksOnceToClose) {
    int asked = 0;
    TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message != WM_CLOSE) return TestWindow::defaultProcedure(handle, heard);
        ++asked;
        return LRESULT{0};
    });
    const auto heardOf = [&](const char* key, bool down) {
        EXPECT_TRUE(testing_::injectKey(window.handle(), key, down));
        return window.pump();
    };
    EXPECT_TRUE(heardAny(heardOf("Left", true), WM_KEYDOWN));
    heardOf("Alt", true);
    EXPECT_FALSE(heardAny(heardOf("X", true), WM_KEYDOWN)) << "Alt+X must not dig";
    EXPECT_TRUE(heardAny(heardOf("Left", false), WM_KEYUP)) << "a release arrives under Alt, too";
    EXPECT_EQ(asked, 0);
    heardOf("F4", true);
    EXPECT_EQ(asked, 1);
    testing_::injectClose(window.handle());
    window.pump();
    EXPECT_EQ(asked, 2);
}

TEST(Presenting, ShowsTheLatestPictureAndShowsItAgainOnExpose) {
    TestWindow window;
    EXPECT_TRUE(present(window, kGreen));
    EXPECT_TRUE(present(window, kRed));
    EXPECT_EQ(pixelAt(testing_::lastPicture(window.handle()), 0, 0), kMark) << "known before it is on the screen";
    window.pump();
    const auto screen = testing_::screen(window.handle());
    EXPECT_EQ(pixelAt(screen, 0, 0), kMark);
    EXPECT_EQ(pixelAt(screen, 799, 599), kRed);
    testing_::blankScreen(window.handle());
    EXPECT_EQ(pixelAt(testing_::screen(window.handle()), 799, 599), kBlack);
    testing_::injectExpose(window.handle());
    EXPECT_TRUE(heardAny(window.pump(), WM_PAINT));
    EXPECT_EQ(pixelAt(testing_::screen(window.handle()), 799, 599), kRed);
    EXPECT_EQ(testing_::presentedPictures(window.handle()), 2U);

    testing_::resizeWindow(window.handle(), 1000, 600);
    window.pump();
    const auto wide = testing_::screen(window.handle());
    ASSERT_EQ(wide.width, 1000);
    EXPECT_EQ(pixelAt(wide, 99, 300), kBlack) << "the picture keeps its shape";
    EXPECT_EQ(pixelAt(wide, 100, 300), kRed);
}

}  // namespace
