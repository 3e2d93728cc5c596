#pragma once

#include "figure_drawing.h"

namespace grub {

// Grub, the prisoner: a pear in a striped shirt under a miner's helmet. He is drawn facing right.

/// Draws him in his cell; see FigureDrawing.
void drawGrub(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style = {});
/// Draws his head alone, where it is when he stands.
void drawGrubHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style = {});

// His movements. `phase` is a share of the cycle, 0 up to 1; a cycle covers 64 pixels of way.

/// The near foot meets the ground at phase 0, the far one half a cycle later.
Pose grubWalk(double phase);
/// Seen from behind, on rungs that lie every 16 pixels from row 8 on.
Pose grubClimb(double phase);
/// Hand over hand along a pipe whose axis is row 10. As large as his cell allows; larger, his boots must be drawn up.
inline constexpr double kGrubHangSize = 0.86;
Pose grubHang(double phase, double size = kGrubHangSize);
/// Seen from the front, arms and legs flail once a cycle.
Pose grubFall(double phase);
/// On both feet, `breath` from -1 (out) to 1 (in).
Pose grubStand(double breath);
/// The same, straight at the viewer.
Pose grubFront(double breath);

/// Digging goes by frames: two of winding up before the hit, one of overshoot after it, the throw, two of settling.
inline constexpr int kGrubDigFrames = 10;
inline constexpr int kGrubDigHit = 4;
Pose grubDig(int frame);

/// Grub as pages see him, with all poses that have names.
const FigureDrawing& grubFigure();

}  // namespace grub
