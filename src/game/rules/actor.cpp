#include "actor.h"

#include "state_hash.h"

namespace grub {

const MapCell* Actor::cellUnder(const LevelMap& map) const {
    return isOutsideMap(map) ? nullptr : &map.cellAt(cellX(), cellY());
}

bool Actor::isBeyondPixels(const LevelMap& map) const {
    return x > (map.width() - 1) * kCellSize || y > (map.height() - 1) * kCellSize || x < 0 || y < 0;
}

void Actor::move(const LevelMap& map) {
    previousX = x;
    previousY = y;
    x += vx;
    y += vy;
    if (isBeyondPixels(map)) undoMove();
}

void Actor::undoMove() {
    x = previousX;
    y = previousY;
    vx = 0;
    vy = 0;
}

void Actor::addTo(StateHash& hash) const { hash.add(previousX, previousY, x, y, vx, vy); }

}  // namespace grub
