#pragma once

#include <cstdint>
#include <vector>

#include "recorded_game.h"
#include "sound_bank.h"
#include "world.h"

namespace grub {

/// A sound device without a card: it is mixed by hand, as fast as the processor can. Installed among the engine's
/// services as long as it lives; one at a time.
class HandMixedDevice {
public:
    HandMixedDevice();
    HandMixedDevice(const HandMixedDevice&) = delete;
    HandMixedDevice& operator=(const HandMixedDevice&) = delete;
    ~HandMixedDevice();

    /// False when the device could not be opened.
    [[nodiscard]] bool isReady() const;
};

/// What the speakers would get from a game: left and right in turn, 44,100 of each a second, with the music of a level.
/// Game frame n begins at sample n * kSamplesPerFrame; after the end everything that plays has kTailFrames to end.
/// Plays from `bank`, which is loaded here. `world` has been settled. The same samples on every run.
[[nodiscard]] std::vector<std::int16_t> captureSound(const RecordedGame& game, World& world, SoundBank& bank);

/// Samples of each side in a game frame of 40 ms.
inline constexpr int kSamplesPerFrame = 44'100 / 25;
/// Game frames that are captured after the last one: 2 s.
inline constexpr int kTailFrames = 50;

}  // namespace grub
