#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "mask.h"
#include "material.h"

namespace grub {

/// Spreads the bits of a number evenly, so that neighbouring numbers give results that have nothing in common.
constexpr std::uint32_t stirred(std::uint32_t bits) {
    bits = (bits ^ (bits >> 15)) * 0x2c1b3c6dU;
    bits = (bits ^ (bits >> 12)) * 0x297a2d39U;
    return bits ^ (bits >> 15);
}

/// A share that looks random and depends on its arguments only: 0 up to, not including, 1.
float randomShare(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// Smooth noise around 0.5 that repeats every `period` pixels in both directions: a grid of `cells` by `cells` random
/// values over the period, and two finer grids at half and quarter weight. Looked up instead of computed: its values
/// in the middle of each of `samples` by `samples` squares that divide a period.
class NoiseTile {
public:
    NoiseTile(double period, int cells, std::uint32_t seed, int samples);

    /// Any square, counted from the origin; the tile repeats.
    float at(int x, int y) const {
        return values_[static_cast<std::size_t>(wrapped(y)) * static_cast<std::size_t>(samples_) +
                       static_cast<std::size_t>(wrapped(x))];
    }

    /// Between the middles of four squares, evenly.
    float between(double x, double y) const {
        const double left = std::floor(x);
        const double top = std::floor(y);
        const auto tx = static_cast<float>(x - left);
        const auto ty = static_cast<float>(y - top);
        const int ix = static_cast<int>(left);
        const int iy = static_cast<int>(top);
        return mix(mix(at(ix, iy), at(ix + 1, iy), tx), mix(at(ix, iy + 1), at(ix + 1, iy + 1), tx), ty);
    }

private:
    int wrapped(int i) const { return (i % samples_ + samples_) % samples_; }

    int samples_;
    std::vector<float> values_;
};

/// Direction of a surface or a light; x right, y down, z towards the eye.
struct Normal {
    float x = 0;
    float y = 0;
    float z = 1;
};

/// Heights, in samples, of a shape blown up like a balloon: round from its edge inwards over `bevel` samples, flat
/// beyond, smoothed so that the middle shows no creases. 0 outside the shape.
FloatPlane puffyHeights(const FloatPlane& coverage, double bevel);

/// Direction of the surface at a sample.
Normal normalAt(const FloatPlane& heights, int x, int y);

/// Colour of the material there: two-tone key light from above and in front, highlight, warm rims on both sides, warm
/// bounce from below. Left and right are lit almost alike, since the game shows mirrored frames beside the others.
Rgb shade(const Material& material, const Normal& normal);

}  // namespace grub
