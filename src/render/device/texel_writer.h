#pragma once

#include <cstdint>
#include <optional>

#include <d3d8.h>

#include "colour.h"
#include "texture.h"

namespace grub {

/// A decoded picture: 3 bytes R, G, B a pixel, rows top-down; where its opacity comes from.
struct SourcePicture {
    const std::uint8_t* rgb;
    const std::uint8_t* alpha;        ///< a byte a pixel, or null: the key decides
    std::optional<Colour> colourKey;  ///< transparent if there is no alpha; without both all is opaque
    std::uint16_t width;
    std::uint16_t height;
};

/// A locked surface of `width` x `height` texels.
struct LockedSurface {
    std::uint8_t* bits;
    int pitch;
    std::uint32_t width;
    std::uint32_t height;
    D3DFORMAT format;  ///< A8R8G8B8 or A4R4G4B4 (the upper four bits of every channel)
};

/// Whether width and height change places.
[[nodiscard]] bool isQuarterTurn(TextureTransform transform);
/// Whether it is one of the six that exist: game data may hold any number.
[[nodiscard]] bool isKnown(TextureTransform transform);

/// Writes the picture, transformed, into the top-left corner of the surface, which is large enough; all other texels
/// become transparent black.
void writeTexels(const SourcePicture& picture, TextureTransform transform, const LockedSurface& surface);

}  // namespace grub
