#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "samples.h"

namespace grub {

/// A mono WAV file of 16-bit samples behind the 44-byte header, the only layout that the game reads.
[[nodiscard]] std::vector<std::uint8_t> wavBytes(std::span<const double> sound, int rate);
/// The same with samples as they are; those of several channels stand in turn.
[[nodiscard]] std::vector<std::uint8_t> wavBytes(std::span<const std::int16_t> samples, int channels, int rate);

/// An Ogg Vorbis file of quality 4; the same samples give the same bytes. Empty when the encoder refuses the rate or
/// the number of channels.
[[nodiscard]] std::vector<std::uint8_t> vorbisBytes(const std::vector<Samples>& channels, int rate);

/// A finished sound; all channels have the same length.
struct SoundRecording {
    int rate = 0;
    std::vector<Samples> channels;
};

/// Decodes a WAV or Ogg Vorbis file with the game's own decoders; empty when the game could not play it.
[[nodiscard]] std::optional<SoundRecording> decodeSound(std::span<const std::uint8_t> file);

}  // namespace grub
