#pragma once

#include "samples.h"
#include "sound_layer.h"

namespace grub {

/// One sounding of a layer with all its hits, from the first attack to where nothing is left of it (-80 dB).
/// `pitch` multiplies every frequency; `length` in seconds lets it go, 0 leaves that to the layer.
[[nodiscard]] Samples renderLayer(const SoundLayer& layer, int rate, double pitch, double length, std::uint32_t seed);

}  // namespace grub
