#include "d3d_texture.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace grub {
namespace {

// A decoded picture: 3 bytes R, G, B a pixel, rows top-down, and the source of its opacity.
struct SourcePicture {
    const std::uint8_t* rgb;
    const std::uint8_t* alpha;        // one byte a pixel, or null: then the key decides
    std::optional<Colour> colourKey;  // without alpha this colour is transparent; without both all is opaque
    std::uint16_t width;
    std::uint16_t height;
};

// A locked surface of `width` x `height` texels.
struct LockedSurface {
    std::uint8_t* bits;
    int pitch;
    std::uint32_t width;
    std::uint32_t height;
    D3DFORMAT format;  // A8R8G8B8 or A4R4G4B4 (the upper four bits of every channel)
};

// Where source pixel (x, y) goes, counted in texels of a surface with `rowTexels` a row: start + x * perX + y * perY.
struct Walk {
    std::ptrdiff_t start;
    std::ptrdiff_t perX;
    std::ptrdiff_t perY;
};

Walk walkOf(TextureTransform transform, std::ptrdiff_t width, std::ptrdiff_t height, std::ptrdiff_t rowTexels) {
    switch (transform) {
        case TextureTransform::Identity: break;
        case TextureTransform::Rotate90: return {height - 1, rowTexels, -1};
        case TextureTransform::Rotate180: return {(height - 1) * rowTexels + width - 1, -1, -rowTexels};
        case TextureTransform::Rotate270: return {(width - 1) * rowTexels, -rowTexels, 1};
        case TextureTransform::FlipVertical: return {(height - 1) * rowTexels, 1, -rowTexels};
        case TextureTransform::FlipHorizontal: return {width - 1, -1, rowTexels};
    }
    return {0, 1, rowTexels};
}

struct A8R8G8B8 {
    using Texel = std::uint32_t;
    static Texel pack(const std::uint8_t* rgb, std::uint32_t alpha) {
        return alpha << 24 | std::uint32_t{rgb[0]} << 16 | std::uint32_t{rgb[1]} << 8 | rgb[2];
    }
};

struct A4R4G4B4 {
    using Texel = std::uint16_t;
    static Texel pack(const std::uint8_t* rgb, std::uint32_t alpha) {
        return static_cast<Texel>((alpha & 0xF0) << 8 | (rgb[0] & 0xF0) << 4 | (rgb[1] & 0xF0) | rgb[2] >> 4);
    }
};

// `opacity` gives the alpha of source pixel number i, whose three bytes are `rgb`.
template <class Format, class Opacity>
void writePixels(const SourcePicture& picture, const Walk& walk, std::uint8_t* bits, Opacity opacity) {
    auto* const texels = reinterpret_cast<typename Format::Texel*>(bits);
    const std::uint8_t* rgb = picture.rgb;
    std::size_t number = 0;
    for (std::ptrdiff_t y = 0; y < picture.height; ++y) {
        typename Format::Texel* texel = texels + walk.start + y * walk.perY;
        for (std::ptrdiff_t x = 0; x < picture.width; ++x, ++number, rgb += 3) {
            texel[x * walk.perX] = Format::pack(rgb, opacity(number, rgb));
        }
    }
}

template <class Format>
void writeFormat(const SourcePicture& picture, TextureTransform transform, const LockedSurface& surface) {
    const auto rowTexels = static_cast<std::ptrdiff_t>(surface.pitch) / std::ptrdiff_t{sizeof(typename Format::Texel)};
    const Walk walk = walkOf(transform, picture.width, picture.height, rowTexels);
    if (picture.alpha != nullptr) {
        const auto fromPlane = [alpha = picture.alpha](std::size_t i, const std::uint8_t*) { return alpha[i]; };
        writePixels<Format>(picture, walk, surface.bits, fromPlane);
    } else if (picture.colourKey) {
        const auto fromKey = [key = *picture.colourKey](std::size_t, const std::uint8_t* rgb) {
            return Colour{rgb[0], rgb[1], rgb[2]} == key ? 0U : 255U;
        };
        writePixels<Format>(picture, walk, surface.bits, fromKey);
    } else {
        writePixels<Format>(picture, walk, surface.bits, [](std::size_t, const std::uint8_t*) { return 255U; });
    }
}

// The renderer draws the whole surface, so the texels right of and below the picture must be transparent.
void clearRest(const LockedSurface& surface, std::size_t pictureRowBytes, std::size_t pictureRows) {
    const auto pitch = static_cast<std::size_t>(surface.pitch);
    std::uint8_t* row = surface.bits;
    for (std::size_t y = 0; y < surface.height; ++y, row += pitch) {
        const std::size_t kept = y < pictureRows ? pictureRowBytes : 0;
        std::memset(row + kept, 0, pitch - kept);
    }
}

bool isQuarterTurn(TextureTransform transform) {
    return transform == TextureTransform::Rotate90 || transform == TextureTransform::Rotate270;
}

// Game data may hold any number.
bool isKnown(TextureTransform transform) {
    switch (transform) {
        case TextureTransform::Identity:
        case TextureTransform::Rotate90:
        case TextureTransform::Rotate180:
        case TextureTransform::Rotate270:
        case TextureTransform::FlipVertical:
        case TextureTransform::FlipHorizontal: return true;
    }
    return false;
}

// Writes the picture, transformed, into the top-left corner of the surface, which is large enough. All other texels
// become transparent black.
void writeTexels(const SourcePicture& picture, TextureTransform transform, const LockedSurface& surface) {
    const bool wide = surface.format == D3DFMT_A8R8G8B8;
    wide ? writeFormat<A8R8G8B8>(picture, transform, surface) : writeFormat<A4R4G4B4>(picture, transform, surface);
    const std::size_t columns = isQuarterTurn(transform) ? picture.height : picture.width;
    const std::size_t rows = isQuarterTurn(transform) ? picture.width : picture.height;
    clearRest(surface, columns * (wide ? 4 : 2), rows);
}

}  // namespace

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
    // The surface fits the picture before the turn; only a square one is sure to fit the turned picture too.
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
