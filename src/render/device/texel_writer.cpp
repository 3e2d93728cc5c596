#include "texel_writer.h"

#include <cstring>

namespace grub {
namespace {

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

// `opacity` tells the alpha of source pixel number i with these three bytes.
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

// The whole surface is drawn, so what lies right of and below the picture has to be transparent.
void clearRest(const LockedSurface& surface, std::size_t pictureRowBytes, std::size_t pictureRows) {
    const auto pitch = static_cast<std::size_t>(surface.pitch);
    std::uint8_t* row = surface.bits;
    for (std::size_t y = 0; y < surface.height; ++y, row += pitch) {
        const std::size_t kept = y < pictureRows ? pictureRowBytes : 0;
        std::memset(row + kept, 0, pitch - kept);
    }
}

}  // namespace

bool isQuarterTurn(TextureTransform transform) {
    return transform == TextureTransform::Rotate90 || transform == TextureTransform::Rotate270;
}

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

void writeTexels(const SourcePicture& picture, TextureTransform transform, const LockedSurface& surface) {
    const bool wide = surface.format == D3DFMT_A8R8G8B8;
    wide ? writeFormat<A8R8G8B8>(picture, transform, surface) : writeFormat<A4R4G4B4>(picture, transform, surface);
    const std::size_t columns = isQuarterTurn(transform) ? picture.height : picture.width;
    const std::size_t rows = isQuarterTurn(transform) ? picture.width : picture.height;
    clearRest(surface, columns * (wide ? 4 : 2), rows);
}

}  // namespace grub
