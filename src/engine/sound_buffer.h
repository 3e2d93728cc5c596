#pragma once

#include <cstdint>
#include <memory>

namespace grub {

class SoundDecoder;

/// One playable sound of the audio device, which may outlive it. One thread at a time; destroying it silences it.
class SoundBuffer {
public:
    virtual ~SoundBuffer() = default;
    /// Another playable copy of the same sound, with a decoder of its own.
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> clone() const = 0;
    /// Becomes the sound of the decoder, which it keeps and which each play rewinds; an earlier sound ends. False when
    /// the device refuses the format: the sound then stays silent.
    virtual bool create(std::unique_ptr<SoundDecoder> decoder) = 0;
    /// Balance in per cent: 0 left, 50 centre, 100 right; what lies beyond counts as the end. False when there is no
    /// sound.
    virtual bool setPan(std::int32_t percent) = 0;
    /// Loudness in per cent, a decibel each: 100 full, 99 a decibel less, 0 silence; what lies beyond counts as the
    /// end. False when there is no sound.
    virtual bool setVolume(std::int32_t percent) = 0;
};

}  // namespace grub
