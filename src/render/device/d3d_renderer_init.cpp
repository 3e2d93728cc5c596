#include <cstddef>
#include <string>

#include <dxerr8.h>

#include "d3d_renderer.h"

namespace grub {
namespace {

constexpr DWORD kLayout = D3DFVF_XYZRHW | D3DFVF_TEX1;

// Tells the player why the game cannot draw. Always returns false.
bool complain(const std::string& text) {
    MessageBoxA(nullptr, text.c_str(), "DirectX error", MB_ICONERROR | MB_TASKMODAL);
    return false;
}

bool complain(const std::string& text, HRESULT failure) {
    return complain(text + " (" + DXGetErrorString8A(failure) + ")");
}

}  // namespace

bool D3DRenderer::init() {
    const bool ready = createDirect3D() && readCapabilities() && readDesktopMode() && chooseBackBufferFormat() &&
                       chooseTextureFormat() && createDevice() && createVertexBuffer();
    if (!ready) {
        shutdown();
        return false;
    }
    applyDeviceStates();
    return true;
}

bool D3DRenderer::createDirect3D() {
    direct3d_.reset(Direct3DCreate8(D3D_SDK_VERSION));
    return direct3d_ || complain("Can't creates an instance of a Direct3D8 object.");
}

bool D3DRenderer::readCapabilities() {
    const HRESULT result = direct3d_->GetDeviceCaps(D3DADAPTER_DEFAULT, D3DDEVTYPE_HAL, &caps_);
    return SUCCEEDED(result) || complain("Can't retrieves device-specific information about a device.", result);
}

bool D3DRenderer::readDesktopMode() {
    const HRESULT result = direct3d_->GetAdapterDisplayMode(D3DADAPTER_DEFAULT, &desktop_);
    return SUCCEEDED(result) || complain("Can't get adapter display mode.", result);
}

bool D3DRenderer::chooseBackBufferFormat() {
    // A window as large as the desktop would lose its frame, so the picture takes the whole screen.
    if (GetSystemMetrics(SM_CXSCREEN) <= width_ || GetSystemMetrics(SM_CYSCREEN) <= height_) fullScreen_ = true;
    if (fullScreen_) return chooseFullScreenFormat();
    const HRESULT result =
        direct3d_->CheckDeviceType(D3DADAPTER_DEFAULT, D3DDEVTYPE_HAL, desktop_.Format, desktop_.Format, TRUE);
    if (FAILED(result)) {
        return complain("Can't detects appropriate device mode (current desktop mode not support).", result);
    }
    backBufferFormat_ = desktop_.Format;
    return true;
}

bool D3DRenderer::chooseFullScreenFormat() {
    const auto check = [this](D3DFORMAT format) {
        backBufferFormat_ = format;
        return direct3d_->CheckDeviceType(D3DADAPTER_DEFAULT, D3DDEVTYPE_HAL, format, format, FALSE);
    };
    HRESULT result = check(D3DFMT_X8R8G8B8);
    if (SUCCEEDED(result)) return true;
    if (result != D3DERR_NOTAVAILABLE) return complain("Can't detects appropriate device type (HAL or REF).");
    result = check(D3DFMT_R5G6B5);
    return SUCCEEDED(result) || complain("Can't detects appropriate device mode (neither 32 nor 16 bit).", result);
}

bool D3DRenderer::chooseTextureFormat() {
    const auto check = [this](D3DFORMAT format) {
        textureFormat_ = format;
        return direct3d_->CheckDeviceFormat(D3DADAPTER_DEFAULT, D3DDEVTYPE_HAL, backBufferFormat_, 0, D3DRTYPE_TEXTURE,
                                            format);
    };
    HRESULT result = check(D3DFMT_A8R8G8B8);
    if (SUCCEEDED(result)) return true;
    if (result != D3DERR_NOTAVAILABLE) return complain("Can't detects appropriate texture format (fatal error).");
    result = check(D3DFMT_A4R4G4B4);
    return SUCCEEDED(result) || complain("Can't detects appropriate texture format.", result);
}

void D3DRenderer::buildPresentParameters() {
    presentParams_ = {};
    presentParams_.BackBufferFormat = backBufferFormat_;
    presentParams_.SwapEffect = D3DSWAPEFFECT_DISCARD;
    presentParams_.Windowed = fullScreen_ ? FALSE : TRUE;
    if (fullScreen_) {
        presentParams_.BackBufferWidth = width_;
        presentParams_.BackBufferHeight = height_;
        presentParams_.BackBufferCount = 1;
    }
}

bool D3DRenderer::createDevice() {
    buildPresentParameters();
    const DWORD vertices =
        caps_.VertexProcessingCaps != 0 ? D3DCREATE_HARDWARE_VERTEXPROCESSING : D3DCREATE_SOFTWARE_VERTEXPROCESSING;
    IDirect3DDevice8* device = nullptr;
    const HRESULT result = direct3d_->CreateDevice(D3DADAPTER_DEFAULT, D3DDEVTYPE_HAL, window_,
                                                   vertices | D3DCREATE_MULTITHREADED, &presentParams_, &device);
    if (FAILED(result)) return complain("Can't creates a device to represent the display adapter.", result);
    device_.reset(device);
    return true;
}

bool D3DRenderer::createVertexBuffer() {
    IDirect3DVertexBuffer8* buffer = nullptr;
    const HRESULT result =
        device_->CreateVertexBuffer(sizeof(Quad), D3DUSAGE_WRITEONLY, kLayout, D3DPOOL_MANAGED, &buffer);
    if (FAILED(result)) return complain("Can't creates a vertex buffer.");
    vertexBuffer_.reset(buffer);
    return true;
}

// Sets all states of a new or reset device, which has forgotten its texture and its opacity.
void D3DRenderer::applyDeviceStates() {
    struct RenderState {
        D3DRENDERSTATETYPE state;
        DWORD value;
    };
    constexpr RenderState kRenderStates[] = {
        {D3DRS_ZENABLE, D3DZB_FALSE},        {D3DRS_DITHERENABLE, FALSE},
        {D3DRS_SPECULARENABLE, FALSE},       {D3DRS_COLORVERTEX, FALSE},
        {D3DRS_SRCBLEND, D3DBLEND_SRCALPHA}, {D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA},
        {D3DRS_ALPHABLENDENABLE, TRUE},      {D3DRS_LIGHTING, FALSE},
        {D3DRS_CULLMODE, D3DCULL_NONE},      {D3DRS_TEXTUREFACTOR, 0xFFFFFFFF},
    };
    struct StageState {
        D3DTEXTURESTAGESTATETYPE state;
        DWORD value;
    };
    constexpr StageState kStageStates[] = {
        {D3DTSS_COLOROP, D3DTOP_SELECTARG1}, {D3DTSS_COLORARG1, D3DTA_TEXTURE},    {D3DTSS_ALPHAOP, D3DTOP_MODULATE},
        {D3DTSS_ALPHAARG1, D3DTA_TEXTURE},   {D3DTSS_ALPHAARG2, D3DTA_TFACTOR},    {D3DTSS_MAGFILTER, D3DTEXF_POINT},
        {D3DTSS_MINFILTER, D3DTEXF_POINT},   {D3DTSS_ADDRESSU, D3DTADDRESS_CLAMP}, {D3DTSS_ADDRESSV, D3DTADDRESS_CLAMP},
    };
    for (const auto& [state, value] : kRenderStates) device_->SetRenderState(state, value);
    for (const auto& [state, value] : kStageStates) device_->SetTextureStageState(0, state, value);
    device_->SetVertexShader(kLayout);
    device_->SetStreamSource(0, vertexBuffer_.get(), sizeof(Vertex));
    currentTexture_ = nullptr;
    currentAlpha_ = 1.0F;
}

}  // namespace grub
