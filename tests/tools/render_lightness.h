#pragma once

#include <cmath>
#include <cstdint>

#include "pixel_image.h"

namespace grub {

/// Light that a pixel gives off, 0 to 1.
inline double luminance(const Pixel& p) {
    const auto linear = [](std::uint8_t v) {
        const double c = v / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(p.r) + 0.7152 * linear(p.g) + 0.0722 * linear(p.b);
}

/// CIE lightness, 0 to 100.
inline double lightness(const Pixel& p) {
    const double y = luminance(p);
    return y > 0.008856 ? 116 * std::cbrt(y) - 16 : 903.3 * y;
}

}  // namespace grub
