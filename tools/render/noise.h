#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace grub {

/// A number that looks random and depends on its arguments only.
std::uint32_t hashOf(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// The same as a share: 0 up to, not including, 1.
float randomShare(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// Smooth noise around 0.5 that repeats every `period` pixels in both directions: a grid of `cells` by `cells` random
/// values over the period, and two finer grids at half and quarter weight.
float tileableNoise(double x, double y, double period, int cells, std::uint32_t seed);

/// Tileable noise looked up instead of computed: its values in the middle of each of `samples` by `samples` squares
/// that divide a period.
class NoiseTile {
public:
    /// See `tileableNoise`.
    NoiseTile(double period, int cells, std::uint32_t seed, int samples);

    /// Any square, counted from the origin; the tile repeats.
    float at(int x, int y) const {
        return values_[static_cast<std::size_t>(wrapped(y)) * static_cast<std::size_t>(samples_) +
                       static_cast<std::size_t>(wrapped(x))];
    }

private:
    int wrapped(int i) const { return (i % samples_ + samples_) % samples_; }

    int samples_;
    std::vector<float> values_;
};

}  // namespace grub
