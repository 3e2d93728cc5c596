#include <gtest/gtest.h>

#include "ready_renderer.h"

namespace grub {
namespace {

using platform::DeviceFunction;
using platform::testing::DeviceControls;

const struct {
    const char* what;
    std::pair<int, int> desktop;
    bool wantsFullScreen;
    void (*refuse)(DeviceControls&);
    bool fullScreen;      // chosen by `init`
    const char* message;  // null: `init` succeeds
} kStarts[] = {
    {"a window on a larger desktop", {801, 601}, false, nullptr, false, nullptr},
    {"a desktop of the same size has no room for a window", {800, 600}, false, nullptr, true, nullptr},
    {"a desktop as wide", {800, 1200}, false, nullptr, true, nullptr},
    {"a desktop as high", {1600, 600}, false, nullptr, true, nullptr},
    {"full screen as asked", {1600, 1200}, true, nullptr, true, nullptr},
    {"a screen of 16 bits",
     {1600, 1200},
     true,
     [](auto& d) { d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE); },
     true,
     nullptr},
    {"no Direct3D",
     {1600, 1200},
     false,
     [](auto& d) { d.fail(DeviceFunction::Direct3DCreate8, E_FAIL); },
     false,
     "Can't creates an instance of a Direct3D8 object."},
    {"no screen format",
     {1600, 1200},
     true,
     [](auto& d) {
         d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE);
         d.refuse(D3DFMT_R5G6B5, D3DERR_INVALIDCALL);
     },
     true,
     "Can't detects appropriate device mode (neither 32 nor 16 bit). (D3DERR_INVALIDCALL)"},
    {"no texture format, for another reason",
     {1600, 1200},
     false,
     [](auto& d) { d.refuse(D3DFMT_A8R8G8B8, D3DERR_INVALIDCALL); },
     false,
     "Can't detects appropriate texture format (fatal error)."},
    {"no device",
     {1600, 1200},
     false,
     [](auto& d) { d.fail(DeviceFunction::CreateDevice, D3DERR_OUTOFVIDEOMEMORY); },
     false,
     "Can't creates a device to represent the display adapter. (D3DERR_OUTOFVIDEOMEMORY)"},
};

TEST(RendererInit, TakesTheBestOfTheDeviceOrTellsThePlayerOnce) {
    for (const auto& row : kStarts) {
        SCOPED_TRACE(row.what);
        const platform::testing::DesktopSize desktop(row.desktop.first, row.desktop.second);
        DeviceControls device;
        if (row.refuse != nullptr) row.refuse(device);
        const platform::testing::MessageBoxRecorder messages;
        const RendererWindow window;
        D3DRenderer renderer(window.handle(), kScreenWidth, kScreenHeight, row.wantsFullScreen);
        EXPECT_EQ(renderer.init(), row.message == nullptr);
        EXPECT_EQ(renderer.isReady(), row.message == nullptr);
        EXPECT_EQ(renderer.isFullScreen(), row.fullScreen);
        EXPECT_EQ(renderer.beginFrame(), row.message == nullptr);
        ASSERT_EQ(messages.boxes().size(), row.message == nullptr ? 0u : 1u);
        if (row.message == nullptr) continue;
        EXPECT_EQ(renderer.createTexture(8, 8), nullptr);
        EXPECT_EQ(messages.boxes()[0].text, row.message);
        EXPECT_EQ(messages.boxes()[0].caption, "DirectX error");
        EXPECT_EQ(messages.boxes()[0].style, 0x2010u);
    }
}

class RendererShutdown : public ReadyRenderer {};

TEST_F(RendererShutdown, LeavesTexturesThatOutliveItHarmless) {
    const auto texture = makeTexture(8, 8);
    EXPECT_TRUE(renderer.shutdown());
    EXPECT_FALSE(drawAt(0, 0, *texture));
    EXPECT_TRUE(texture->isValid());
}

}  // namespace
}  // namespace grub
