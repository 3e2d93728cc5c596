#pragma once

#include <cstdint>

namespace grub {

/// A number that looks random and depends on its arguments only.
std::uint32_t hashOf(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// The same as a share: 0 up to, not including, 1.
float randomShare(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// Smooth noise around 0.5 that repeats every `period` pixels in both directions: a grid of `cells` by `cells` random
/// values over the period, and two finer grids at half and quarter weight.
float tileableNoise(double x, double y, double period, int cells, std::uint32_t seed);

}  // namespace grub
