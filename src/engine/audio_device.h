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

/// Makes sounds and plays them. `init` and `shutdown` come from the window's thread, playing and stopping from the game
/// thread; a loader may create sounds meanwhile.
class AudioDevice {
public:
    virtual ~AudioDevice() = default;
    /// Opens the sound output. False after a message box that names what failed; the game then goes on without sound.
    virtual bool init() = 0;
    /// Ends everything that streams and lets go of the output, which closes with the last sound. Always true.
    virtual bool shutdown() = 0;
    /// Whether the output is open.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// An empty sound, for an effect or for music.
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> createSound() = 0;
    [[nodiscard]] virtual std::unique_ptr<SoundBuffer> createMusic() = 0;
    /// Plays from the start, once or round and round; a sound that is playing just goes on (true). False when the sound
    /// is empty or too many long ones play.
    virtual bool play(SoundBuffer& sound, bool loop) = 0;
    virtual bool playLooped(SoundBuffer& sound) = 0;
    /// Silences one sound, if it plays. False when it is empty.
    virtual bool stop(SoundBuffer& sound) = 0;
    virtual bool stopMusic(SoundBuffer& sound) = 0;
};

}  // namespace grub
