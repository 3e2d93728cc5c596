#pragma once

#include "canvas.h"
#include "pose.h"

namespace grub {

/// On which side of the forearm the thumb is, looking from the elbow to the hand.
enum class Thumb { Left, Right };

/// A hand of three fingers and a thumb. `along` is where the forearm points, in radians; `size` is the radius of the
/// fist, in pixels.
void drawHand(Canvas& canvas, Point at, double along, Thumb thumb, Grip grip, double size, const Material& skin);

/// Where the thumb of an arm is as the view shows it: forwards and up from the side, inwards from the others.
Thumb thumbOf(FigureView view, bool nearArm);

}  // namespace grub
