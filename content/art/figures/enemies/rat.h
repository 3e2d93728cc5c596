#pragma once

#include "figure.h"
#include "figure_drawing.h"

namespace grub {

// The rat: a grey pebble with pink ears, paws and tail, 56 x 25 pixels, in the lower half of its cell. As the dog's,
// its head keeps its own level where the body leans. A head turned by less than 1.5 pixels looks at the viewer. A
// closed forepaw (Grip::Fist) is one to run on, an open one shows its fingers.

/// Draws the rat in its cell; its forelegs are the arms of the pose.
void drawRat(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style);
void drawRatHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style);

/// The rat with all of its named poses.
const FigureDrawing& ratFigure();

/// Running. `phase`: share of a cycle, which covers kCycle pixels.
Pose ratRun(double phase);

/// From the side, on all fours.
Pose ratStand();
/// On its haunches, seen from the front, for dizzy eyes.
Pose ratSit();

/// In the air: the middle of the body in the cell, its turn in radians (nose up is negative), and its size.
Pose ratFlight(Point middle, double turn, double size);

}  // namespace grub
