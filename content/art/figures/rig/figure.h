#pragma once

#include "pose.h"
#include "vector_path.h"

namespace grub {

// What Grub and his enemies have in common: where they stand and hang in their cell, and how their limbs move.

/// Limbs on the side of the viewer are brighter than those beyond the body.
enum class Side { Near, Far };

/// Pixels a whole cycle of a strip of eight frames covers, for Grub and for enemies alike.
inline constexpr double kCycle = 64;

/// The row on which soles rest in a cell of 64 rows; the line below it ends at row 61.
inline constexpr double kGround = 60.6;

/// The row of a pipe's axis in its cell.
inline constexpr double kPipeAxis = 10;

/// The coordinates of a body that stands upright, in those of the cell: moved, turned and squashed about its hips as
/// the pose says.
Affine bodyPlace(const Pose& pose, Point hips);

/// Where the middle joint of a limb of two bones lies. `side` 1 or -1 chooses the way it bends; out of reach it is
/// stretched.
Point jointOf(Point root, Point tip, double upper, double lower, double side);

/// A foot, hand or paw relative to the middle of its stride.
struct Step {
    double x;
    /// 0 on the ground, up to 1 in the middle of its swing.
    double lift;
    /// Share of the swing that is over; 0 while it touches the ground.
    double swing;
};

/// Stride of a cycle of `length` pixels at `phase` (0..1): the foot touches the ground for the first `duty` of the
/// cycle and goes back evenly, as fast as the ground passes; then it swings forward and meets the ground at the
/// ground's own speed.
Step stride(double phase, double length, double duty);

/// How a foot rolls while it is in the air.
struct FootRoll {
    /// Toe and heel lie this far from the middle of the sole; turning it must not press either into the ground.
    double toe;
    double heel;
    /// Radians the heel goes up after the foot leaves the ground, and the toe before it comes down.
    double heelUp;
    double toeUp;
    /// Pixels the foot is lifted in the middle of its swing.
    double lift;
};

/// The middle of a sole, and its turn in radians (toe up is negative).
struct PlacedFoot {
    Point sole;
    double angle;
};
PlacedFoot placedFoot(const Step& step, double middle, const FootRoll& roll);

/// Row of a hand or foot that holds on to what passes downwards as the figure climbs: from row `top` it goes down for
/// the share `duty` of a cycle of `length` pixels, then up again.
double heldRow(double phase, double length, double duty, double top);

/// Width of the line round a whole enemy, added to the lines of its parts.
inline constexpr double kEnemyOutline = 0.5;

}  // namespace grub
