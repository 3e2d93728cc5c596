#pragma once

#include <array>
#include <optional>
#include <vector>

#include <d3d8.h>

#include "d3d8/back_buffer.h"
#include "d3d8/pipeline_states.h"
#include "d3d8/software_texture.h"
#include "desktop/window.h"
#include "kernel/objects.h"

namespace platform {

/// One vertex of the only layout that this device draws: screen pixels and texture coordinates.
struct ScreenVertex {
    float x;
    float y;
    float z;
    float rhw;
    float u;
    float v;
};

/// Two triangles of a list.
using QuadVertices = std::array<ScreenVertex, 6>;

/// Vertices in plain memory. Written and drawn on one thread.
class SoftwareVertices final : public ComObject<IDirect3DVertexBuffer8> {
public:
    /// `bytes` zeroed bytes.
    explicit SoftwareVertices(UINT bytes) : bytes_(bytes) {}

    HRESULT Lock(UINT offset, UINT size, BYTE** data, DWORD flags) override;
    HRESULT Unlock() override;

    /// Six vertices from number `first` on; nothing when they are not all there or the buffer is locked.
    [[nodiscard]] std::optional<QuadVertices> quad(UINT first) const;

private:
    std::vector<BYTE> bytes_;
    bool locked_ = false;
};

/// A Direct3D device that draws upright textured rectangles into a picture in memory, at once and on the calling
/// thread, and hands finished pictures to its window. It is never lost. What it cannot draw it refuses.
class SoftwareDevice final : public ComObject<IDirect3DDevice8> {
public:
    /// Makes a device that draws for `window`, with one reference, the caller's. The window goes full screen or back as
    /// the parameters say. D3DERR_NOTAVAILABLE when the system refuses full screen.
    static HRESULT create(HWND window, const D3DPRESENT_PARAMETERS& parameters, IDirect3DDevice8** device);

    HRESULT TestCooperativeLevel() override;
    HRESULT Reset(D3DPRESENT_PARAMETERS* parameters) override;
    HRESULT Present(const RECT* source, const RECT* target, HWND window, const RGNDATA* dirty) override;
    HRESULT CreateTexture(UINT width, UINT height, UINT levels, DWORD usage, D3DFORMAT format, D3DPOOL pool,
                          IDirect3DTexture8** texture) override;
    HRESULT CreateVertexBuffer(UINT bytes, DWORD usage, DWORD layout, D3DPOOL pool,
                               IDirect3DVertexBuffer8** buffer) override;
    HRESULT BeginScene() override;
    HRESULT EndScene() override;
    HRESULT Clear(DWORD count, const D3DRECT* rects, DWORD flags, D3DCOLOR colour, float z, DWORD stencil) override;
    HRESULT SetRenderState(D3DRENDERSTATETYPE state, DWORD value) override;
    HRESULT SetTexture(DWORD stage, IDirect3DBaseTexture8* texture) override;
    HRESULT SetTextureStageState(DWORD stage, D3DTEXTURESTAGESTATETYPE state, DWORD value) override;
    HRESULT DrawPrimitive(D3DPRIMITIVETYPE type, UINT firstVertex, UINT primitives) override;
    HRESULT SetVertexShader(DWORD layout) override;
    HRESULT SetStreamSource(UINT stream, IDirect3DVertexBuffer8* buffer, UINT stride) override;

private:
    // What a reset puts back.
    struct Bindings {
        PipelineStates states;
        ObjectRef<SoftwareTexture> texture;
        ObjectRef<SoftwareVertices> vertices;
        UINT stride = 0;
        DWORD layout = 0;
    };

    SoftwareDevice(HWND window, PictureSize size);
    static bool takeScreen(HWND window, const D3DPRESENT_PARAMETERS& parameters);
    [[nodiscard]] bool canDraw();

    const HWND window_;
    BackBuffer backBuffer_;
    Bindings bound_;
    bool inScene_ = false;
};

}  // namespace platform
