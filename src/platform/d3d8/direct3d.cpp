#include <new>

#include <d3d8.h>

#include "com_object.h"
#include "device_watch.h"
#include "software_device.h"
#include "window_frames.h"

namespace platform {
namespace {

// Desktops are 32 bits deep nowadays.
constexpr D3DFORMAT kDesktopFormat = D3DFMT_X8R8G8B8;

// The one adapter there is: the processor.
class SoftwareDirect3D final : public ComObject<IDirect3D8> {
public:
    HRESULT GetAdapterDisplayMode(UINT adapter, D3DDISPLAYMODE* mode) override {
        if (const HRESULT fault = announceCall(DeviceFunction::GetAdapterDisplayMode); FAILED(fault)) return fault;
        if (adapter != D3DADAPTER_DEFAULT || mode == nullptr) return D3DERR_INVALIDCALL;
        const DesktopMode desktop = desktopMode();
        *mode = {static_cast<UINT>(desktop.width), static_cast<UINT>(desktop.height),
                 static_cast<UINT>(desktop.refreshRate), kDesktopFormat};
        return D3D_OK;
    }

    HRESULT GetDeviceCaps(UINT adapter, D3DDEVTYPE type, D3DCAPS8* caps) override {
        if (const HRESULT fault = announceCall(DeviceFunction::GetDeviceCaps); FAILED(fault)) return fault;
        if (!isOurs(adapter, type) || caps == nullptr) return D3DERR_INVALIDCALL;
        // Any texture shape; vertices are handled where everything is.
        *caps = {.TextureCaps = 0, .VertexProcessingCaps = 1};
        if (DeviceWatch* const watch = deviceWatch.load(std::memory_order_acquire)) watch->limit(*caps);
        return D3D_OK;
    }

    HRESULT CheckDeviceType(UINT adapter, D3DDEVTYPE type, D3DFORMAT display, D3DFORMAT backBuffer,
                            BOOL windowed) override {
        const HRESULT fault = announceCall(DeviceFunction::CheckDeviceType, backBuffer, static_cast<DWORD>(windowed));
        if (FAILED(fault)) return fault;
        if (!isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        // The back buffer always has 32 bits; a 16-bit mode is remembered and changes nothing.
        const bool known = backBuffer == D3DFMT_X8R8G8B8 || backBuffer == D3DFMT_R5G6B5;
        return known && display == backBuffer ? D3D_OK : D3DERR_NOTAVAILABLE;
    }

    HRESULT CheckDeviceFormat(UINT adapter, D3DDEVTYPE type, D3DFORMAT /*display*/, DWORD usage,
                              D3DRESOURCETYPE resource, D3DFORMAT format) override {
        if (const HRESULT fault = announceCall(DeviceFunction::CheckDeviceFormat, format, usage); FAILED(fault)) {
            return fault;
        }
        if (!isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        const bool known = format == D3DFMT_A8R8G8B8 || format == D3DFMT_A4R4G4B4;
        return known && resource == D3DRTYPE_TEXTURE && usage == 0 ? D3D_OK : D3DERR_NOTAVAILABLE;
    }

    HRESULT CreateDevice(UINT adapter, D3DDEVTYPE type, HWND window, DWORD behaviour, D3DPRESENT_PARAMETERS* parameters,
                         IDirect3DDevice8** device) override {
        if (parameters == nullptr || device == nullptr || !isOurs(adapter, type)) return D3DERR_INVALIDCALL;
        const HRESULT fault =
            announceCall(DeviceFunction::CreateDevice, behaviour, static_cast<DWORD>(parameters->Windowed));
        if (FAILED(fault)) return fault;
        *device = new (std::nothrow) SoftwareDevice(window, *parameters);
        return *device == nullptr ? E_OUTOFMEMORY : D3D_OK;
    }

private:
    static bool isOurs(UINT adapter, D3DDEVTYPE type) {
        return adapter == D3DADAPTER_DEFAULT && type == D3DDEVTYPE_HAL;
    }
};

}  // namespace
}  // namespace platform

IDirect3D8* Direct3DCreate8(UINT version) {
    using platform::DeviceFunction;
    if (version != D3D_SDK_VERSION || FAILED(platform::announceCall(DeviceFunction::Direct3DCreate8, version))) {
        return nullptr;
    }
    return new (std::nothrow) platform::SoftwareDirect3D;
}
