#pragma once

#include <unknwn.h>
#include <windows.h>

struct IDirect3D8;
struct IDirect3DDevice8;
struct IDirect3DTexture8;
struct IDirect3DVertexBuffer8;
struct RGNDATA;

/// A colour as 0xAARRGGBB.
using D3DCOLOR = DWORD;

/// The interface version that `Direct3DCreate8` is asked for, and the number of the first display adapter.
inline constexpr UINT D3D_SDK_VERSION = 220;
inline constexpr UINT D3DADAPTER_DEFAULT = 0;

/// Result codes of this interface: facility 0x876, negative.
inline constexpr HRESULT D3D_OK = 0;
inline constexpr HRESULT D3DERR_OUTOFVIDEOMEMORY = static_cast<HRESULT>(0x8876017C);
inline constexpr HRESULT D3DERR_DEVICELOST = static_cast<HRESULT>(0x88760868);
inline constexpr HRESULT D3DERR_DEVICENOTRESET = static_cast<HRESULT>(0x88760869);
inline constexpr HRESULT D3DERR_NOTAVAILABLE = static_cast<HRESULT>(0x8876086A);
inline constexpr HRESULT D3DERR_INVALIDCALL = static_cast<HRESULT>(0x8876086C);

/// Pixel formats, named from the highest bit down.
enum D3DFORMAT : DWORD {
    D3DFMT_UNKNOWN = 0,
    D3DFMT_A8R8G8B8 = 21,
    D3DFMT_X8R8G8B8 = 22,
    D3DFMT_R5G6B5 = 23,
    D3DFMT_A4R4G4B4 = 26,
};

/// Kinds of device, resource, primitive, memory pool, swapping, depth test and multisampling.
enum D3DDEVTYPE : DWORD { D3DDEVTYPE_HAL = 1 };
enum D3DRESOURCETYPE : DWORD { D3DRTYPE_TEXTURE = 3 };
enum D3DPRIMITIVETYPE : DWORD { D3DPT_TRIANGLELIST = 4 };
enum D3DPOOL : DWORD { D3DPOOL_MANAGED = 1 };
enum D3DSWAPEFFECT : DWORD { D3DSWAPEFFECT_DISCARD = 1 };
enum D3DZBUFFERTYPE : DWORD { D3DZB_FALSE = 0 };
enum D3DMULTISAMPLE_TYPE : DWORD {};  // only 0, none, is used

/// States of the whole pipeline; the value is the number of the state.
enum D3DRENDERSTATETYPE : DWORD {
    D3DRS_ZENABLE = 7,
    D3DRS_SRCBLEND = 19,
    D3DRS_DESTBLEND = 20,
    D3DRS_CULLMODE = 22,
    D3DRS_DITHERENABLE = 26,
    D3DRS_ALPHABLENDENABLE = 27,
    D3DRS_SPECULARENABLE = 29,
    D3DRS_TEXTUREFACTOR = 60,
    D3DRS_LIGHTING = 137,
    D3DRS_COLORVERTEX = 141,
};

/// Factors of the blending equation, and culling of neither side.
enum D3DBLEND : DWORD { D3DBLEND_SRCALPHA = 5, D3DBLEND_INVSRCALPHA = 6 };
enum D3DCULL : DWORD { D3DCULL_NONE = 1 };

/// States of one texture stage.
enum D3DTEXTURESTAGESTATETYPE : DWORD {
    D3DTSS_COLOROP = 1,
    D3DTSS_COLORARG1 = 2,
    D3DTSS_ALPHAOP = 4,
    D3DTSS_ALPHAARG1 = 5,
    D3DTSS_ALPHAARG2 = 6,
    D3DTSS_ADDRESSU = 13,
    D3DTSS_ADDRESSV = 14,
    D3DTSS_MAGFILTER = 16,
    D3DTSS_MINFILTER = 17,
};

/// How a stage combines its arguments, filters between texels and continues beyond the texture's edge.
enum D3DTEXTUREOP : DWORD { D3DTOP_SELECTARG1 = 2, D3DTOP_MODULATE = 4 };
enum D3DTEXTUREFILTERTYPE : DWORD { D3DTEXF_POINT = 1 };
enum D3DTEXTUREADDRESS : DWORD { D3DTADDRESS_CLAMP = 3 };

/// Arguments of a stage's operations: the sampled texel, the texture factor.
inline constexpr DWORD D3DTA_TEXTURE = 2;
inline constexpr DWORD D3DTA_TFACTOR = 3;
/// Vertex layout bits: four floats in screen pixels (x, y, z, 1/w), one pair of texture coordinates.
inline constexpr DWORD D3DFVF_XYZRHW = 0x004;
inline constexpr DWORD D3DFVF_TEX1 = 0x100;
/// Behaviour flags of `CreateDevice`.
inline constexpr DWORD D3DCREATE_MULTITHREADED = 0x04;
inline constexpr DWORD D3DCREATE_SOFTWARE_VERTEXPROCESSING = 0x20;
inline constexpr DWORD D3DCREATE_HARDWARE_VERTEXPROCESSING = 0x40;
/// The buffer is only written by the program; the lock changes nothing; clear the colour only.
inline constexpr DWORD D3DUSAGE_WRITEONLY = 0x08;
inline constexpr DWORD D3DLOCK_NO_DIRTY_UPDATE = 0x8000;
inline constexpr DWORD D3DCLEAR_TARGET = 0x01;
/// Capability: textures must be as wide as high.
inline constexpr DWORD D3DPTEXTURECAPS_SQUAREONLY = 0x20;

/// A rectangle in pixels; right and bottom lie outside.
struct D3DRECT {
    LONG x1;
    LONG y1;
    LONG x2;
    LONG y2;
};

/// Where a locked surface lies, and the bytes from one row to the next.
struct D3DLOCKED_RECT {
    int Pitch;
    void* pBits;
};

/// A mode of the display: pixels, Hz.
struct D3DDISPLAYMODE {
    UINT Width;
    UINT Height;
    UINT RefreshRate;
    D3DFORMAT Format;
};

/// What a device can do; the two masks that the game asks for.
struct D3DCAPS8 {
    DWORD TextureCaps;
    DWORD VertexProcessingCaps;
};

/// How finished pictures reach the screen. In a window, size 0 means that of the window.
struct D3DPRESENT_PARAMETERS {
    UINT BackBufferWidth;
    UINT BackBufferHeight;
    D3DFORMAT BackBufferFormat;
    UINT BackBufferCount;
    D3DMULTISAMPLE_TYPE MultiSampleType;
    D3DSWAPEFFECT SwapEffect;
    HWND hDeviceWindow;
    BOOL Windowed;
    BOOL EnableAutoDepthStencil;
    D3DFORMAT AutoDepthStencilFormat;
    DWORD Flags;
    UINT FullScreen_RefreshRateInHz;
    UINT FullScreen_PresentationInterval;
};

/// Finds out what the display adapters can do and makes devices.
struct IDirect3D8 : IUnknown {
    /// What the desktop shows now, and what a device could do.
    virtual HRESULT GetAdapterDisplayMode(UINT adapter, D3DDISPLAYMODE* mode) = 0;
    virtual HRESULT GetDeviceCaps(UINT adapter, D3DDEVTYPE type, D3DCAPS8* caps) = 0;
    /// D3DERR_NOTAVAILABLE: the adapter cannot show this back buffer.
    virtual HRESULT CheckDeviceType(UINT adapter, D3DDEVTYPE type, D3DFORMAT display, D3DFORMAT backBuffer,
                                    BOOL windowed) = 0;
    /// D3DERR_NOTAVAILABLE: no such resource beside this display format.
    virtual HRESULT CheckDeviceFormat(UINT adapter, D3DDEVTYPE type, D3DFORMAT display, DWORD usage,
                                      D3DRESOURCETYPE resource, D3DFORMAT format) = 0;
    /// On the window's own thread. With D3DCREATE_MULTITHREADED textures may be made and filled from any thread.
    virtual HRESULT CreateDevice(UINT adapter, D3DDEVTYPE type, HWND window, DWORD behaviour,
                                 D3DPRESENT_PARAMETERS* parameters, IDirect3DDevice8** device) = 0;

protected:
    ~IDirect3D8() = default;
};

/// What can be bound to a texture stage.
struct IDirect3DBaseTexture8 : IUnknown {
protected:
    ~IDirect3DBaseTexture8() = default;
};

/// A picture in the device's store.
struct IDirect3DTexture8 : IDirect3DBaseTexture8 {
    /// Null `rect`: the whole level. The bits stay valid until `UnlockRect`; a texture cannot be locked twice.
    virtual HRESULT LockRect(UINT level, D3DLOCKED_RECT* locked, const RECT* rect, DWORD flags) = 0;
    virtual HRESULT UnlockRect(UINT level) = 0;

protected:
    ~IDirect3DTexture8() = default;
};

/// Vertices in the device's store.
struct IDirect3DVertexBuffer8 : IUnknown {
    /// Size 0: from `offset` to the end. The bytes stay valid until `Unlock`.
    virtual HRESULT Lock(UINT offset, UINT size, BYTE** data, DWORD flags) = 0;
    virtual HRESULT Unlock() = 0;

protected:
    ~IDirect3DVertexBuffer8() = default;
};

/// Draws into a back buffer and presents it. Drawing comes from one thread at a time.
struct IDirect3DDevice8 : IUnknown {
    /// D3DERR_DEVICELOST: not now; D3DERR_DEVICENOTRESET: `Reset` would help. On the window's own thread, as `Reset`.
    virtual HRESULT TestCooperativeLevel() = 0;
    /// Takes new parameters; all states and bindings fall back to their defaults.
    virtual HRESULT Reset(D3DPRESENT_PARAMETERS* parameters) = 0;
    /// Nulls: the whole picture to the device's window.
    virtual HRESULT Present(const RECT* source, const RECT* target, HWND window, const RGNDATA* dirty) = 0;
    /// The caller gets the only reference; what it holds at first is not promised.
    virtual HRESULT CreateTexture(UINT width, UINT height, UINT levels, DWORD usage, D3DFORMAT format, D3DPOOL pool,
                                  IDirect3DTexture8** texture) = 0;
    virtual HRESULT CreateVertexBuffer(UINT bytes, DWORD usage, DWORD layout, D3DPOOL pool,
                                       IDirect3DVertexBuffer8** buffer) = 0;
    /// Drawing happens between these two.
    virtual HRESULT BeginScene() = 0;
    virtual HRESULT EndScene() = 0;
    /// No rectangles: the whole target. Outside of a scene too.
    virtual HRESULT Clear(DWORD count, const D3DRECT* rects, DWORD flags, D3DCOLOR colour, float z, DWORD stencil) = 0;
    /// States stay until they are set again or the device is reset.
    virtual HRESULT SetRenderState(D3DRENDERSTATETYPE state, DWORD value) = 0;
    /// The device keeps a reference to a bound texture; null unbinds.
    virtual HRESULT SetTexture(DWORD stage, IDirect3DBaseTexture8* texture) = 0;
    virtual HRESULT SetTextureStageState(DWORD stage, D3DTEXTURESTAGESTATETYPE state, DWORD value) = 0;
    /// Draws with the bound buffer, texture and states.
    virtual HRESULT DrawPrimitive(D3DPRIMITIVETYPE type, UINT firstVertex, UINT primitives) = 0;
    /// The vertex layout that the fixed pipeline is to expect.
    virtual HRESULT SetVertexShader(DWORD layout) = 0;
    /// The device keeps a reference to a bound buffer. `stride` is in bytes.
    virtual HRESULT SetStreamSource(UINT stream, IDirect3DVertexBuffer8* buffer, UINT stride) = 0;

protected:
    ~IDirect3DDevice8() = default;
};

/// Makes the object that all others come from; null for a version other than 220.
IDirect3D8* Direct3DCreate8(UINT version);
