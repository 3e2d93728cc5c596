#pragma once

#include <array>
#include <cstdint>

#include <d3d8.h>

#include "renderer.h"
#include "system_objects.h"

namespace grub {

class D3DTexture;

/// Draws with Direct3D 8: every picture is two triangles of one vertex buffer, blended by the picture's alpha times the
/// opacity in the alpha byte of the texture factor.
class D3DRenderer final : public Renderer {
public:
    /// The renderer sends these messages, without parameters, to its window. The window's procedure answers them with
    /// the results of `testCooperativeLevel` and `resetDevice`: Direct3D needs both on the window's own thread.
    static constexpr UINT kTestDeviceMessage = WM_USER + 2;
    static constexpr UINT kResetDeviceMessage = WM_USER + 3;

    /// Creates nothing before `init`. `width` and `height` are the screen's, in pixels.
    D3DRenderer(HWND window, std::uint16_t width, std::uint16_t height, bool fullScreen);
    ~D3DRenderer() override;
    D3DRenderer(const D3DRenderer&) = delete;
    D3DRenderer& operator=(const D3DRenderer&) = delete;

    bool init() override;
    bool shutdown() override;
    [[nodiscard]] bool isReady() const override { return device_ != nullptr; }
    [[nodiscard]] Texture* createTexture(std::uint16_t width, std::uint16_t height) override;
    bool beginFrame() override;
    bool endFrame() override;
    bool clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) override;
    bool clear(Colour colour) override;
    bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                  std::uint16_t w, std::uint16_t h, float alpha) override;
    bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) override;

    /// Changes between window and full screen, by a reset that the window's procedure carries out. Call it between
    /// frames. Returns true when the mode is the wanted one; after a refused reset the old mode stays.
    bool setFullScreen(bool fullScreen);
    /// The mode that `init` chose (a desktop that is not larger than the picture forces full screen) or that
    /// `setFullScreen` reached since.
    [[nodiscard]] bool isFullScreen() const { return fullScreen_; }

    /// The device's answers, for the window's procedure; D3DERR_INVALIDCALL without a device.
    HRESULT testCooperativeLevel();
    HRESULT resetDevice();

private:
    struct Vertex {
        float x;
        float y;
        float z;
        float rhw;
        float u;
        float v;
    };
    using Quad = std::array<Vertex, 6>;

    bool createDirect3D();
    bool readCapabilities();
    bool readDesktopMode();
    bool chooseBackBufferFormat();
    bool chooseFullScreenFormat();
    bool chooseTextureFormat();
    void buildPresentParameters();
    bool createDevice();
    bool createVertexBuffer();
    void applyDeviceStates();

    bool requestReset();
    void restoreLostDevice();
    [[nodiscard]] bool isOffScreen(int x, int y, int w, int h) const;
    bool bindTexture(const D3DTexture& texture);
    bool sendOpacity(float alpha);
    bool drawQuad(const Quad& quad);

    std::uint16_t width_;
    std::uint16_t height_;
    HWND window_;
    ComPtr<IDirect3D8> direct3d_;
    ComPtr<IDirect3DDevice8> device_;
    // For comparing only. The device keeps the bound texture alive, so no other texture can get its address meanwhile.
    const IDirect3DTexture8* currentTexture_ = nullptr;
    float currentAlpha_ = 1.0F;  // the opacity sent last, not the one drawn last
    bool fullScreen_;
    D3DDISPLAYMODE desktop_{};
    D3DCAPS8 caps_{};
    D3DPRESENT_PARAMETERS presentParams_{};
    D3DFORMAT backBufferFormat_ = D3DFMT_UNKNOWN;
    D3DFORMAT textureFormat_ = D3DFMT_UNKNOWN;
    ComPtr<IDirect3DVertexBuffer8> vertexBuffer_;
    Quad fullQuad_;
    Quad partQuad_;
};

}  // namespace grub
