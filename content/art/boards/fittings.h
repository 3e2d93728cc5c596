#pragma once

#include "board.h"

namespace grub {

/// A nail's head, 7 px wide.
void drawNail(Canvas& canvas, Point centre);

/// An iron ring, 16 px high, that hangs in a hole at `hole`: the ring's lower end is there.
void drawRing(Canvas& canvas, Point hole);

/// Links from the top of the page down to `end`.
void drawChain(Canvas& canvas, Point end);

/// A triangle with rounded corners, `length` from base to tip, that points along `angle` (0 right, quarter turns
/// clockwise); its middle is at `centre`.
VectorPath arrowHead(Point centre, double length, double angle = 0);

/// Grub's spoon lying flat, bowl to the right, `length` long and half as high; its middle is at `centre`.
void drawSpoonMark(Canvas& canvas, Point centre, double length);

}  // namespace grub
