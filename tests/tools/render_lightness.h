#pragma once

#include <cmath>
#include <cstdint>
#include <numeric>
#include <vector>

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

/// Mean and standard deviation.
struct Spread {
    double mean = 0;
    double deviation = 0;
};

/// Lightness of the pixels of rows [from, to) that are more than half opaque.
inline Spread lightnessOf(const PixelImage& image, int from = 0, int to = 64) {
    std::vector<double> values;
    for (int y = from; y < to; ++y) {
        for (int x = 0; x < image.width; ++x) {
            if (image.at(x, y).a > 127) values.push_back(lightness(image.at(x, y)));
        }
    }
    const double count = static_cast<double>(values.size());
    const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    double squares = 0;
    for (const double v : values) squares += (v - mean) * (v - mean);
    return {mean, std::sqrt(squares / count)};
}

}  // namespace grub
