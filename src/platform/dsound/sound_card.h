#pragma once

#include <memory>

#include "card_stream.h"
#include "sound_mixer.h"

namespace platform {

/// The one card of the process: a mixer, and where its sums go. It is open as long as somebody holds it.
class SoundCard {
public:
    /// With a stream the card plays in real time, without one mixSound() asks for its sums.
    SoundCard(DWORD rate, std::unique_ptr<CardStream> stream);
    ~SoundCard();
    SoundCard(const SoundCard&) = delete;
    SoundCard& operator=(const SoundCard&) = delete;

    /// What it plays, and whether nobody but mixSound() asks for it.
    [[nodiscard]] SoundMixer& mixer() { return mixer_; }
    [[nodiscard]] bool byHand() const { return stream_ == nullptr; }

private:
    SoundMixer mixer_;
    std::unique_ptr<CardStream> stream_;
};

/// The open card, else the one that setSoundOutput() chose; null when there is none. Any thread.
[[nodiscard]] std::shared_ptr<SoundCard> openSoundCard();
/// The card if it is open, else null.
[[nodiscard]] std::shared_ptr<SoundCard> presentSoundCard();

/// Sets a position event.
void setPositionEvent(HANDLE event);

}  // namespace platform
