#pragma once

#include "canvas.h"
#include "expression.h"

namespace grub {

// What the faces of all figures are made of. `nose` is 1 when the nose lies to the right of an eye, -1 when to the
// left: lids and brows of the two eyes mirror each other.

/// The eyes of one figure. Sizes are shares of the eye's radius.
struct EyeStyle {
    Material ball = kEnamel;
    Material lid = kEnamel;
    Rgb pupil = rgb(0x3a2030);
    /// Half width and half height of the ball, and of the pupil.
    Point shape{0.92, 1.12};
    Point pupilShape{0.56, 0.66};
    /// How far a look of length 1 moves the pupil.
    double reach = 0.36;
    /// How far a brow presses the lid down, for each radian that it is lowered: 1 shuts the eye.
    double glower = 0;
    /// How steeply the lid's edge follows a turned brow: 1 is parallel to it.
    double slant = 0.9;
    /// Whether lashes show under a shut lid.
    bool lashes = false;
};

/// An eye. Wide eyes are larger with a smaller pupil; a shut one is an arc under its lid; a lowered or raised brow
/// slants the lid.
void drawEye(Canvas& canvas, Point at, double radius, double nose, const Expression& expression, const EyeStyle& style);

/// How brows are drawn. Lengths in pixels.
struct BrowStyle {
    Rgb colour = rgb(0x5a2632);
    /// From its middle to each end.
    double half = 3;
    /// At its inner end; the outer one is pointed.
    double thickness = 1.8;
    /// How far its middle rises above its ends.
    double arch = 0.9;
};

/// A brow whose middle is at `at` while the expression neither raises nor turns it.
void drawBrow(Canvas& canvas, Point at, double nose, const Expression& expression, const BrowStyle& style);

/// Three stars on their way round a head; `turn` is a share of a full turn.
void drawDizzyStars(Canvas& canvas, Point centre, double rx, double ry, double turn);

}  // namespace grub
