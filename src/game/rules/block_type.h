#pragma once

#include <cstdint>

namespace grub {

/// How a cell behaves; the values are those of the block table.
enum class BlockType : std::uint8_t {
    Empty = 0,         // enterable, carries nobody
    Floor = 1,         // carries, can be dug
    Ladder = 2,        // enterable, climbable, carries who stands on it or in it
    Pipe = 3,          // enterable, who is in it hangs
    Inert = 4,         // neither enterable nor a support
    Solid = 5,         // carries, cannot be dug
    HiddenLadder = 6,  // empty until the last key is taken, then a ladder
    InertToo = 7,      // as Inert
    Exit = 8,          // empty; the last key opens it
    SpawnPoint = 9     // empty; enemies come back here
};

/// The type for a number of the block table. Every number without a meaning of its own behaves as Inert.
[[nodiscard]] constexpr BlockType blockTypeOf(std::int32_t number) {
    return number >= 0 && number <= 9 ? static_cast<BlockType>(number) : BlockType::Inert;
}

/// A broken floor's way back to a floor; the values go to traces.
enum class BreakState : std::uint8_t { Broken = 0, Regrowing = 1, Waiting = 2, Intact = 3 };

}  // namespace grub
