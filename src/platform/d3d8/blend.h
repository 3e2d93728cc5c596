#pragma once

#include <cstdint>

namespace platform {

/// Alpha byte of 0xAARRGGBB.
constexpr std::uint32_t alphaOf(std::uint32_t texel) { return texel >> 24; }

/// value / 255 rounded to nearest, for products of two bytes.
constexpr std::uint32_t dividedBy255(std::uint32_t value) { return (value + 128 + ((value + 128) >> 8)) >> 8; }

/// Every channel of 0xAARRGGBB times factor / 255.
constexpr std::uint32_t scaled(std::uint32_t texel, std::uint32_t factor) {
    const auto channel = [=](int shift) { return dividedBy255((texel >> shift & 0xFF) * factor) << shift; };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

/// The colours multiplied by the texel's own alpha.
constexpr std::uint32_t premultiplied(std::uint32_t texel) {
    const std::uint32_t alpha = alphaOf(texel);
    return alpha == 255 ? texel : alpha << 24 | (scaled(texel, alpha) & 0xFFFFFF);
}

/// A premultiplied texel laid over an opaque pixel. The sum of two roundings stays within a byte.
constexpr std::uint32_t laidOver(std::uint32_t texel, std::uint32_t pixel) {
    return texel + scaled(pixel, 255 - alphaOf(texel));
}

}  // namespace platform
