#include <new>

#include <d3d8.h>

#include "d3d8/software_device.h"
#include "desktop/video.h"
#include "kernel/calls.h"
#include "kernel/objects.h"

namespace platform {
namespace {

// Desktops have 32 bits a pixel.
constexpr D3DFORMAT kDesktopFormat = D3DFMT_X8R8G8B8;

// The one adapter: the processor.
class SoftwareDirect3D final : public ComObject<IDirect3D8> {
public:
    HRESULT GetAdapterDisplayMode(UINT adapter, D3DDISPLAYMODE* mode) override {
        if (const HRESULT fault = refusal(Call::GetAdapterDisplayMode); FAILED(fault)) return fault;
        if (adapter != D3DADAPTER_DEFAULT || mode == nullptr) return D3DERR_INVALIDCALL;
        const DesktopMode desktop = desktopMode();
        *mode = {static_cast<UINT>(desktop.width), static_cast<UINT>(desktop.height),
                 static_cast<UINT>(desktop.refreshRate), kDesktopFormat};
        return D3D_OK;
    }

    HRESULT GetDeviceCaps(UINT adapter, D3DDEVTYPE type, D3DCAPS8* caps) override {
        if (const HRESULT fault = refusal(Call::GetDeviceCaps); FAILED(fault)) return fault;
        if (!isOurs(adapter, type) || caps == nullptr) return D3DERR_INVALIDCALL;
        *caps = {.TextureCaps = isRefused(Call::OblongTextures) ? D3DPTEXTURECAPS_SQUAREONLY : 0,
                 .VertexProcessingCaps = isRefused(Call::VertexProcessing) ? 0U : 1U};
        return D3D_OK;
    }

    HRESULT CheckDeviceType(UINT adapter, D3DDEVTYPE type, D3DFORMAT display, D3DFORMAT backBuffer,
                            BOOL windowed) override {
        const HRESULT fault = refusal(Call::CheckDeviceType, backBuffer, static_cast<DWORD>(windowed));
        if (FAILED(fault)) return fault;
        if (!isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        // The back buffer always has 32 bits; a 16-bit mode is remembered and changes nothing.
        const bool known = backBuffer == D3DFMT_X8R8G8B8 || backBuffer == D3DFMT_R5G6B5;
        return known && display == backBuffer ? D3D_OK : D3DERR_NOTAVAILABLE;
    }

    HRESULT CheckDeviceFormat(UINT adapter, D3DDEVTYPE type, D3DFORMAT /*display*/, DWORD usage,
                              D3DRESOURCETYPE resource, D3DFORMAT format) override {
        if (const HRESULT fault = refusal(Call::CheckDeviceFormat, format, usage); FAILED(fault)) {
            return fault;
        }
        if (!isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        const bool known = format == D3DFMT_A8R8G8B8 || format == D3DFMT_A4R4G4B4;
        return known && resource == D3DRTYPE_TEXTURE && usage == 0 ? D3D_OK : D3DERR_NOTAVAILABLE;
    }

    HRESULT CreateDevice(UINT adapter, D3DDEVTYPE type, HWND window, DWORD behaviour, D3DPRESENT_PARAMETERS* parameters,
                         IDirect3DDevice8** device) override {
        if (parameters == nullptr || device == nullptr || !isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        const HRESULT fault = refusal(Call::CreateDevice, behaviour, static_cast<DWORD>(parameters->Windowed));
        if (FAILED(fault)) return fault;
        return SoftwareDevice::create(window, *parameters, device);
    }

private:
    static bool isOurs(UINT adapter, D3DDEVTYPE type) {
        return adapter == D3DADAPTER_DEFAULT && type == D3DDEVTYPE_HAL;
    }
};

}  // namespace
}  // namespace platform

IDirect3D8* Direct3DCreate8(UINT version) {
    if (version != D3D_SDK_VERSION || FAILED(platform::refusal(platform::Call::Direct3DCreate8, version))) {
        return nullptr;
    }
    return new (std::nothrow) platform::SoftwareDirect3D;
}
