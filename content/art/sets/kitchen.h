#pragma once

#include <span>

#include "canvas.h"

namespace grub {

// What stands in the lady's kitchen. Lengths in pixels of the page.

/// A hearth of stone with a kettle over the fire, 128 pixels wide and high at scale 1, and its light.
void drawHearth(Canvas& canvas, Point corner, double scale);

/// A chequered floor, seen from above its edge.
struct TiledFloor {
    /// Where rows of tiles begin, from the wall on, and where the last one ends.
    std::span<const double> rows;
    /// Width of a tile in the lowest row, and the point to which the joints run.
    double every;
    Point vanishing;
    double width;
    /// Of gaps and rounded edges.
    double scale;
};
void drawTiledFloor(Canvas& canvas, const TiledFloor& floor);

/// A shelf with pots and plates, which stand up to 28 pixels above it. `left` is the left end of its upper edge.
void drawShelf(Canvas& canvas, Point left, double width);

}  // namespace grub
