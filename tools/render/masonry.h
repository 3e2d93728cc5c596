#pragma once

#include <cstdint>

#include "canvas.h"

namespace grub {

/// Side of a map cell in pixels; every cell picture is that wide.
inline constexpr double kCellSize = 64;

/// Draws a thing at its place and wherever a neighbour of the same kind would show it: once for each shift of a cell.
template <class Draw>
void drawJoined(Canvas& canvas, Draw draw) {
    for (const double dy : {-kCellSize, 0.0, kCellSize}) {
        for (const double dx : {-kCellSize, 0.0, kCellSize}) {
            const auto shifted = canvas.placed({dx, dy});
            draw();
        }
    }
}

/// A stone of a wall: its place in the cell (it may reach beyond it) and the number that decides its shade.
struct Stone {
    double x;
    double y;
    double width;
    double height;
    std::uint32_t number;
};

/// The colour, up to `spread` brighter or darker by the stone's number.
Rgb varied(Rgb colour, std::uint32_t number, float spread);

/// An open crack: a dark line that follows the points, with a lit lower edge.
void drawCrack(Canvas& canvas, std::initializer_list<Point> points, float strength, const Mask* clip = nullptr);

}  // namespace grub
