#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "dsound/sound_mixer.h"

namespace platform {

class CardStream;

/// The one card of the process: a mixer, and where its sums go. It is open as long as an owner holds it.
class SoundCard {
public:
    /// With a stream the card plays in real time; with null, mixSound() asks for its sums.
    SoundCard(DWORD rate, std::unique_ptr<CardStream> stream);
    ~SoundCard();
    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    [[nodiscard]] SoundMixer& mixer() { return mixer_; }
    /// Whether only mixSound() asks for the sums.
    [[nodiscard]] bool byHand() const { return stream_ == nullptr; }

private:
    SoundMixer mixer_;
    std::unique_ptr<CardStream> stream_;
};

/// The open card, else the one that setSoundOutput() chose; null without a card. Any thread.
[[nodiscard]] std::shared_ptr<SoundCard> openSoundCard();
/// The card if it is open, else null.
[[nodiscard]] std::shared_ptr<SoundCard> presentSoundCard();

/// Sets an event of SetNotificationPositions; a test can count it.
void setPositionEvent(HANDLE event);

/// Where the samples go that the mixer makes.
enum class SoundOutput : std::uint8_t {
    Card,    // the system's sound device, in real time
    ByHand,  // nowhere by itself: mixSound() asks for what the speakers would get next
    None,    // no card: DirectSoundCreate8 fails with DSERR_NODRIVER
};

/// The rate and the channels of what mixSound() gives.
inline constexpr int kHandMixedRate = 44'100;
inline constexpr int kHandMixedChannels = 2;

/// Chooses for the next DirectSoundCreate8 that finds the card closed; at first it is Card.
void setSoundOutput(SoundOutput output);

/// What the speakers would get next, left and right in turn; silence while no card is open by hand. Position events are
/// set as the cursors pass them. After each event the call waits until the thread that it woke waits again or has
/// ended, or until all threads wait, so that an event without a taker does not hold it up. One thread at a time.
void mixSound(std::span<std::int16_t> stereo44100);

}  // namespace platform
