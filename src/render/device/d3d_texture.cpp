#include "d3d_texture.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "texel_writer.h"

namespace grub {

D3DTexture::D3DTexture(IDirect3DDevice8& device, std::uint16_t width, std::uint16_t height, D3DFORMAT format,
                       bool square)
    : width_(width),
      height_(height),
      device_(addReference(device)),
      backingWidth_(std::bit_ceil(std::uint32_t{width})),
      backingHeight_(std::bit_ceil(std::uint32_t{height})),
      format_(format) {
    if (square) backingWidth_ = backingHeight_ = std::max(backingWidth_, backingHeight_);
    createSurface();
}

D3DTexture::D3DTexture(const D3DTexture& other)
    : Texture(other),
      PoolAllocated(other),
      width_(other.width_),
      height_(other.height_),
      device_(addReference(*other.device_)),
      backingWidth_(other.backingWidth_),
      backingHeight_(other.backingHeight_),
      format_(other.format_),
      colourKey_(other.colourKey_) {
    if (!other.isValid()) return;
    createSurface();
    if (isValid() && !copySurfaceFrom(other)) texture_.reset();
}

void D3DTexture::createSurface() {
    IDirect3DTexture8* texture = nullptr;
    if (SUCCEEDED(device_->CreateTexture(backingWidth_, backingHeight_, 1, 0, format_, D3DPOOL_MANAGED, &texture))) {
        texture_.reset(texture);
    }
}

D3DTexture* D3DTexture::clone() const { return new D3DTexture(*this); }

bool D3DTexture::copySurfaceFrom(const D3DTexture& other) {
    D3DLOCKED_RECT target;
    if (FAILED(texture_->LockRect(0, &target, nullptr, 0))) return false;
    D3DLOCKED_RECT source;
    const bool locked = SUCCEEDED(other.texture_->LockRect(0, &source, nullptr, D3DLOCK_NO_DIRTY_UPDATE));
    if (locked) {
        std::memcpy(target.pBits, source.pBits, std::size_t{height_} * static_cast<std::size_t>(source.Pitch));
        other.texture_->UnlockRect(0);
    }
    texture_->UnlockRect(0);
    return locked;
}

bool D3DTexture::upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) {
    if (!isValid() || rgb == nullptr || !isKnown(transform)) return false;
    // The surface was chosen for the picture as it stands: a turned one may not fit.
    const bool turned = isQuarterTurn(transform);
    if (turned && backingWidth_ != backingHeight_) return false;

    D3DLOCKED_RECT locked;
    if (FAILED(texture_->LockRect(0, &locked, nullptr, 0))) return false;
    writeTexels({rgb, alpha, colourKey_, width_, height_}, transform,
                {static_cast<std::uint8_t*>(locked.pBits), locked.Pitch, backingWidth_, backingHeight_, format_});
    if (turned) std::swap(width_, height_);
    return SUCCEEDED(texture_->UnlockRect(0));
}

}  // namespace grub
