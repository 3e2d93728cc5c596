#pragma once

#include <cstdint>

#include "animation_frames.h"
#include "level_map.h"
#include "rules.h"

namespace grub {

class StateHash;

/// A position in pixels, that of the top left corner, and a velocity. Actors decide exactly on a cell; between cells
/// they only move.
struct Actor {
    int previousX = 0;
    int previousY = 0;
    int x = 0;
    int y = 0;
    int vx = 0;  // pixels a frame
    int vy = 0;

    /// Puts the actor exactly on a cell.
    void setCell(int cx, int cy) {
        x = cx * kCellSize;
        y = cy * kCellSize;
    }
    /// Column and row of the cell that holds the top left corner.
    [[nodiscard]] int cellX() const { return x / kCellSize; }
    [[nodiscard]] int cellY() const { return y / kCellSize; }
    /// The cell that holds the top left corner; null outside the map.
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

/// Things that stay in their cell and loop their animation. The numbers go into hashes.
enum class ItemKind : std::uint8_t {
    Heart = 0,
    Invisibility = 1,
    Anchor = 2,
    Shield = 3,
    Bomb = 4,
    Skull = 5,
    TorchLeft = 7,
    TorchRight = 8,
    Drops = 9
};

/// The common base of bonuses and decorations: a place and an animation that loops.
class AnimatedItem : public Actor {
public:
    /// On a cell, about to start its animation.
    AnimatedItem(int cx, int cy, ItemKind kind);

    /// One game frame of its animation. At the end of a loop the index stands behind the last strip frame for one game
    /// frame.
    void stepAnimation();
    /// Finds out whether the loop has come to its end. Once a game frame after the step, drawn or not.
    void finishFrame(const AnimationFrameCounts& counts);

    /// The strip frame to draw; once in a loop its index is the strip's count.
    [[nodiscard]] AnimationFrame stripFrame() const { return stripFrame_; }
    [[nodiscard]] ItemKind itemKind() const { return kind_; }
    /// Set by the last `finishFrame`.
    [[nodiscard]] bool animationDone() const { return animationDone_; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const AnimatedItem&, const AnimatedItem&) = default;

private:
    ItemKind kind_;
    AnimationFrame stripFrame_;
    int frameDelay_ = 0;
    int frameDelayReload_;  // game frames for which each strip frame stays, less one
    bool playing_ = false;
    bool animationDone_ = false;
};

}  // namespace grub
