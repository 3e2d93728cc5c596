#pragma once

#include "canvas.h"

namespace grub {

// What stands in the lady's kitchen. Lengths in pixels of the page.

/// A hearth of stone with a kettle over the fire, 128 pixels wide and high at scale 1, and its light.
void drawHearth(Canvas& canvas, Point corner, double scale);

/// A shelf with pots and plates, which stand up to 28 pixels above it. `left` is the left end of its upper edge.
void drawShelf(Canvas& canvas, Point left, double width);

}  // namespace grub
