#pragma once

#include <cstdint>

namespace grub {

/// The sound effects by the numbers under which they are loaded.
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
    GetBonus = 22,  // has its file; nobody asks for it
    Heart = 23,
    Skull = 24
};

/// How many sound effects there are.
inline constexpr int kSoundCount = 25;

}  // namespace grub
