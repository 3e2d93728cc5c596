#pragma once

#include <cstdint>
#include <optional>

#include <d3d8.h>

#include "block_pool.h"
#include "renderer.h"
#include "system_objects.h"

namespace grub {

/// The texture of `D3DRenderer`: a picture in the top-left corner of a power-of-two surface, transparent elsewhere.
/// Any thread may create, fill and destroy it, one at a time.
class D3DTexture final : public Texture, public PoolAllocated<D3DTexture> {
public:
    /// Keeps the device alive. `format` is A8R8G8B8 or A4R4G4B4; `square`: the device allows square surfaces only. When
    /// the device refuses the surface, the texture is not valid.
    D3DTexture(IDirect3DDevice8& device, std::uint16_t width, std::uint16_t height, D3DFORMAT format, bool square);

    [[nodiscard]] D3DTexture* clone() const override;
    [[nodiscard]] bool isValid() const override { return texture_ != nullptr; }
    bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) override;
    void setColourKey(Colour key) override { colourKey_ = key; }
    [[nodiscard]] std::uint16_t width() const override { return width_; }
    [[nodiscard]] std::uint16_t height() const override { return height_; }

    /// The surface, null when the texture is not valid, and its real size in texels.
    [[nodiscard]] IDirect3DTexture8* surface() const { return texture_.get(); }
    [[nodiscard]] std::uint32_t backingWidth() const { return backingWidth_; }
    [[nodiscard]] std::uint32_t backingHeight() const { return backingHeight_; }

private:
    D3DTexture(const D3DTexture& other);

    void createSurface();
    bool copySurfaceFrom(const D3DTexture& other);

    std::uint16_t width_;
    std::uint16_t height_;
    ComPtr<IDirect3DDevice8> device_;
    ComPtr<IDirect3DTexture8> texture_;
    std::uint32_t backingWidth_;
    std::uint32_t backingHeight_;
    D3DFORMAT format_;
    std::optional<Colour> colourKey_;
};

}  // namespace grub
