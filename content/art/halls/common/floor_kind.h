#pragma once

#include <span>

#include "common_parts.h"
#include "palette.h"

namespace grub {

/// How worn a floor is.
enum class FloorWear { New, Chipped };

/// Whether a floor cell is walked on or lies below another one, which shows no cap.
enum class Storey { Top, Under };

/// How the floors of a world are drawn.
struct FloorKind {
    /// Its floor colours are also those of crumbs and broken ends.
    const WorldPalette& palette;
    /// The stones or plates below the cap, over the cell and its neighbours; they join from cell to cell.
    void (*drawFace)(Canvas& canvas, Storey storey, FloorWear wear, const Mask* clip);
    /// What is walked on.
    void (*drawCap)(Canvas& canvas, const Mask* clip);
    /// What the middle of a floor falls into: the pieces of the cap first, then the rest from the top.
    std::span<const Stone> stones;
    /// One of them on its own, where it lies.
    void (*drawStone)(Canvas& canvas, std::size_t index, Storey storey);
};

/// Bricks under stone slabs, riveted plates under a flange, field stones under grass.
extern const FloorKind kTurmaFloor;
extern const FloorKind kJelezoFloor;
extern const FloorKind kPodvalFloor;

/// The row at which every floor's cap begins.
inline constexpr double kCapTop = 0.9;

}  // namespace grub
