#pragma once

#include "canvas.h"

namespace grub {

/// A world to stand in.
enum class Hall { Turma, Jelezo, Podval };

/// The part of a hall that a page shows behind its figures, in cells of 64 pixels.
struct HallSet {
    Hall hall = Hall::Turma;
    int columns = 1;
    int rows = 1;
    /// The row whose upper edge is walked on; from `rows` on there is wall alone.
    int floorRow = 1;
};

/// Draws the hall with the tiles of the game, pixel for pixel, its upper left corner at `corner`.
void drawHall(Canvas& canvas, const HallSet& set, Point corner);

}  // namespace grub
