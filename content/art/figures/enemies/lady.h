#pragma once

#include "figure_drawing.h"

namespace grub {

// The lady: plum dress, apron, bun, rolling pin. She is drawn facing right.

/// All of her, in the order in which her parts lie.
void drawLady(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style);

/// Her head alone, about (32, 15).
void drawLadyHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style);

// Her poses. `phase` is the share of a cycle, 0 up to 1.

/// Towards the right, the rolling pin at the ready.
Pose ladyWalk(double phase);
/// Up or down a ladder, seen from behind.
Pose ladyClimb(double phase);
/// Hand over hand along a pipe to the right, the rolling pin in the bow of her apron.
Pose ladyHang(double phase);
/// Front, a fist on her hip.
Pose ladyStand();
/// Front, under a skirt full of air.
Pose ladyFall(double phase);
/// Sunk down at the bottom of a hole.
Pose ladyTrapped();
/// Frame `index` of 0 to 7: hands against both walls, one over the other, until she stands on the floor.
Pose ladyEscape(int index);

/// With all the poses that pages call by their names.
const FigureDrawing& ladyFigure();

}  // namespace grub
