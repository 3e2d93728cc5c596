#pragma once

#include <utility>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// Whether a pixel counts as part of a figure.
inline bool isVisible(const Pixel& p) { return p.a > 127; }

/// Lowest and highest row with something visible; -1 and the height of the picture if there is nothing.
inline int lowestRow(const PixelImage& image) {
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            if (isVisible(image.at(x, y))) return y;
        }
    }
    return -1;
}
inline int highestRow(const PixelImage& image) {
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            if (isVisible(image.at(x, y))) return y;
        }
    }
    return image.height;
}

/// Mean column and row of what lies in the rows [from, to), weighed by alpha.
inline std::pair<double, double> middleOf(const PixelImage& image, int from = 0, int to = 64) {
    double weight = 0;
    double across = 0;
    double down = 0;
    for (int y = from; y < to; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const double alpha = image.at(x, y).a;
            weight += alpha;
            across += alpha * (x + 0.5);
            down += alpha * (y + 0.5);
        }
    }
    return {across / weight, down / weight};
}
inline double middleColumn(const PixelImage& image, int from, int to) { return middleOf(image, from, to).first; }

/// The stretches of visible pixels of a row, from the first column up to, not including, the second.
inline std::vector<std::pair<int, int>> runsIn(const PixelImage& image, int row) {
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < image.width; ++x) {
        if (!isVisible(image.at(x, row))) continue;
        if (runs.empty() || runs.back().second != x) runs.emplace_back(x, x);
        runs.back().second = x + 1;
    }
    return runs;
}

}  // namespace grub
