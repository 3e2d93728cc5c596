#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <string>

#include "ready_renderer.h"

namespace grub {
namespace {

using platform::DeviceFunction;
using platform::testing::DeviceCall;
using platform::testing::DeviceControls;
using platform::testing::MessageBoxRecorder;

constexpr std::uint16_t kWidth = 800;
constexpr std::uint16_t kHeight = 600;

std::optional<DeviceCall> lastCall(const DeviceControls& device, DeviceFunction function) {
    std::optional<DeviceCall> last;
    for (const DeviceCall& call : device.calls()) {
        if (call.function == function) last = call;
    }
    return last;
}

struct RefusedStart {
    const char* name;
    bool fullScreen;
    std::function<void(DeviceControls&)> refuse;
    const char* text;
};

const RefusedStart kRefusedStarts[] = {
    {"NoDirect3D", false, [](auto& d) { d.fail(DeviceFunction::Direct3DCreate8, E_FAIL); },
     "Can't creates an instance of a Direct3D8 object."},
    {"NoCapabilities", false, [](auto& d) { d.fail(DeviceFunction::GetDeviceCaps, D3DERR_INVALIDDEVICE); },
     "Can't retrieves device-specific information about a device. (D3DERR_INVALIDDEVICE)"},
    {"NoDesktopMode", false, [](auto& d) { d.fail(DeviceFunction::GetAdapterDisplayMode, D3DERR_INVALIDCALL); },
     "Can't get adapter display mode. (D3DERR_INVALIDCALL)"},
    {"DesktopFormat", false, [](auto& d) { d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE); },
     "Can't detects appropriate device mode (current desktop mode not support). (D3DERR_NOTAVAILABLE)"},
    {"BothFullScreenFormats", true,
     [](auto& d) {
         d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE);
         d.refuse(D3DFMT_R5G6B5, D3DERR_INVALIDCALL);
     },
     "Can't detects appropriate device mode (neither 32 nor 16 bit). (D3DERR_INVALIDCALL)"},
    {"FullScreenForAnotherReason", true, [](auto& d) { d.refuse(D3DFMT_X8R8G8B8, D3DERR_INVALIDDEVICE); },
     "Can't detects appropriate device type (HAL or REF)."},
    {"BothTextureFormats", false,
     [](auto& d) {
         d.refuse(D3DFMT_A8R8G8B8, D3DERR_NOTAVAILABLE);
         d.refuse(D3DFMT_A4R4G4B4, D3DERR_NOTAVAILABLE);
     },
     "Can't detects appropriate texture format. (D3DERR_NOTAVAILABLE)"},
    {"TexturesForAnotherReason", false, [](auto& d) { d.refuse(D3DFMT_A8R8G8B8, D3DERR_INVALIDCALL); },
     "Can't detects appropriate texture format (fatal error)."},
    {"NoDevice", false, [](auto& d) { d.fail(DeviceFunction::CreateDevice, D3DERR_OUTOFVIDEOMEMORY); },
     "Can't creates a device to represent the display adapter. (D3DERR_OUTOFVIDEOMEMORY)"},
    {"NoVertexBuffer", false, [](auto& d) { d.fail(DeviceFunction::CreateVertexBuffer, D3DERR_OUTOFVIDEOMEMORY); },
     "Can't creates a vertex buffer."},
};

class RendererRefused : public testing::TestWithParam<RefusedStart> {};

TEST_P(RendererRefused, TellsThePlayerOnceAndStaysWithoutDevice) {
    const platform::testing::DesktopSize desktop(1600, 1200);
    DeviceControls device;
    const MessageBoxRecorder messages;
    const RendererWindow window;
    D3DRenderer renderer(window.handle(), kWidth, kHeight, GetParam().fullScreen);
    GetParam().refuse(device);

    EXPECT_FALSE(renderer.init());

    EXPECT_FALSE(renderer.isReady());
    EXPECT_EQ(renderer.createTexture(8, 8), nullptr);
    EXPECT_FALSE(renderer.beginFrame());
    ASSERT_EQ(messages.boxes().size(), 1u);
    const auto box = messages.boxes()[0];
    EXPECT_EQ(box.text, GetParam().text);
    EXPECT_EQ(box.caption, "DirectX error");
    EXPECT_EQ(box.style, 0x2010u);
}

INSTANTIATE_TEST_SUITE_P(Start, RendererRefused, testing::ValuesIn(kRefusedStarts),
                         [](const auto& row) { return std::string(row.param.name); });

struct FirstChoice {
    const char* name;
    LONG desktopWidth;
    LONG desktopHeight;
    bool fullScreen;
    std::function<void(DeviceControls&)> limit;
    DWORD windowed;    // asked from the device
    DWORD backBuffer;  // format
    DWORD texture;     // format
    DWORD behaviour;   // flags
};

const FirstChoice kFirstChoices[] = {
    {"WindowOnALargerDesktop", 801, 601, false, [](auto&) {}, 1, 22, 21, 0x44},
    {"FullScreenAsAsked", 1600, 1200, true, [](auto&) {}, 0, 22, 21, 0x44},
    {"FullScreenOnADesktopOfTheSameSize", 800, 600, false, [](auto&) {}, 0, 22, 21, 0x44},
    {"FullScreenOnADesktopAsWide", 800, 1200, false, [](auto&) {}, 0, 22, 21, 0x44},
    {"FullScreenOnADesktopAsHigh", 1600, 600, false, [](auto&) {}, 0, 22, 21, 0x44},
    {"SixteenBitScreen", 1600, 1200, true, [](auto& d) { d.refuse(D3DFMT_X8R8G8B8, D3DERR_NOTAVAILABLE); }, 0, 23, 21,
     0x44},
    {"SixteenBitTextures", 1600, 1200, false, [](auto& d) { d.refuse(D3DFMT_A8R8G8B8, D3DERR_NOTAVAILABLE); }, 1, 22,
     26, 0x44},
    {"VerticesBySoftware", 1600, 1200, false, [](auto& d) { d.removeVertexProcessing(); }, 1, 22, 21, 0x24},
};

class RendererStart : public testing::TestWithParam<FirstChoice> {};

TEST_P(RendererStart, TakesTheBestThatTheDeviceHas) {
    const FirstChoice& wanted = GetParam();
    const platform::testing::DesktopSize desktop(wanted.desktopWidth, wanted.desktopHeight);
    DeviceControls device;
    wanted.limit(device);
    const MessageBoxRecorder messages;
    const RendererWindow window;
    D3DRenderer renderer(window.handle(), kWidth, kHeight, wanted.fullScreen);

    ASSERT_TRUE(renderer.init());

    EXPECT_TRUE(messages.boxes().empty());
    EXPECT_EQ(renderer.isFullScreen(), wanted.windowed == 0);
    EXPECT_EQ(lastCall(device, DeviceFunction::CheckDeviceType)->first, wanted.backBuffer);
    EXPECT_EQ(lastCall(device, DeviceFunction::CheckDeviceFormat)->first, wanted.texture);
    EXPECT_EQ(lastCall(device, DeviceFunction::CreateDevice)->first, wanted.behaviour);
    EXPECT_EQ(lastCall(device, DeviceFunction::CreateDevice)->second, wanted.windowed);
    EXPECT_EQ(lastCall(device, DeviceFunction::CreateVertexBuffer)->first, 144u);
}

INSTANTIATE_TEST_SUITE_P(Start, RendererStart, testing::ValuesIn(kFirstChoices),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RendererShutdown, LeavesTexturesThatOutliveItHarmless) {
    DeviceControls device;
    const platform::testing::DesktopSize desktop(1600, 1200);
    const RendererWindow window;
    D3DRenderer renderer(window.handle(), kWidth, kHeight, false);
    ASSERT_TRUE(renderer.init());
    const std::unique_ptr<Texture> texture(renderer.createTexture(8, 8));

    EXPECT_TRUE(renderer.shutdown());

    EXPECT_FALSE(renderer.isReady());
    EXPECT_FALSE(renderer.draw(0, 0, *texture, 1.0F));
    EXPECT_TRUE(texture->isValid());
}

}  // namespace
}  // namespace grub
