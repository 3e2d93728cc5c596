#pragma once

#include "affine.h"

namespace grub {

/// Sides of a cell at which a pipe or wire goes on into the neighbour, as bits of a set.
using Sides = unsigned;
inline constexpr Sides kUp = 1;
inline constexpr Sides kRight = 2;
inline constexpr Sides kDown = 4;
inline constexpr Sides kLeft = 8;
inline constexpr Sides kAcross = kLeft | kRight;
inline constexpr Sides kUpright = kUp | kDown;

/// Step from the middle of the cell towards a side, of length 1.
constexpr Point towardsSide(Sides side) {
    switch (side) {
        case kUp: return {0, -1};
        case kRight: return {1, 0};
        case kDown: return {0, 1};
        default: return {-1, 0};
    }
}

}  // namespace grub
