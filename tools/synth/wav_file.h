#pragma once

#include <cstdint>
#include <vector>

#include "samples.h"

namespace grub {

/// A mono WAV file of 16-bit samples behind the 44-byte header, the only layout that the game reads.
[[nodiscard]] std::vector<std::uint8_t> wavBytes(std::span<const double> sound, int rate);
/// The same with samples as they are; those of several channels stand in turn.
[[nodiscard]] std::vector<std::uint8_t> wavBytes(std::span<const std::int16_t> samples, int channels, int rate);

}  // namespace grub
