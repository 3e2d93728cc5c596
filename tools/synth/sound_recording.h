#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "samples.h"

namespace grub {

/// A finished sound; all channels have the same length.
struct SoundRecording {
    int rate = 0;
    std::vector<Samples> channels;
};

/// Decodes a WAV or Ogg Vorbis file with the game's own decoders; nothing when the game would be silent.
[[nodiscard]] std::optional<SoundRecording> decodeSound(std::span<const std::uint8_t> file);

}  // namespace grub
