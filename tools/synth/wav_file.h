#pragma once

#include <cstdint>
#include <vector>

#include "samples.h"

namespace grub {

/// A mono WAV file of 16-bit samples behind the 44-byte header, the only layout that the game reads.
[[nodiscard]] std::vector<std::uint8_t> wavBytes(std::span<const double> sound, int rate);

}  // namespace grub
