#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "layer_reader.h"
#include "samples.h"
#include "sound_layer.h"

namespace grub {

/// A sound effect, as its source describes it (docs/formats/sound-sources.md).
struct SoundSource {
    double length = 0;  ///< seconds, to the last sample
    double rate = kMusicRate;
    double loudness = 0;  ///< loudest 400 ms, LUFS
    double room = 0;      ///< amplitude of the room beside the dry sound; 0 is outdoors
    double roomDecay = 0.045;
    double drive = 0;  ///< how far a soft limit is overdriven; 0 leaves the limit out
    std::vector<SoundLayer> layers;
};

/// Reads a source. At the first wrong line it fills `error` and returns nothing.
[[nodiscard]] std::optional<SoundSource> readSoundSource(std::string_view text, TextError& error);

/// The finished sound: mono, at the source's rate, without DC, as loud as its source says. When its
/// peak would be above -1.5 dB of full scale, it fills `error` and returns nothing.
[[nodiscard]] std::optional<Samples> renderSound(const SoundSource& source, TextError& error);

}  // namespace grub
