#pragma once

#include "face.h"
#include "figure.h"

namespace grub {

/// The dog's expression; `turn` moves the features to the right (0 = straight at the viewer).
struct DogFace {
    Mood mood = Mood::Angry;
    double turn = 4;
    Point look{0.6, 0.1};
    /// How far the ears fly up, in pixels.
    double ears = 0;
    bool tongue = false;
};

/// Head with collar, its middle at `at`, tilted by `angle`.
void drawDogHead(Canvas& canvas, Point at, double angle, const DogFace& face);

/// The body from its right side, standing; shoulder and hip at x 43 and 18, on row 44.
void drawDogSide(Canvas& canvas, double tail);
/// The chest from the front, and the back with tail and the head beyond it.
void drawDogChest(Canvas& canvas);
void drawDogBack(Canvas& canvas, double tail);

/// A leg from the side; `sole` is the middle of the paw's underside. `bend` 1 or -1 chooses where the joint goes.
void drawDogLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side, double bend);
/// A leg from the front or from behind, the paw round.
void drawDogForeleg(Canvas& canvas, Point shoulder, Point paw, double bend, Side side);

}  // namespace grub
