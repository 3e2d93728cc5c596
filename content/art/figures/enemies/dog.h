#pragma once

#include "figure.h"
#include "figure_drawing.h"

namespace grub {

// The dog: a lilac bulldog with a spiked collar, 58 x 47 pixels. Where the body leans, the head keeps its own level, as
// that of an animal on four legs does: HeadPose::tilt is its turn against the horizon. From the front, a body whose
// hips are lowered sits: its hind legs lie before it.

/// Draws the dog in its cell; his forelegs are the arms of the pose.
void drawDog(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style);
/// Head and collar.
void drawDogHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style);

/// The dog with all of his named poses.
const FigureDrawing& dogFigure();

// ---- poses that move. `phase`: share of a cycle, which covers kCycle pixels.

/// A trot.
Pose dogWalk(double phase);
/// On a ladder, seen from behind.
Pose dogClimb(double phase);
/// Under a pipe, belly up.
Pose dogHang(double phase);
/// One floor's fall, seen from the front, and the fall into a hole, paws up.
Pose dogFall(double phase);
Pose dogPlunge(double phase);
/// Paw over paw up both walls of a hole; `out` is how far he stands on the floor again, 0 to 1.
Pose dogEscape(double phase, double out);

// ---- poses at rest

/// From the side, on all fours.
Pose dogStand();
/// On guard, seen from the front, chest out.
Pose dogGuard();
/// At the bottom of a hole, seen from the front, for dizzy eyes.
Pose dogTrapped();

}  // namespace grub
