#pragma once

#include <cstdint>

#include "actor.h"
#include "animation_frame.h"
#include "animation_frame_counts.h"

namespace grub {

class StateHash;

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
