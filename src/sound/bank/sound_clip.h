#pragma once

#include <memory>

#include "audio_device.h"
#include "block_pool.h"
#include "shared_buffer.h"

namespace grub {

/// A sound file in memory and, once it is loaded, the playable sound that the device made of it.
class AudioClip {
public:
    AudioClip() = default;
    /// A copy shares the file's bytes and has a sound of its own, if the other has one.
    AudioClip(const AudioClip& other);
    AudioClip& operator=(const AudioClip& other);

    /// Takes the bytes of a WAV or Ogg Vorbis file. A sound that was made of others stays until `load`.
    void setData(SharedBuffer file) { file_ = std::move(file); }
    /// Null before `load`, and for a file that nobody can read; owned by the clip.
    [[nodiscard]] SoundBuffer* sound() const { return sound_.get(); }
    /// Destroys the sound, which falls silent; the file stays.
    void unload() { sound_.reset(); }

protected:
    ~AudioClip() = default;

    /// Makes the sound in the way of one kind. False when the file is no sound, or without a device that takes it.
    bool loadWith(std::unique_ptr<SoundBuffer> (AudioDevice::*make)());

private:
    std::unique_ptr<SoundBuffer> sound_;
    SharedBuffer file_;
};

/// The clip of an effect.
class SoundClip final : public AudioClip, public PoolAllocated<SoundClip> {
public:
    /// Makes the sound, in place of an earlier one. False when the file is no sound, or without a device that takes it.
    bool load() { return loadWith(&AudioDevice::createSound); }
};

/// The clip of a music track.
class MusicClip final : public AudioClip, public PoolAllocated<MusicClip> {
public:
    /// As for an effect.
    bool load() { return loadWith(&AudioDevice::createMusic); }
};

}  // namespace grub
