#include <gtest/gtest.h>

#include "ready_renderer.h"

namespace grub {
namespace {

constexpr struct {
    int desktopWidth, desktopHeight;
    bool wantsFullScreen;
    bool fullScreen;  // chosen by `init`
} kModes[] = {
    {801, 601, false, false}, {1600, 1200, true, true},
    {800, 600, false, true},  {800, 1200, false, true},  // a window needs a desktop that is larger in both directions
    {1600, 600, false, true},
};

TEST(RendererInit, TakesTheFullScreenWhenADesktopHasNoRoomForAWindow) {
    for (const auto& row : kModes) {
        SCOPED_TRACE(testing::Message() << row.desktopWidth << " x " << row.desktopHeight);
        const platform::testing::DesktopSize desktop(row.desktopWidth, row.desktopHeight);
        const RendererWindow window;
        D3DRenderer renderer(window.handle(), kScreenWidth, kScreenHeight, row.wantsFullScreen);
        EXPECT_TRUE(renderer.init());
        EXPECT_EQ(renderer.isFullScreen(), row.fullScreen);
    }
}

using Device = platform::testing::DeviceControls;

const struct {
    bool fullScreen;
    void (*arrange)(Device&);
    const char* message;
} kDevices[] = {
    {true,
     [](Device& d) { d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE), d.refuse(D3DFMT_R5G6B5, D3DERR_INVALIDCALL); },
     "Can't detects appropriate device mode (neither 32 nor 16 bit). (D3DERR_INVALIDCALL)"},
    {false, [](Device& d) { d.refuse(D3DFMT_A8R8G8B8, D3DERR_INVALIDCALL); },
     "Can't detects appropriate texture format (fatal error)."},
    {false, [](Device& d) { d.fail(platform::Call::CreateDevice, D3DERR_OUTOFVIDEOMEMORY); },
     "Can't creates a device to represent the display adapter. (D3DERR_OUTOFVIDEOMEMORY)"},
};

TEST(RendererInit, TellsThePlayerOnceWhatTheDeviceRefuses) {
    for (const auto& row : kDevices) {
        SCOPED_TRACE(row.message);
        const platform::testing::DesktopSize desktop(1600, 1200);
        Device device;
        row.arrange(device);
        const platform::testing::MessageBoxRecorder messages;
        const RendererWindow window;
        D3DRenderer renderer(window.handle(), kScreenWidth, kScreenHeight, row.fullScreen);
        EXPECT_FALSE(renderer.init());
        ASSERT_EQ(messages.boxes().size(), 1u);
        EXPECT_EQ(messages.boxes()[0].text, row.message);
        EXPECT_EQ(messages.boxes()[0].caption, "DirectX error");
        EXPECT_FALSE(renderer.beginFrame());
        EXPECT_EQ(renderer.createTexture(8, 8), nullptr);
    }
}

TEST_F(ReadyRenderer, LeavesTexturesThatOutliveItHarmless) {
    const auto texture = makeTexture(8, 8);
    EXPECT_TRUE(renderer.shutdown());
    EXPECT_FALSE(drawAt(0, 0, *texture));
    EXPECT_TRUE(texture->isValid());
}

}  // namespace
}  // namespace grub
