#include <cstring>

#include "com_ptr.h"
#include "ready_renderer.h"

namespace grub {
namespace {

// The device itself, without the renderer.
class SoftwareDevice : public testing::Test {
protected:
    SoftwareDevice() {
        D3DPRESENT_PARAMETERS parameters{};
        parameters.Windowed = TRUE;
        IDirect3DDevice8* made = nullptr;
        direct3d->CreateDevice(0, D3DDEVTYPE_HAL, window.handle(), D3DCREATE_MULTITHREADED, &parameters, &made);
        device.reset(made);
    }

    ComPtr<IDirect3DTexture8> makeTexture(UINT width, UINT height, D3DFORMAT format) {
        IDirect3DTexture8* texture = nullptr;
        device->CreateTexture(width, height, 1, 0, format, D3DPOOL_MANAGED, &texture);
        return ComPtr<IDirect3DTexture8>(texture);
    }

    RendererWindow window;
    ComPtr<IDirect3D8> direct3d{Direct3DCreate8(D3D_SDK_VERSION)};
    ComPtr<IDirect3DDevice8> device;
};

TEST_F(SoftwareDevice, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(Direct3DCreate8(219), nullptr);
    D3DDISPLAYMODE mode;
    D3DCAPS8 caps;
    EXPECT_EQ(direct3d->GetAdapterDisplayMode(1, &mode), D3DERR_INVALIDCALL);
    EXPECT_EQ(direct3d->GetDeviceCaps(1, D3DDEVTYPE_HAL, &caps), D3DERR_INVALIDCALL);
    EXPECT_EQ(makeTexture(4, 4, D3DFMT_R5G6B5), nullptr);
    EXPECT_EQ(makeTexture(0, 4, D3DFMT_A8R8G8B8), nullptr);
    EXPECT_EQ(device->EndScene(), D3DERR_INVALIDCALL);
    EXPECT_EQ(device->BeginScene(), D3D_OK);
    EXPECT_EQ(device->BeginScene(), D3DERR_INVALIDCALL);
}

TEST_F(SoftwareDevice, DrawsOnlyWhatItWasToldHowToDraw) {
    EXPECT_EQ(device->BeginScene(), D3D_OK);
    EXPECT_EQ(device->DrawPrimitive(D3DPT_TRIANGLELIST, 0, 2), D3DERR_INVALIDCALL);
    const auto texture = makeTexture(4, 4, D3DFMT_A8R8G8B8);
    EXPECT_EQ(device->SetTexture(0, texture.get()), D3D_OK);
    EXPECT_EQ(device->DrawPrimitive(D3DPT_TRIANGLELIST, 0, 2), D3DERR_INVALIDCALL) << "no states, no vertices";
}

TEST_F(SoftwareDevice, TexturesKeepTheirBitsAndLockOnce) {
    for (const auto& [format, bytes] : {std::pair{D3DFMT_A8R8G8B8, 4}, std::pair{D3DFMT_A4R4G4B4, 2}}) {
        const auto texture = makeTexture(8, 2, format);
        D3DLOCKED_RECT locked;
        ASSERT_EQ(texture->LockRect(0, &locked, nullptr, 0), D3D_OK);
        EXPECT_EQ(locked.Pitch, 8 * bytes);
        EXPECT_EQ(texture->LockRect(0, &locked, nullptr, 0), D3DERR_INVALIDCALL);
        std::memset(locked.pBits, 0x5A, 16 * static_cast<std::size_t>(bytes));
        EXPECT_EQ(texture->UnlockRect(0), D3D_OK);
        EXPECT_EQ(texture->UnlockRect(0), D3DERR_INVALIDCALL);
        ASSERT_EQ(texture->LockRect(0, &locked, nullptr, D3DLOCK_NO_DIRTY_UPDATE), D3D_OK);
        EXPECT_EQ(static_cast<const BYTE*>(locked.pBits)[16 * bytes - 1], 0x5A);
        texture->UnlockRect(0);
    }
}

TEST_F(SoftwareDevice, HoldsAReferenceToTheBoundTexture) {
    auto texture = makeTexture(4, 4, D3DFMT_A8R8G8B8);
    device->SetTexture(0, texture.get());
    EXPECT_EQ(texture->AddRef(), 3u);
    EXPECT_EQ(texture->Release(), 2u);
    device->SetTexture(0, nullptr);
    EXPECT_EQ(texture->AddRef(), 2u);
    EXPECT_EQ(texture->Release(), 1u);
}

}  // namespace
}  // namespace grub
