#pragma once

#include <string>

#include "sound_recording.h"

namespace grub {

/// What stands for hearing it.
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
