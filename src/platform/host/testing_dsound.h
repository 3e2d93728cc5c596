#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <dsound.h>

#include "sound_function.h"

namespace platform::testing {

/// What a sound buffer does at one moment. Sizes and positions in bytes, volume and pan in hundredths of a decibel.
struct VoiceState {
    DWORD bytes;
    DWORD position;
    LONG volume;
    LONG pan;
    bool playing;
    bool looping;
    bool lost;
};

/// The sound buffers of the open card in the order of their creation; empty when no card is open.
[[nodiscard]] std::vector<VoiceState> voices();
/// What a sound buffer holds now.
[[nodiscard]] std::vector<BYTE> heldSamples(IDirectSoundBuffer& buffer);

/// Watches the DirectSound layer and makes it misbehave, from construction to destruction; at most one exists at a
/// time. Destroy it when no other thread is inside the layer. Its functions may be called from any thread.
class SoundControls {
public:
    SoundControls();
    ~SoundControls();
    SoundControls(const SoundControls&) = delete;
    SoundControls& operator=(const SoundControls&) = delete;

    /// The function succeeds `successes` more times; from then on it fails with `result` and does nothing. DS_OK lets
    /// it work again.
    void fail(SoundFunction function, HRESULT result, int successes = 0);
    /// The memory of all present buffers is lost: silent, and refused by Lock and Play until Restore. Cursors go on.
    void loseBuffers();

    /// How often a function was called since construction, and how many position events were set.
    [[nodiscard]] std::size_t count(SoundFunction function) const;
    [[nodiscard]] std::size_t notifications() const;

private:
    class Watch;
    std::unique_ptr<Watch> watch_;
};

}  // namespace platform::testing
