#pragma once

#include <cstdint>
#include <vector>

#include "samples.h"

namespace grub {

/// An Ogg Vorbis file of quality 4; the same samples give the same bytes. Empty when the encoder refuses the rate or
/// the number of channels.
[[nodiscard]] std::vector<std::uint8_t> vorbisBytes(const std::vector<Samples>& channels, int rate);

}  // namespace grub
