#pragma once

#include <cstdint>
#include <span>

/// Where sound goes. The game does not see this: it opens DirectSound, and the program's start has chosen before.
namespace platform {

/// Where the samples go that the mixer makes.
enum class SoundOutput : std::uint8_t {
    Card,    // the system's sound device, in real time
    ByHand,  // nowhere by itself: mixSound() asks for what the speakers would get next
    None,    // as on a machine without a sound card: DirectSoundCreate8 fails with DSERR_NODRIVER
};

/// The rate and the channels of what mixSound() gives.
inline constexpr int kHandMixedRate = 44'100;
inline constexpr int kHandMixedChannels = 2;

/// Chooses for the next DirectSoundCreate8 that finds the card closed; at first it is Card.
void setSoundOutput(SoundOutput output);

/// What the speakers would get next, left and right in turn; silence while no card is open by hand. Position events are
/// set as the cursors pass them. After each one the call waits until it has been answered: the thread that it woke
/// waits again or has ended. An event that nobody is going to take is left behind. Only one thread mixes at a time.
void mixSound(std::span<std::int16_t> stereo44100);

}  // namespace platform
