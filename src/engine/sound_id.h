#pragma once

#include <cstdint>

namespace grub {

/// The sound effects. The sound table of the package loads them by these numbers.
enum class SoundId : std::uint8_t {
    Break = 0,
    GetKey = 1,
    Rat = 2,
    WinLevel = 3,
    OpenDoor = 4,
    Water = 5,
    Caught = 6,  // a dog or a lady falls into a hole
    MenuMove = 7,
    MenuListDown = 8,
    MenuListUp = 9,
    CaughtRat = 10,
    Falling = 11,
    Landing = 12,
    Steps = 13,
    PipeSteps = 14,
    MenuClick = 15,
    LadderSteps = 16,
    Shield = 17,
    Anchor = 18,
    Lose = 19,
    Invisible = 20,
    Bomb = 21,
    GetBonus = 22,  // has a file, but the game never plays it
    Heart = 23,
    Skull = 24
};

/// Number of sound effects, which the sound bank loads from 0 on.
inline constexpr int kSoundCount = 25;

}  // namespace grub
