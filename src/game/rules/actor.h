#pragma once

#include "level_map.h"
#include "rules.h"

namespace grub {

class StateHash;

/// Somebody on the map: a position in pixels of his top left corner, and a velocity. Decisions are taken on cells;
/// between them an actor only moves.
struct Actor {
    int previousX = 0;
    int previousY = 0;
    int x = 0;
    int y = 0;
    int vx = 0;  // pixels a frame
    int vy = 0;

    /// Puts him exactly on a cell.
    void setCell(int cx, int cy) {
        x = cx * kCellSize;
        y = cy * kCellSize;
    }
    /// Column of the cell that holds his top left corner.
    [[nodiscard]] int cellX() const { return x / kCellSize; }
    [[nodiscard]] int cellY() const { return y / kCellSize; }
    /// The cell that holds his top left corner; null outside the map.
    [[nodiscard]] const MapCell* cellUnder(const LevelMap& map) const;
    /// Exactly on a cell.
    [[nodiscard]] bool isAligned() const { return x % kCellSize == 0 && y % kCellSize == 0; }
    /// Exactly half-way between two cells.
    [[nodiscard]] bool isHalfAligned() const { return !isAligned() && x % kHalfCell == 0 && y % kHalfCell == 0; }
    /// One frame of movement; a move that would leave the map is undone.
    void move(const LevelMap& map);
    /// Back to where the last move began, at rest.
    void undoMove();
    [[nodiscard]] bool isOutsideMap(const LevelMap& map) const { return !map.contains(cellX(), cellY()); }

    /// Adds position and velocity.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Actor&, const Actor&) = default;

protected:
    [[nodiscard]] bool isBeyondPixels(const LevelMap& map) const;
};

}  // namespace grub
