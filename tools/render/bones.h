#pragma once

#include "canvas.h"

namespace grub {

/// A bone between the middles of its two ends, `thickness` pixels to each side of its axis.
void drawBone(Canvas& canvas, Point from, Point to, double thickness);

/// A skull of 20 by 23 pixels about `at`, turned by `angle`.
void drawSkull(Canvas& canvas, Point at, double angle);

}  // namespace grub
