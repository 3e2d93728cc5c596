#pragma once

#include <string_view>

#include "canvas.h"
#include "strip.h"

namespace grub {

/// A world to stand in.
enum class Hall { Turma, Jelezo, Podval };

/// The part of a hall that a page shows behind its figures, in cells of 64 pixels times `scale`.
struct HallSet {
    Hall hall = Hall::Turma;
    int columns = 1;
    int rows = 1;
    /// The row whose upper edge is walked on; from `rows` on there is wall alone.
    int floorRow = 1;
    /// How many times as large as in play; 64 times it is a whole number.
    double scale = 1;
};

/// The strip of a hall. An unknown name is a mistake in a drawing: it ends the program with a line that names it.
const StripDrawing& hallStrip(std::string_view name);

/// Draws the hall with the tiles of the game, its upper left corner at the whole pixel nearest to `corner`.
void drawHall(Canvas& canvas, const HallSet& set, Point corner);

}  // namespace grub
