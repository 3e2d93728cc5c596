#pragma once

#include "face.h"
#include "figure.h"

namespace grub {

/// The lady's expression; `turn` moves the features to the right (0 = straight at the viewer).
struct LadyFace {
    Mood mood = Mood::Angry;
    double turn = 4;
    Point look{0.8, 0.2};
    /// The rolling pin between her teeth, for when she needs both hands.
    bool pinInMouth = false;
};

/// Dress with apron, from neck to hem. `swing` moves the hem to the right, `flare` widens and lifts it.
void drawLadyDress(Canvas& canvas, double turn, double swing, double flare = 0);
/// Head with bun, over the neck at (32, 26).
void drawLadyHead(Canvas& canvas, const LadyFace& face);
/// Dress and head from behind, with the bow of the apron and the rolling pin stuck in it.
void drawLadyBack(Canvas& canvas, double swing);

/// A leg below the hem with its shoe, from the side, and from the front or behind.
void drawLadyLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side);
void drawLadyLegFromFront(Canvas& canvas, Point hip, Point sole);

/// A sleeved arm with its hand. `bend` 1 or -1 chooses where the elbow goes. The bones are of `bone` pixels each, or
/// just long enough when it is 0.
void drawLadyArm(Canvas& canvas, Point shoulder, Point hand, double bend, Side side, double bone = 0);

/// Held at `grip`, the roll pointing along `angle` (0 right, positive downwards).
void drawRollingPin(Canvas& canvas, Point grip, double angle);

}  // namespace grub
