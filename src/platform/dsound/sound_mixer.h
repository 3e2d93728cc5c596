#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "mixer_lock.h"
#include "soft_limiter.h"
#include "sound_voice.h"

namespace platform {

/// Sums all voices of a card. One lock guards the mixer, its voices and their memories; callers hold it for a few words
/// or for the copy of a locked range, the card's callback for one block.
class SoundMixer {
public:
    /// `rate` of the card in frames a second.
    explicit SoundMixer(DWORD rate);

    /// The card's rate, and the lock; whoever holds it must not wait.
    [[nodiscard]] DWORD rate() const { return rate_; }
    [[nodiscard]] MixerLock& lock() { return lock_; }

    /// The filter from this rate to the card's, null when they are equal; made once for each rate. Takes the lock.
    [[nodiscard]] std::shared_ptr<const ResamplingFilter> filterFrom(DWORD rate);
    /// A voice is mixed from its addition to its removal; it belongs to the caller. Both take the lock.
    void add(SoundVoice& voice);
    void remove(SoundVoice& voice);
    /// In the order of their addition. Under the lock.
    [[nodiscard]] std::span<SoundVoice* const> voices() const { return voices_; }

    /// The next samples for the speakers, left and right in turn, from -1 to 1. Allocates nothing; takes the lock for
    /// one block at a time. One thread at a time. Whether events wait to be taken.
    bool mix(std::span<float> stereo);
    /// The events that were passed since the last call. Takes the lock.
    [[nodiscard]] RaisedEvents takeRaised();

private:
    static constexpr std::size_t kBlockFrames = 256;

    void mixBlock(std::span<float> stereo);

    const DWORD rate_;
    MixerLock lock_;
    std::vector<SoundVoice*> voices_;
    std::map<DWORD, std::shared_ptr<const ResamplingFilter>> filters_;
    SoftLimiter limiter_;
    MixScratch scratch_;
    RaisedEvents raised_;
};

}  // namespace platform
