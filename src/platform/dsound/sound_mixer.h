#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "dsound/sound_voice.h"

namespace platform {

/// A lock that lets the mixing thread in first: it waits for one holder at most. An ordinary lock may go to the same
/// other thread again and again while the speakers run dry.
class MixerLock {
public:
    /// For all threads but the mixing one, by std::lock_guard.
    void lock() {
        mixing_.wait(true);
        mutex_.lock();
    }
    void unlock() { mutex_.unlock(); }
    /// For the mixing thread, of which there is one at a time; `unlock` as usual.
    void lockFirst() {
        mixing_ = true;
        mutex_.lock();
        mixing_ = false;
        mixing_.notify_all();
    }

private:
    std::mutex mutex_;
    std::atomic<bool> mixing_{false};  // the mixing thread wants the lock
};

/// Keeps sums within -1 to 1 by turning loud passages down: at once where they begin, and slowly up again behind them.
/// Sound that stays within the range is not touched.
class SoftLimiter {
public:
    /// `rate` in frames a second.
    explicit SoftLimiter(DWORD rate);
    /// Both sides get the same gain, so that nothing moves sideways.
    void apply(std::span<float> left, std::span<float> right);

private:
    float kept_;         // what one frame leaves of it
    float missing_ = 0;  // to full gain
};

/// Sums all voices of a card. One lock guards the mixer, its voices and their memories; callers hold it for a few words
/// or for the copy of a locked range, the card's callback for one block.
class SoundMixer {
public:
    /// `rate` of the card in frames a second.
    explicit SoundMixer(DWORD rate);

    [[nodiscard]] DWORD rate() const { return rate_; }
    /// A holder of the lock must not wait.
    [[nodiscard]] MixerLock& lock() { return lock_; }

    /// The filter from this rate to the card's, null when they are equal; made once for each rate. Takes the lock.
    [[nodiscard]] std::shared_ptr<const ResamplingFilter> filterFrom(DWORD rate);
    /// A voice is mixed from its addition to its removal; it belongs to the caller. Both take the lock.
    void add(SoundVoice& voice);
    void remove(SoundVoice& voice);
    /// In the order of their addition. Under the lock.
    [[nodiscard]] std::span<SoundVoice* const> voices() const { return voices_; }

    /// The next samples for the speakers, left and right in turn, from -1 to 1. Allocates nothing; takes the lock for
    /// one block at a time. One thread at a time. Returns whether `takeRaised` has events.
    bool mix(std::span<float> stereo);
    /// The events whose places cursors have passed since the last call. Takes the lock.
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
