#pragma once

#include <array>

#include "masonry.h"

namespace grub {

/// Which sides of a floor cell are open: there the floor ends in a drawn edge.
struct FloorEnds {
    bool left = false;
    bool right = false;
};

/// How worn the floor is.
enum class FloorWear { New, Chipped };

/// A floor cell of the first world: a cap of slabs that is walked on over three courses of bricks.
void drawFloor(Canvas& canvas, FloorEnds ends, FloorWear wear);
/// What lies below a floor cell when that is floor too: bricks up to the top, without a cap.
void drawUnderFloor(Canvas& canvas, FloorWear wear);

/// The stones of the middle of a floor, cap slabs first, then the courses from the top. The bricks of the second course
/// that reach into the neighbours are cut in half.
inline constexpr std::array kFloorStones{
    Stone{0, 0.9, 32, 12.6, 20}, Stone{32, 0.9, 32, 12.6, 21},  // cap
    Stone{0, 13, 32, 17, 32},    Stone{32, 13, 32, 17, 33},     //
    Stone{0, 30, 16, 17, 34},    Stone{16, 30, 32, 17, 35},    Stone{48, 30, 16, 17, 34},
    Stone{0, 47, 32, 17, 36},    Stone{32, 47, 32, 17, 37},
};
inline constexpr std::size_t kCapStones = 2;

/// One of the stones on its own, where it lies. Under another floor the cap slabs are bricks.
void drawFloorStone(Canvas& canvas, std::size_t index, bool under);

/// The broken end of a brick that stays in the wall of a hole: `inward` 1 at the left wall, -1 at the right one.
void drawBrickStub(Canvas& canvas, Point wall, double inward, double reach, std::uint32_t number);

}  // namespace grub
