#pragma once

#include "enemy_parts.h"

namespace grub {

/// How the rat's body is bent; it faces right, its belly just above the ground.
struct RatPose {
    Mood mood = Mood::Angry;
    /// Tip of the tail, from its root at the back.
    Point tail{-9, -13};
    /// How far the ear is laid back, 0 to 1.
    double earBack = 0;
};

/// Body, tail, ears and head from the side.
void drawRatSide(Canvas& canvas, const RatPose& pose);

/// A short leg with a pink paw; `sole` is the middle of the paw's underside.
void drawRatLeg(Canvas& canvas, Point hip, Point sole, Side side);

/// Sitting up on its haunches at the bottom of a hole, dizzy.
void drawRatSitting(Canvas& canvas);

}  // namespace grub
