#include "d3d8/software_device.h"

#include <cstring>
#include <new>

#include "desktop/presenter.h"
#include "desktop/window.h"
#include "kernel/calls.h"

namespace platform {
namespace {

// The limit of display adapters of the interface's time, in pixels; a damaged picture cannot ask for gigabytes.
constexpr int kLargestSide = 4096;
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

HRESULT SoftwareVertices::Lock(UINT offset, UINT size, BYTE** data, DWORD flags) {
    if (const HRESULT fault = refusal(Call::LockVertices, offset, flags); FAILED(fault)) return fault;
    if (locked_ || data == nullptr || offset > bytes_.size() || size > bytes_.size() - offset) {
        return D3DERR_INVALIDCALL;
    }
    locked_ = true;
    *data = bytes_.data() + offset;
    return D3D_OK;
}

HRESULT SoftwareVertices::Unlock() {
    if (const HRESULT fault = refusal(Call::UnlockVertices); FAILED(fault)) return fault;
    if (!locked_) return D3DERR_INVALIDCALL;
    locked_ = false;
    return D3D_OK;
}

std::optional<QuadVertices> SoftwareVertices::quad(UINT first) const {
    QuadVertices vertices;
    const std::size_t inBuffer = bytes_.size() / sizeof(ScreenVertex);
    if (locked_ || inBuffer < vertices.size() || first > inBuffer - vertices.size()) return std::nullopt;
    std::memcpy(vertices.data(), bytes_.data() + first * sizeof(ScreenVertex), sizeof vertices);
    return vertices;
}

HRESULT SoftwareDevice::create(HWND window, const D3DPRESENT_PARAMETERS& parameters, IDirect3DDevice8** device) {
    const auto width = static_cast<int>(parameters.BackBufferWidth);
    const auto height = static_cast<int>(parameters.BackBufferHeight);
    const PictureSize size = width == 0 ? pictureSize(window) : PictureSize{width, height};
    const bool fits = size.width >= 1 && size.width <= kLargestSide && size.height >= 1 && size.height <= kLargestSide;
    if (!fits) return D3DERR_INVALIDCALL;
    if (!takeScreen(window, parameters)) return D3DERR_NOTAVAILABLE;
    *device = new (std::nothrow) SoftwareDevice(window, size);
    return *device == nullptr ? E_OUTOFMEMORY : D3D_OK;
}

SoftwareDevice::SoftwareDevice(HWND window, PictureSize size) : window_(window), backBuffer_(size.width, size.height) {}

bool SoftwareDevice::takeScreen(HWND window, const D3DPRESENT_PARAMETERS& parameters) {
    const bool fullScreen = parameters.Windowed == FALSE;
    const bool taken = setFullScreen(window, fullScreen);
    return taken || !fullScreen;  // when the window is gone, Present says so
}

HRESULT SoftwareDevice::TestCooperativeLevel() { return refusal(Call::TestCooperativeLevel); }

HRESULT SoftwareDevice::Reset(D3DPRESENT_PARAMETERS* parameters) {
    if (parameters == nullptr) return D3DERR_INVALIDCALL;
    const auto windowed = static_cast<DWORD>(parameters->Windowed);
    const HRESULT fault = refusal(Call::Reset, windowed, parameters->BackBufferFormat);
    if (FAILED(fault)) return fault;
    if (!takeScreen(window_, *parameters)) return D3DERR_NOTAVAILABLE;
    bound_ = {};
    inScene_ = false;
    return D3D_OK;
}

HRESULT SoftwareDevice::Present(const RECT* source, const RECT* target, HWND window, const RGNDATA* dirty) {
    if (const HRESULT fault = refusal(Call::Present); FAILED(fault)) return fault;
    if (source != nullptr || target != nullptr || window != nullptr || dirty != nullptr) return D3DERR_INVALIDCALL;
    const bool shown = showFrame(window_, backBuffer_.pixels().data(), backBuffer_.width(), backBuffer_.height(),
                                 backBuffer_.width() * static_cast<int>(sizeof(std::uint32_t)));
    return shown ? D3D_OK : D3DERR_INVALIDCALL;
}

HRESULT SoftwareDevice::CreateTexture(UINT width, UINT height, UINT levels, DWORD usage, D3DFORMAT format, D3DPOOL pool,
                                      IDirect3DTexture8** texture) {
    if (const HRESULT fault = refusal(Call::CreateTexture, width, height); FAILED(fault)) return fault;
    const bool sizeFits = width >= 1 && width <= kLargestSide && height >= 1 && height <= kLargestSide;
    const bool formatFits = format == D3DFMT_A8R8G8B8 || format == D3DFMT_A4R4G4B4;
    if (texture == nullptr || !sizeFits || !formatFits || levels != 1 || usage != 0 || pool != D3DPOOL_MANAGED) {
        return D3DERR_INVALIDCALL;
    }
    *texture = SoftwareTexture::create(width, height, format);
    return *texture == nullptr ? D3DERR_OUTOFVIDEOMEMORY : D3D_OK;
}

HRESULT SoftwareDevice::CreateVertexBuffer(UINT bytes, DWORD usage, DWORD layout, D3DPOOL pool,
                                           IDirect3DVertexBuffer8** buffer) {
    const HRESULT fault = refusal(Call::CreateVertexBuffer, bytes, layout);
    if (FAILED(fault)) return fault;
    if (buffer == nullptr || usage != D3DUSAGE_WRITEONLY || layout != kLayout || pool != D3DPOOL_MANAGED) {
        return D3DERR_INVALIDCALL;
    }
    *buffer = new (std::nothrow) SoftwareVertices(bytes);
    return *buffer == nullptr ? E_OUTOFMEMORY : D3D_OK;
}

HRESULT SoftwareDevice::BeginScene() {
    if (const HRESULT fault = refusal(Call::BeginScene); FAILED(fault)) return fault;
    if (inScene_) return D3DERR_INVALIDCALL;
    inScene_ = true;
    return D3D_OK;
}

HRESULT SoftwareDevice::EndScene() {
    if (const HRESULT fault = refusal(Call::EndScene); FAILED(fault)) return fault;
    if (!inScene_) return D3DERR_INVALIDCALL;
    inScene_ = false;
    return D3D_OK;
}

HRESULT SoftwareDevice::Clear(DWORD count, const D3DRECT* rects, DWORD flags, D3DCOLOR colour, float /*z*/,
                              DWORD /*stencil*/) {
    if (const HRESULT fault = refusal(Call::Clear, count, colour); FAILED(fault)) return fault;
    if (flags != D3DCLEAR_TARGET || (count == 0) != (rects == nullptr)) return D3DERR_INVALIDCALL;
    if (count == 0) backBuffer_.fill({0, 0, backBuffer_.width(), backBuffer_.height()}, colour);
    for (DWORD i = 0; i < count; ++i) backBuffer_.fill(rects[i], colour);
    return D3D_OK;
}

HRESULT SoftwareDevice::SetRenderState(D3DRENDERSTATETYPE state, DWORD value) {
    if (const HRESULT fault = refusal(Call::SetRenderState, state, value); FAILED(fault)) return fault;
    return bound_.states.setRenderState(state, value) ? D3D_OK : D3DERR_INVALIDCALL;
}

HRESULT SoftwareDevice::SetTexture(DWORD stage, IDirect3DBaseTexture8* texture) {
    const HRESULT fault = refusal(Call::SetTexture, stage, texture == nullptr ? 0 : 1);
    if (FAILED(fault)) return fault;
    if (stage != 0) return D3DERR_INVALIDCALL;
    bound_.texture = shareObject(static_cast<SoftwareTexture*>(texture));
    return D3D_OK;
}

HRESULT SoftwareDevice::SetTextureStageState(DWORD stage, D3DTEXTURESTAGESTATETYPE state, DWORD value) {
    const HRESULT fault = refusal(Call::SetTextureStageState, state, value);
    if (FAILED(fault)) return fault;
    return stage == 0 && bound_.states.setStageState(state, value) ? D3D_OK : D3DERR_INVALIDCALL;
}

bool SoftwareDevice::canDraw() {
    return inScene_ && bound_.texture != nullptr && bound_.vertices != nullptr &&
           bound_.stride == sizeof(ScreenVertex) && bound_.layout == kLayout && bound_.states.fitRasteriser();
}

HRESULT SoftwareDevice::DrawPrimitive(D3DPRIMITIVETYPE type, UINT firstVertex, UINT primitives) {
    const HRESULT fault = refusal(Call::DrawPrimitive, firstVertex, primitives);
    if (FAILED(fault)) return fault;
    if (type != D3DPT_TRIANGLELIST || primitives != 2 || !canDraw()) return D3DERR_INVALIDCALL;
    const std::optional<QuadVertices> vertices = bound_.vertices->quad(firstVertex);
    if (!vertices) return D3DERR_INVALIDCALL;
    const std::optional<TexturedRect> rect = rectangleOf(*vertices);
    if (!rect) return D3DERR_INVALIDCALL;
    return backBuffer_.draw(*bound_.texture, *rect, bound_.states.opacity());
}

HRESULT SoftwareDevice::SetVertexShader(DWORD layout) {
    if (const HRESULT fault = refusal(Call::SetVertexShader, layout); FAILED(fault)) return fault;
    bound_.layout = layout;
    return D3D_OK;
}

HRESULT SoftwareDevice::SetStreamSource(UINT stream, IDirect3DVertexBuffer8* buffer, UINT stride) {
    const HRESULT fault = refusal(Call::SetStreamSource, stream, stride);
    if (FAILED(fault)) return fault;
    if (stream != 0) return D3DERR_INVALIDCALL;
    bound_.vertices = shareObject(static_cast<SoftwareVertices*>(buffer));
    bound_.stride = stride;
    return D3D_OK;
}

}  // namespace platform
