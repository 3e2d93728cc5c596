#pragma once

#include <cstdint>

#include "animation_frames.h"
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

/// Things that stay in their cell and loop their animation. The numbers are those of the item pictures.
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

    /// One frame of its animation. A loop of n pictures takes n times the frames of a picture and one more: its index
    /// then stands behind the last picture.
    void stepAnimation();
    /// What drawing finds out: whether the loop has come to its end. Once a frame after the step, drawn or not.
    void finishFrame(const AnimationFrameCounts& counts);

    /// The picture now; for one frame of a loop the index is the strip's count.
    [[nodiscard]] AnimationFrame picture() const { return picture_; }
    [[nodiscard]] ItemKind itemKind() const { return kind_; }
    /// Set by the last `finishFrame`.
    [[nodiscard]] bool animationDone() const { return animationDone_; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const AnimatedItem&, const AnimatedItem&) = default;

private:
    ItemKind kind_;
    AnimationFrame picture_;
    int frameDelay_ = 0;
    int frameDelayReload_;  // frames each picture stays, less one
    bool playing_ = false;
    bool animationDone_ = false;
};

}  // namespace grub
