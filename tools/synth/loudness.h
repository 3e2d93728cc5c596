#pragma once

#include "samples.h"

namespace grub {

/// The loudest 400 ms of a sound after ITU-R BS.1770, in LUFS: what is heard weighs more than what is deep. A shorter
/// sound counts as if silence followed. `channels` have the same length.
[[nodiscard]] double loudestMoment(std::span<const Samples> channels, int rate);

/// How loud a whole track is after ITU-R BS.1770, in LUFS: moments far below the rest do not count. Below -100
/// for what is shorter than 400 ms.
[[nodiscard]] double integratedLoudness(std::span<const Samples> channels, int rate);

/// The largest amplitude of the curve that goes through the samples; between them it can be higher than any of them.
[[nodiscard]] double truePeak(std::span<const double> sound);

}  // namespace grub
