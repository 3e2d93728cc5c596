#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// Sum over red, green and blue.
inline double difference(const Pixel& a, const Pixel& b) {
    return std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
}

/// Sum over all pixels and their four values.
inline double difference(const PixelImage& a, const PixelImage& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        sum += difference(a.pixels[i], b.pixels[i]) + std::abs(a.pixels[i].a - b.pixels[i].a);
    return sum;
}

/// Mean difference of the pixels that `a` covers fully.
inline double differenceWhereOpaque(const PixelImage& a, const PixelImage& b) {
    double sum = 0;
    double count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        if (a.pixels[i].a != 255) continue;
        sum += difference(a.pixels[i], b.pixels[i]);
        ++count;
    }
    return sum / count;
}

/// The step from the last picture back to the first, as a multiple of the largest step inside the loop.
inline double jumpAtTheEnd(const std::vector<PixelImage>& frames) {
    double largest = 0;
    for (std::size_t i = 0; i + 1 < frames.size(); ++i)
        largest = std::max(largest, difference(frames[i], frames[i + 1]));
    return difference(frames.back(), frames.front()) / largest;
}

/// Pixels on the edge of a picture that are more than half opaque.
inline int opaqueOnBorder(const PixelImage& image) {
    int count = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const bool border = x == 0 || y == 0 || x == image.width - 1 || y == image.height - 1;
            if (border && image.at(x, y).a > 127) ++count;
        }
    }
    return count;
}

}  // namespace grub
