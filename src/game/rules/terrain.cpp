#include "terrain.h"

#include <cstddef>

#include "rules.h"

namespace grub {

namespace {

void startAnimation(MapCell& cell, std::int16_t sprite, std::int8_t delay) {
    cell.sprite = sprite;
    cell.animationDone = false;
    cell.frame = 0;
    cell.frameDelay = delay;
    cell.frameDelayReload = delay;
}

void updateFloor(MapCell& cell) {
    switch (cell.breakState) {
        case BreakState::Broken:
            if (cell.animationDone) cell.breakState = BreakState::Waiting;
            break;
        case BreakState::Waiting:
            if (cell.timer < 1) {
                cell.breakState = BreakState::Regrowing;
                startAnimation(cell, cell.rostSprite, kRegrowFrameDelay);
            }
            break;
        case BreakState::Regrowing:
            if (cell.animationDone) {
                cell.breakState = BreakState::Intact;
                cell.sprite = cell.baseSprite;
                cell.type = BlockType::Floor;
            }
            break;
        case BreakState::Intact: break;
    }
}

// A cell whose frame lies behind the end of its strip (a regrown floor is back on its strip of one frame) goes back one
// strip frame each game frame. An animation without a strip is over at once, so that a floor without strips grows back.
void animate(MapCell& cell, int frameCount) {
    if (frameCount == 0) {
        cell.frame = 0;
        cell.animationDone = true;
        return;
    }
    --cell.frameDelay;
    if (cell.frameDelay < 0) {
        ++cell.frame;
        cell.frameDelay = cell.frameDelayReload;
    }
    if (cell.frame >= frameCount) --cell.frame;
    cell.animationDone = cell.frame == frameCount - 1 && cell.frameDelay == 0;
}

void updateCell(MapCell& cell, bool noKeysLeft, const AnimationFrameCounts& counts) {
    if (cell.timer > 0) --cell.timer;
    if (cell.baseType == BlockType::Floor) updateFloor(cell);
    if (cell.baseType == BlockType::HiddenLadder && noKeysLeft) {
        cell.type = BlockType::Ladder;
        cell.sprite = cell.rostSprite;
    }
    if (cell.baseType != BlockType::Exit || noKeysLeft) animate(cell, counts.of(cell.sprite));
}

}  // namespace

void breakFloor(LevelMap& map, int x, int y) {
    MapCell& cell = map.cellAt(x, y);
    cell.breakState = BreakState::Broken;
    cell.timer = kHoleFrames;
    cell.type = BlockType::Empty;
    cell.holeOccupied = false;
    startAnimation(cell, cell.fireSprite, kBreakFrameDelay);
    map.wake(x, y);
}

void updateCells(LevelMap& map, const AnimationFrameCounts& counts) {
    const bool noKeysLeft = map.keysRemaining() == 0;
    const std::size_t count = map.cellCount();
    for (std::size_t number = map.nextAwake(0); number < count; number = map.nextAwake(number + 1)) {
        MapCell& cell = map.cellNumber(number);
        const MapCell before = cell;
        updateCell(cell, noKeysLeft, counts);
        if (cell == before) map.sleep(number);
        if (cell.type != before.type && cell.baseType == BlockType::HiddenLadder) map.routesChanged();
    }
}

}  // namespace grub
