#pragma once

#include <optional>

#include <d3d8.h>

#include "back_buffer.h"
#include "com_object.h"
#include "pipeline_states.h"
#include "software_texture.h"
#include "software_vertices.h"

namespace platform {

/// A Direct3D device that draws upright textured rectangles into a picture in memory, at once and on the calling
/// thread, and hands finished pictures to its window. It is never lost. What it cannot draw it refuses.
class SoftwareDevice final : public ComObject<IDirect3DDevice8> {
public:
    /// Draws for `window`, which goes full screen or back as the parameters say.
    SoftwareDevice(HWND window, const D3DPRESENT_PARAMETERS& parameters);

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

    [[nodiscard]] bool canDraw();

    const HWND window_;
    BackBuffer backBuffer_;
    Bindings bound_;
    bool inScene_ = false;
};

}  // namespace platform
