#pragma once

#include <cstdint>

namespace grub {

/// How a cell behaves; the values are those of the block table.
enum class BlockType : std::uint8_t {
    Empty = 0,         // enterable, no support
    Floor = 1,         // support, can be dug
    Ladder = 2,        // enterable, climbable, support for the cell itself and for the one above
    Pipe = 3,          // enterable, an actor in it hangs
    Inert = 4,         // neither enterable nor a support
    Solid = 5,         // support, cannot be dug
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

/// What a level file places in a cell; enemy_traits.h says more of the enemies. Other codes are kept with the cell and
/// place nothing.
namespace object_code {

/// The codes. A key hangs or lies; a lamp is drawn in front of its cell.
inline constexpr std::uint16_t kHero = 8;
inline constexpr std::uint16_t kDog = 9;
inline constexpr std::uint16_t kRat = 10;
inline constexpr std::uint16_t kHangingKey = 20;
inline constexpr std::uint16_t kLongLamp = 21;
inline constexpr std::uint16_t kShortLamp = 22;
inline constexpr std::uint16_t kLady = 24;
inline constexpr std::uint16_t kKey = 25;
inline constexpr std::uint16_t kHeart = 27;
inline constexpr std::uint16_t kDrops = 28;
inline constexpr std::uint16_t kTorchLeft = 29;
inline constexpr std::uint16_t kTorchRight = 30;

/// Whether the code puts a key into the cell.
[[nodiscard]] constexpr bool isKey(std::uint16_t code) { return code == kHangingKey || code == kKey; }

}  // namespace object_code

/// Column and row of a cell, from 0 at the left and at the top.
struct CellPosition {
    int x = 0;
    int y = 0;

    friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

/// The animation id that draws nothing.
inline constexpr std::int16_t kNoSprite = -1;

/// One cell of the map. Sprites are animation ids. `sprite` and `fonSprite` are drawn from id 0 on, which is a wall
/// like others. A layer is drawn from id 1 on, since 0 means that the cell has no such layer.
struct MapCell {
    std::int16_t sprite = 0;                // drawn now, at `frame`
    std::int16_t baseSprite = 0;            // what the cell normally shows
    std::int16_t fireSprite = kNoSprite;    // a floor that breaks
    std::int16_t rostSprite = kNoSprite;    // a floor that grows back, a ladder that appears, an exit that opens
    std::int16_t fonSprite = kNoSprite;     // behind the cell
    std::int16_t layer2Sprite = 0;          // drawn third
    std::int16_t layer3Sprite = 0;          // drawn first
    std::int16_t layer4Sprite = 0;          // drawn second
    std::int16_t layer5Sprite = 0;          // in front of actors
    std::int16_t frame = 0;                 // of `sprite`
    std::int16_t timer = 0;                 // game frames until a broken floor starts to grow back
    std::uint16_t code = 0;                 // what the level file placed here (object_code)
    std::int8_t frameDelay = 0;             // game frames until the next strip frame
    std::int8_t frameDelayReload = 0;       // where that count starts again
    BlockType type = BlockType::Empty;      // as it is now
    BlockType baseType = BlockType::Empty;  // as it was built; routes are planned with it
    BreakState breakState = BreakState::Intact;
    std::uint8_t keyKind = 0;  // 0 hangs, 1 lies
    bool keyPresent = false;
    bool holeOccupied = false;   // an enemy sticks in this hole: it carries and cannot be entered
    bool animationDone = false;  // the last update found the last strip frame with no delay left
    bool isExit = false;
    bool isSpawnPoint = false;

    friend bool operator==(const MapCell&, const MapCell&) = default;
};

}  // namespace grub
