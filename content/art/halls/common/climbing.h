#pragma once

#include "palette.h"
#include "strip.h"

namespace grub {

// Ladders, and the pipes that Grub hangs from. Rungs lie at row 8 of every 16; the axis of a pipe lies at row 10.

/// Columns of the middles of a ladder's rails.
inline constexpr double kLeftRail = 13.8;
inline constexpr double kRightRail = 50.2;

/// What a ladder's rails do at the edges of its cell.
enum class LadderEnd { Middle, Top, Foot };

/// A ladder: it goes on into the cells above and below, or ends below or above them.
void drawLadder(Canvas& canvas, const Material& material, LadderEnd end);

/// Which sides of a pipe end at a flange in the wall; at the others it goes on into the neighbour.
struct PipeEnds {
    bool left = false;
    bool right = false;
};

/// A pipe to hang from, of copper or steel.
void drawHangPipe(Canvas& canvas, const WorldPalette& world, PipeEnds ends = {});

/// The same, open on both sides, with a joint or a strap from above in its middle.
void drawPipeJoint(Canvas& canvas, const WorldPalette& world);
void drawPipeStrap(Canvas& canvas, const WorldPalette& world);

// ---- the same for the rows of a table

/// A pipe of the world, with a flange at its left or right end.
template <const WorldPalette& World, bool Left = false, bool Right = false>
void drawHangPipe(Canvas& canvas, FrameOf) {
    drawHangPipe(canvas, World, {Left, Right});
}

/// An open pipe of the world with a joint.
template <const WorldPalette& World>
void drawPipeJoint(Canvas& canvas, FrameOf) {
    drawPipeJoint(canvas, World);
}

/// An open pipe of the world with a strap.
template <const WorldPalette& World>
void drawPipeStrap(Canvas& canvas, FrameOf) {
    drawPipeStrap(canvas, World);
}

}  // namespace grub
