#pragma once

#include <memory>

#include "sound_buffer.h"

namespace grub {

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
