#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "masonry.h"

namespace grub {

/// Which sides of a floor cell are open: there the floor ends in a drawn edge.
struct FloorEnds {
    bool left = false;
    bool right = false;
};

/// How worn the floor is.
enum class FloorWear { New, Chipped };

/// Whether a floor cell is walked on or lies below another one, which shows no cap.
enum class Storey { Top, Under };

/// How the floors of a world are drawn.
struct FloorKind {
    void (*drawTop)(Canvas& canvas, FloorEnds ends, FloorWear wear);
    void (*drawUnder)(Canvas& canvas, FloorWear wear);
    /// What the middle of a floor falls into: the pieces of the cap first, then the rest from the top.
    std::span<const Stone> stones;
    /// One of them on its own, where it lies.
    void (*drawStone)(Canvas& canvas, std::size_t index, Storey storey);
    /// Colours of crumbs and broken ends.
    std::array<Rgb, 3> rubble;
};

/// The floors of the three worlds: bricks under stone slabs, riveted plates under a flange, field stones under grass.
const FloorKind& brickFloor();
const FloorKind& ironFloor();
const FloorKind& cellarFloor();

/// The outline of a floor cell from row `top` down; where it does not end it goes on beyond the cell.
VectorPath floorBody(FloorEnds ends, double top);

/// The row at which every floor's cap begins.
inline constexpr double kCapTop = 0.9;

}  // namespace grub
