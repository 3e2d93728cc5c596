#pragma once

#include <cstdint>
#include <memory>

namespace grub {

class SoundDecoder;

/// One playable sound of the audio device. Game thread.
class SoundBuffer {
public:
    virtual ~SoundBuffer() = default;
    /// Another playable copy of the same sound, with a decoder of its own.
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> clone() const = 0;
    /// Fills the buffer from the decoder, which it keeps. False when the device refused.
    virtual bool create(std::unique_ptr<SoundDecoder> decoder) = 0;
    /// Balance from -100 (left) to 100 (right), in percent. False without a buffer.
    virtual bool setPan(std::int32_t percent) = 0;
    /// Loudness from 0 to 100, in percent. False without a buffer.
    virtual bool setVolume(std::int32_t percent) = 0;
};

}  // namespace grub
