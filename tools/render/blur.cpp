#include "blur.h"

#include <array>
#include <cmath>
#include <vector>

namespace grub {

namespace {

/// Radii of three boxes whose variances add up to that of the Gaussian, as nearly as odd widths allow.
std::array<int, 3> boxRadii(double sigma) {
    const double wanted = 12 * sigma * sigma;
    int narrow = static_cast<int>(std::sqrt(wanted / 3 + 1));
    if (narrow % 2 == 0) --narrow;
    const double n = narrow;
    const auto narrowBoxes = std::lround((wanted - 3 * n * n - 12 * n - 9) / (-4 * n - 4));
    std::array<int, 3> radii{};
    for (int i = 0; i < 3; ++i) radii[static_cast<std::size_t>(i)] = (i < narrowBoxes ? narrow - 1 : narrow + 1) / 2;
    return radii;
}

void boxRows(FloatPlane& plane, int radius) {
    const int width = plane.width();
    const float weight = 1.0F / static_cast<float>(2 * radius + 1);
    const std::size_t reach = 2 * static_cast<std::size_t>(radius);
    std::vector<float> line(static_cast<std::size_t>(width) + reach);
    for (int y = 0; y < plane.height(); ++y) {
        float* row = plane.row(y);
        std::copy(row, row + width, line.begin() + radius);
        float sum = 0;
        for (std::size_t i = 0; i < reach; ++i) sum += line[i];
        for (int x = 0; x < width; ++x) {
            sum += line[static_cast<std::size_t>(x) + reach];
            row[x] = sum * weight;
            sum -= line[static_cast<std::size_t>(x)];
        }
    }
}

/// Works on whole rows at a time, so that memory is walked in order.
void boxColumns(FloatPlane& plane, int radius) {
    const int width = plane.width();
    const int height = plane.height();
    const float weight = 1.0F / static_cast<float>(2 * radius + 1);
    const FloatPlane source = plane;
    std::vector<float> sum(static_cast<std::size_t>(width));
    const auto add = [&](int y, float sign) {
        if (y < 0 || y >= height) return;
        const float* row = source.row(y);
        for (int x = 0; x < width; ++x) sum[static_cast<std::size_t>(x)] += sign * row[x];
    };
    for (int y = 0; y < radius; ++y) add(y, 1);
    for (int y = 0; y < height; ++y) {
        add(y + radius, 1);
        float* row = plane.row(y);
        for (int x = 0; x < width; ++x) row[x] = sum[static_cast<std::size_t>(x)] * weight;
        add(y - radius, -1);
    }
}

}  // namespace

FloatPlane blurred(FloatPlane plane, double sigma) {
    if (sigma < 0.5) return plane;
    for (const int radius : boxRadii(sigma)) {
        if (radius == 0) continue;
        boxRows(plane, radius);
        boxColumns(plane, radius);
    }
    return plane;
}

}  // namespace grub
