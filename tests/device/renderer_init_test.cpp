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

using Answers = std::vector<std::pair<D3DFORMAT, HRESULT>>;

const struct {
    const char* what;
    bool fullScreen;
    Answers formats;       // that the device refuses
    HRESULT createDevice;  // its result
    const char* message;   // null: `init` succeeds
} kDevices[] = {
    {"a screen of 16 bits", true, {{D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE}}, D3D_OK, nullptr},
    {"no screen format",
     true,
     {{D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE}, {D3DFMT_R5G6B5, D3DERR_INVALIDCALL}},
     D3D_OK,
     "Can't detects appropriate device mode (neither 32 nor 16 bit). (D3DERR_INVALIDCALL)"},
    {"no texture format, for another reason",
     false,
     {{D3DFMT_A8R8G8B8, D3DERR_INVALIDCALL}},
     D3D_OK,
     "Can't detects appropriate texture format (fatal error)."},
    {"no device",
     false,
     {},
     D3DERR_OUTOFVIDEOMEMORY,
     "Can't creates a device to represent the display adapter. (D3DERR_OUTOFVIDEOMEMORY)"},
};

TEST(RendererInit, TakesTheNextFormatOrTellsThePlayerOnce) {
    for (const auto& row : kDevices) {
        SCOPED_TRACE(row.what);
        const platform::testing::DesktopSize desktop(1600, 1200);
        platform::testing::DeviceControls device;
        for (const auto& [format, result] : row.formats) device.refuse(format, result);
        device.fail(platform::Call::CreateDevice, row.createDevice);
        const platform::testing::MessageBoxRecorder messages;
        const RendererWindow window;
        D3DRenderer renderer(window.handle(), kScreenWidth, kScreenHeight, row.fullScreen);
        EXPECT_EQ(renderer.init(), row.message == nullptr);
        EXPECT_EQ(renderer.isReady(), row.message == nullptr);
        ASSERT_EQ(messages.boxes().size(), row.message == nullptr ? 0u : 1u);
        if (row.message == nullptr) continue;
        EXPECT_EQ(messages.boxes()[0].text, row.message);
        EXPECT_EQ(messages.boxes()[0].caption, "DirectX error");
        EXPECT_EQ(messages.boxes()[0].style, 0x2010u);
        EXPECT_FALSE(renderer.beginFrame());
        EXPECT_EQ(renderer.createTexture(8, 8), nullptr);
    }
}

class RendererShutdown : public ReadyRenderer {};

TEST_F(RendererShutdown, LeavesTexturesThatOutliveItHarmless) {
    const auto texture = makeTexture(8, 8);
    EXPECT_TRUE(renderer.shutdown());
    EXPECT_FALSE(drawAt(0, 0, *texture));
    EXPECT_TRUE(texture->isValid());
}

TEST(RendererInit, ReportsThatTheSystemRefusesFullScreen) {
    platform::testing::DeviceControls device;
    device.fail(platform::Call::FullScreen);
    const platform::testing::MessageBoxRecorder messages;
    const RendererWindow window;
    D3DRenderer renderer(window.handle(), kScreenWidth, kScreenHeight, true);
    EXPECT_FALSE(renderer.init());
    ASSERT_EQ(messages.boxes().size(), 1U);
    EXPECT_EQ(messages.boxes()[0].text,
              "Can't creates a device to represent the display adapter. (D3DERR_NOTAVAILABLE)");
}

}  // namespace
}  // namespace grub
