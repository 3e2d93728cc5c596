#include "noise.h"

#include <cmath>

#include "rgb.h"

namespace grub {

namespace {

/// One grid: values at its corners, an S between them. The grid wraps after `cells`.
float latticeNoise(double gridX, double gridY, int cells, std::uint32_t seed) {
    const double floorX = std::floor(gridX);
    const double floorY = std::floor(gridY);
    const auto wrap = [cells](double v) {
        const int i = static_cast<int>(v) % cells;
        return static_cast<std::uint32_t>(i < 0 ? i + cells : i);
    };
    const std::uint32_t x0 = wrap(floorX);
    const std::uint32_t y0 = wrap(floorY);
    const std::uint32_t x1 = wrap(floorX + 1);
    const std::uint32_t y1 = wrap(floorY + 1);
    const float tx = smoothstep(0, 1, static_cast<float>(gridX - floorX));
    const float ty = smoothstep(0, 1, static_cast<float>(gridY - floorY));
    return mix(mix(randomShare(x0, y0, seed), randomShare(x1, y0, seed), tx),
               mix(randomShare(x0, y1, seed), randomShare(x1, y1, seed), tx), ty);
}

}  // namespace

std::uint32_t hashOf(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x9e3779b1U ^ (y * 0x85ebca77U + 0x165667b1U) ^ seed * 0xc2b2ae3dU;
    h = (h ^ (h >> 15)) * 0x2c1b3c6dU;
    h = (h ^ (h >> 12)) * 0x297a2d39U;
    return h ^ (h >> 15);
}

float randomShare(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    return static_cast<float>(hashOf(x, y, seed) >> 8) / 16777216.0F;
}

float tileableNoise(double x, double y, double period, int cells, std::uint32_t seed) {
    float sum = 0;
    float weight = 1;
    float total = 0;
    for (std::uint32_t octave = 0; octave < 3; ++octave) {
        const double scale = cells / period;
        sum += weight * latticeNoise(x * scale, y * scale, cells, seed + octave);
        total += weight;
        weight /= 2;
        cells *= 2;
    }
    return sum / total;
}

NoiseTile::NoiseTile(double period, int cells, std::uint32_t seed, int samples) : samples_(samples) {
    values_.reserve(static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples));
    for (int y = 0; y < samples; ++y) {
        for (int x = 0; x < samples; ++x) {
            const double step = period / samples;
            values_.push_back(tileableNoise((x + 0.5) * step, (y + 0.5) * step, period, cells, seed));
        }
    }
}

}  // namespace grub
