#include "software_device.h"

#include <algorithm>
#include <new>

#include "device_watch.h"
#include "window_frames.h"

namespace platform {
namespace {

// The game's picture; windows scale it.
constexpr int kWidth = 800;
constexpr int kHeight = 600;
// As much as display adapters of the interface's time offered; it keeps a damaged picture from asking for gigabytes.
constexpr UINT kLargestTexture = 4096;
constexpr DWORD kLayout = D3DFVF_XYZRHW | D3DFVF_TEX1;

// The upright rectangle that the two triangles fill, when they do.
std::optional<TexturedRect> rectangleOf(const QuadVertices& vertices) {
    const ScreenVertex& topLeft = vertices[1];
    const ScreenVertex& bottomRight = vertices[2];
    const TexturedRect rect{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y,
                            topLeft.u, topLeft.v, bottomRight.u, bottomRight.v};
    const auto isAt = [](const ScreenVertex& vertex, float x, float y, float u, float v) {
        return vertex.x == x && vertex.y == y && vertex.u == u && vertex.v == v;
    };
    const bool upright = rect.left <= rect.right && rect.top <= rect.bottom &&
                         isAt(vertices[0], rect.left, rect.bottom, rect.uLeft, rect.vBottom) &&
                         isAt(vertices[3], rect.left, rect.top, rect.uLeft, rect.vTop) &&
                         isAt(vertices[4], rect.right, rect.top, rect.uRight, rect.vTop) &&
                         isAt(vertices[5], rect.right, rect.bottom, rect.uRight, rect.vBottom);
    if (!upright) return std::nullopt;
    return rect;
}

}  // namespace

SoftwareDevice::SoftwareDevice(HWND window, const D3DPRESENT_PARAMETERS& parameters)
    : window_(window), backBuffer_(kWidth, kHeight) {
    setFullScreen(window_, parameters.Windowed == FALSE);
}

HRESULT SoftwareDevice::TestCooperativeLevel() { return announceCall(DeviceFunction::TestCooperativeLevel); }

HRESULT SoftwareDevice::Reset(D3DPRESENT_PARAMETERS* parameters) {
    if (parameters == nullptr) return D3DERR_INVALIDCALL;
    const auto windowed = static_cast<DWORD>(parameters->Windowed);
    const HRESULT fault = announceCall(DeviceFunction::Reset, windowed, parameters->BackBufferFormat);
    if (FAILED(fault)) return fault;
    setFullScreen(window_, parameters->Windowed == FALSE);
    bound_ = {};
    inScene_ = false;
    return D3D_OK;
}

HRESULT SoftwareDevice::Present(const RECT* source, const RECT* target, HWND window, const RGNDATA* dirty) {
    if (const HRESULT fault = announceCall(DeviceFunction::Present); FAILED(fault)) return fault;
    if (source != nullptr || target != nullptr || window != nullptr || dirty != nullptr) return D3DERR_INVALIDCALL;
    if (DeviceWatch* const watch = deviceWatch.load(std::memory_order_acquire)) watch->presented(backBuffer_.pixels());
    const bool shown = showFrame(window_, backBuffer_.pixels().data(), backBuffer_.width(), backBuffer_.height(),
                                 backBuffer_.width() * static_cast<int>(sizeof(std::uint32_t)));
    return shown ? D3D_OK : D3DERR_INVALIDCALL;
}

HRESULT SoftwareDevice::CreateTexture(UINT width, UINT height, UINT levels, DWORD usage, D3DFORMAT format, D3DPOOL pool,
                                      IDirect3DTexture8** texture) {
    if (const HRESULT fault = announceCall(DeviceFunction::CreateTexture, width, height); FAILED(fault)) return fault;
    const bool sizeFits = width >= 1 && width <= kLargestTexture && height >= 1 && height <= kLargestTexture;
    const bool formatFits = format == D3DFMT_A8R8G8B8 || format == D3DFMT_A4R4G4B4;
    if (texture == nullptr || !sizeFits || !formatFits || levels != 1 || usage != 0 || pool != D3DPOOL_MANAGED) {
        return D3DERR_INVALIDCALL;
    }
    *texture = SoftwareTexture::create(width, height, format);
    return *texture == nullptr ? D3DERR_OUTOFVIDEOMEMORY : D3D_OK;
}

HRESULT SoftwareDevice::CreateVertexBuffer(UINT bytes, DWORD usage, DWORD layout, D3DPOOL pool,
                                           IDirect3DVertexBuffer8** buffer) {
    const HRESULT fault = announceCall(DeviceFunction::CreateVertexBuffer, bytes, layout);
    if (FAILED(fault)) return fault;
    if (buffer == nullptr || usage != D3DUSAGE_WRITEONLY || layout != kLayout || pool != D3DPOOL_MANAGED) {
        return D3DERR_INVALIDCALL;
    }
    *buffer = new (std::nothrow) SoftwareVertices(bytes);
    return *buffer == nullptr ? E_OUTOFMEMORY : D3D_OK;
}

HRESULT SoftwareDevice::BeginScene() {
    if (const HRESULT fault = announceCall(DeviceFunction::BeginScene); FAILED(fault)) return fault;
    if (inScene_) return D3DERR_INVALIDCALL;
    inScene_ = true;
    return D3D_OK;
}

HRESULT SoftwareDevice::EndScene() {
    if (const HRESULT fault = announceCall(DeviceFunction::EndScene); FAILED(fault)) return fault;
    if (!inScene_) return D3DERR_INVALIDCALL;
    inScene_ = false;
    return D3D_OK;
}

HRESULT SoftwareDevice::Clear(DWORD count, const D3DRECT* rects, DWORD flags, D3DCOLOR colour, float /*z*/,
                              DWORD /*stencil*/) {
    if (const HRESULT fault = announceCall(DeviceFunction::Clear, count, colour); FAILED(fault)) return fault;
    if (flags != D3DCLEAR_TARGET || (count == 0) != (rects == nullptr)) return D3DERR_INVALIDCALL;
    if (count == 0) backBuffer_.fill({0, 0, kWidth, kHeight}, colour);
    for (DWORD i = 0; i < count; ++i) backBuffer_.fill(rects[i], colour);
    return D3D_OK;
}

HRESULT SoftwareDevice::SetRenderState(D3DRENDERSTATETYPE state, DWORD value) {
    if (const HRESULT fault = announceCall(DeviceFunction::SetRenderState, state, value); FAILED(fault)) return fault;
    return bound_.states.setRenderState(state, value) ? D3D_OK : D3DERR_INVALIDCALL;
}

HRESULT SoftwareDevice::SetTexture(DWORD stage, IDirect3DBaseTexture8* texture) {
    const HRESULT fault = announceCall(DeviceFunction::SetTexture, stage, texture == nullptr ? 0 : 1);
    if (FAILED(fault)) return fault;
    if (stage != 0) return D3DERR_INVALIDCALL;
    bound_.texture = shareObject(static_cast<SoftwareTexture*>(texture));
    return D3D_OK;
}

HRESULT SoftwareDevice::SetTextureStageState(DWORD stage, D3DTEXTURESTAGESTATETYPE state, DWORD value) {
    const HRESULT fault = announceCall(DeviceFunction::SetTextureStageState, state, value);
    if (FAILED(fault)) return fault;
    return stage == 0 && bound_.states.setStageState(state, value) ? D3D_OK : D3DERR_INVALIDCALL;
}

bool SoftwareDevice::canDraw() {
    return inScene_ && bound_.texture != nullptr && bound_.vertices != nullptr &&
           bound_.stride == sizeof(ScreenVertex) && bound_.layout == kLayout && bound_.states.fitRasteriser();
}

HRESULT SoftwareDevice::DrawPrimitive(D3DPRIMITIVETYPE type, UINT firstVertex, UINT primitives) {
    const HRESULT fault = announceCall(DeviceFunction::DrawPrimitive, firstVertex, primitives);
    if (FAILED(fault)) return fault;
    if (type != D3DPT_TRIANGLELIST || primitives != 2 || !canDraw()) return D3DERR_INVALIDCALL;
    const std::optional<QuadVertices> vertices = bound_.vertices->quad(firstVertex);
    if (!vertices) return D3DERR_INVALIDCALL;
    const std::optional<TexturedRect> rect = rectangleOf(*vertices);
    if (!rect) return D3DERR_INVALIDCALL;
    return backBuffer_.draw(*bound_.texture, *rect, bound_.states.opacity()) ? D3D_OK : E_OUTOFMEMORY;
}

HRESULT SoftwareDevice::SetVertexShader(DWORD layout) {
    if (const HRESULT fault = announceCall(DeviceFunction::SetVertexShader, layout); FAILED(fault)) return fault;
    bound_.layout = layout;
    return D3D_OK;
}

HRESULT SoftwareDevice::SetStreamSource(UINT stream, IDirect3DVertexBuffer8* buffer, UINT stride) {
    const HRESULT fault = announceCall(DeviceFunction::SetStreamSource, stream, stride);
    if (FAILED(fault)) return fault;
    if (stream != 0) return D3DERR_INVALIDCALL;
    bound_.vertices = shareObject(static_cast<SoftwareVertices*>(buffer));
    bound_.stride = stride;
    return D3D_OK;
}

}  // namespace platform
