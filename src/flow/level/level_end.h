#pragma once

#include <array>

#include "enemy_traits.h"
#include "sound_id.h"

namespace grub {

/// How the player learns that an attempt is over: a sound, and a layout of the game interface.
struct LevelEnd {
    LossCause cause;
    SoundId sound;
    const char* layout;
    const char* item;  ///< of the layout, with the picture of the end
};

inline constexpr std::array kLevelEnds{
    LevelEnd{LossCause::Dog, SoundId::Lose, "loss_polkan", "screen"},
    LevelEnd{LossCause::Lady, SoundId::Lose, "loss_lady", "screen"},
    LevelEnd{LossCause::Rat, SoundId::Rat, "loss_rat", "screen"},
    LevelEnd{LossCause::Pit, SoundId::Lose, "loss_pit", "screen"},
    LevelEnd{LossCause::Won, SoundId::WinLevel, "win", "loss"},
};

/// How an attempt that the rules have ended is shown: for every cause but Quit and Load.
[[nodiscard]] constexpr const LevelEnd& levelEndOf(LossCause cause) {
    return kLevelEnds[static_cast<std::size_t>(cause)];
}
static_assert(levelEndOf(LossCause::Won).cause == LossCause::Won, "the rows stand in the order of their causes");

}  // namespace grub
