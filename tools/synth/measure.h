#pragma once

#include <string>

#include "samples.h"
#include "sound_file.h"

namespace grub {

/// The loudest 400 ms of a sound after ITU-R BS.1770, in LUFS: what is heard weighs more than what is deep. A shorter
/// sound counts as if silence followed. `channels` have the same length.
[[nodiscard]] double loudestMoment(std::span<const Samples> channels, int rate);

/// How loud a whole track is after ITU-R BS.1770, in LUFS: moments far below the rest do not count. Below -100
/// for what is shorter than 400 ms.
[[nodiscard]] double integratedLoudness(std::span<const Samples> channels, int rate);

/// The largest amplitude of the curve that goes through the samples; between them it can be higher than any of them.
[[nodiscard]] double truePeak(std::span<const double> sound);

/// Figures that tell how a sound is heard.
struct SoundMeasures {
    double duration = 0;    ///< seconds
    double peak = 0;        ///< dB of full scale, between the samples too
    double loudest = 0;     ///< loudest 400 ms, LUFS
    double integrated = 0;  ///< LUFS, of the whole
    double centroid = 0;    ///< Hz
    double heard = 0;       ///< share of the energy from 300 to 5000 Hz, which small speakers give
    double offset = 0;      ///< mean sample
};

/// Measures a sound; several channels count together.
[[nodiscard]] SoundMeasures measureSound(const SoundRecording& sound);

/// One line of words and numbers.
[[nodiscard]] std::string measureLine(const SoundMeasures& measures);

}  // namespace grub
