#pragma once

#include <cstdint>

#include "block_type.h"

namespace grub {

/// Column and row of a cell, from 0 at the left and at the top.
struct CellPosition {
    int x = 0;
    int y = 0;

    friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

/// The picture id that draws nothing.
inline constexpr std::int16_t kNoSprite = -1;

/// One cell of the map. Sprites are animation ids. The sprite and the background are drawn from 0 on: picture 0 is a
/// wall like others. A layer is drawn above 0 only, since 0 means that the cell has no such layer.
struct MapCell {
    std::int16_t sprite = 0;                // drawn now, at `frame`
    std::int16_t baseSprite = 0;            // the cell's normal picture
    std::int16_t fireSprite = kNoSprite;    // a floor that breaks
    std::int16_t rostSprite = kNoSprite;    // a floor that grows back, a ladder that appears, an exit that opens
    std::int16_t fonSprite = kNoSprite;     // behind the cell
    std::int16_t layer2Sprite = 0;          // drawn third
    std::int16_t layer3Sprite = 0;          // drawn first
    std::int16_t layer4Sprite = 0;          // drawn second
    std::int16_t layer5Sprite = 0;          // in front of actors
    std::int16_t frame = 0;                 // of `sprite`
    std::int16_t timer = 0;                 // frames until a broken floor starts to grow back
    std::uint16_t code = 0;                 // what the level file placed here (object_code.h)
    std::int8_t frameDelay = 0;             // frames until the next picture
    std::int8_t frameDelayReload = 0;       // where that count starts again
    BlockType type = BlockType::Empty;      // as it is now
    BlockType baseType = BlockType::Empty;  // as it was built; routes are planned with it
    BreakState breakState = BreakState::Intact;
    std::uint8_t keyKind = 0;  // which of the two key pictures
    bool keyPresent = false;
    bool holeOccupied = false;   // an enemy sticks in this hole: it carries and cannot be entered
    bool animationDone = false;  // the last update found the last picture with no delay left
    bool isExit = false;
    bool isSpawnPoint = false;

    friend bool operator==(const MapCell&, const MapCell&) = default;
};

}  // namespace grub
