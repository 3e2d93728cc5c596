#pragma once

#include "figure.h"

namespace grub {

/// Grit shows clenched teeth, for hard work.
enum class Mouth { Smile, Open, Grit };

/// Grub's expression. He is drawn facing right; `turn` moves the features that way (0 = straight at the viewer).
struct Face {
    Point look{0.7, 0.1};
    /// How far the lids are shut, 0 to 1.
    double lid = 0;
    Mouth mouth = Mouth::Smile;
    double turn = 3;
    /// Height of the brows over the eyes, upwards in pixels.
    double brow = 0;
};

/// Body with head, helmet and face, standing in the middle of the cell on hips at y 46. `helmetLag` moves the helmet
/// down.
void drawHeroBody(Canvas& canvas, const Face& face, double helmetLag = 0);
/// The same from behind.
void drawHeroBack(Canvas& canvas, double helmetLag = 0);

/// Leg with boot; `sole` is the middle of the sole, `angle` turns the boot (toe up is negative).
void drawHeroLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side);

/// A leg seen from behind.
void drawHeroLegFromBehind(Canvas& canvas, Point hip, Point sole);

/// Arm in a short sleeve with a hand. `bend` 1 or -1 chooses where the elbow goes. The bones are of `bone` pixels each,
/// or just long enough when it is 0.
void drawHeroArm(Canvas& canvas, Point shoulder, Point hand, double bend, Side side, double bone = 0);
void drawHeroHand(Canvas& canvas, Point at, Side side);

/// The spoon he digs with: the lower hand holds it at `grip`, the bowl points along `angle` (0 right, positive
/// downwards).
void drawSpoon(Canvas& canvas, Point grip, double angle);

}  // namespace grub
