#pragma once

#include <span>

#include "common_parts.h"
#include "palette.h"
#include "strip.h"

namespace grub {

/// A floor of a world in another look, to be mixed in. Only jelezo has vents.
enum class FloorVariant { Plain, Chipped, Vented };

/// Whether a floor cell is walked on or lies below another one, which shows no cap.
enum class Storey { Top, Under };

/// How the floors of a world are drawn.
struct FloorKind {
    /// Its floor colours are also those of crumbs and broken ends.
    const WorldPalette& palette;
    /// The stones or plates below the cap, over the cell and its neighbours; they join from cell to cell.
    void (*drawFace)(Canvas& canvas, Storey storey, FloorVariant variant, const Mask* clip);
    /// What is walked on.
    void (*drawCap)(Canvas& canvas, const Mask* clip);
    /// What the middle of a floor falls into: the pieces of the cap first, then the rest from the top.
    std::span<const Stone> stones;
    /// One of them on its own, where it lies.
    void (*drawStone)(Canvas& canvas, std::size_t index, Storey storey);
};

/// Which sides of a floor cell are open: there the floor ends in a drawn edge.
struct FloorEnds {
    bool left = false;
    bool right = false;
};

/// A floor cell that is whole.
void drawFloor(Canvas& canvas, const FloorKind& kind, Storey storey, FloorVariant variant = FloorVariant::Plain,
               FloorEnds ends = {});

/// A floor cell that is hit, breaks and falls, until a hole with ragged walls is left. `seed` chooses how it falls.
void drawBreaking(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey, std::uint32_t seed);

/// A hole that fills from below in a warm seam. The last frame is the whole floor, still glowing.
void drawGrowing(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey);

// ---- the same for the rows of a table

/// A floor that is walked on, with an end at its left or right side.
template <const FloorKind& Kind, FloorVariant Variant = FloorVariant::Plain, bool Left = false, bool Right = false>
void drawTop(Canvas& canvas, FrameOf) {
    drawFloor(canvas, Kind, Storey::Top, Variant, {Left, Right});
}

/// A floor below another one.
template <const FloorKind& Kind, FloorVariant Variant = FloorVariant::Plain>
void drawUnder(Canvas& canvas, FrameOf) {
    drawFloor(canvas, Kind, Storey::Under, Variant);
}

/// See drawBreaking.
template <const FloorKind& Kind, Storey Of, std::uint32_t Seed>
void drawBreak(Canvas& canvas, FrameOf frame) {
    drawBreaking(canvas, frame, Kind, Of, Seed);
}

/// See drawGrowing.
template <const FloorKind& Kind, Storey Of>
void drawGrow(Canvas& canvas, FrameOf frame) {
    drawGrowing(canvas, frame, Kind, Of);
}

}  // namespace grub
