#pragma once

#include "common_parts.h"
#include "palette.h"
#include "strip.h"

namespace grub {

// Thin pipes that dress a wall and change no rule; each world has a table of them.

/// What sits in the middle of a pipe.
enum class PipeFitting { None, Collar, Valve, Gauge, Tap, Cap, Chain };

/// A pipe from the middle of the cell to each of `sides`; two that meet in a corner make a bend. Collar, tap and cap
/// look at the sides, valve, gauge and chain belong on a pipe across.
void drawWallPipe(Canvas& canvas, const WorldPalette& world, Sides sides, PipeFitting fitting);

/// The same for the rows of a table.
template <const WorldPalette& World, Sides Way, PipeFitting With = PipeFitting::None>
void drawWallPipe(Canvas& canvas, FrameOf) {
    drawWallPipe(canvas, World, Way, With);
}

}  // namespace grub
