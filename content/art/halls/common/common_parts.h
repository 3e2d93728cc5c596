#pragma once

#include <cstdint>

#include "canvas.h"
#include "palette.h"
#include "vector_path.h"

namespace grub {

/// Side of a map cell in pixels; every strip of a cell is that wide.
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

/// The row at which the cap of every floor and block begins.
inline constexpr double kCapTop = 0;

/// Darkens the upper edge of a cap that has been drawn. Soles end two rows above it: without the dark edge a pale cap
/// looks as if figures hovered over it.
void drawLip(Canvas& canvas);

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

/// Rough stones laid without pattern, the bulk below the blocks that are walked on. They end at the edges of the cell,
/// so that a pier of one cell shows whole stones. `dim` 1 is the brightness of the palette.
void drawRubble(Canvas& canvas, const WorldPalette& world, float dim);

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

/// A bone between the middles of its two ends, `thickness` pixels to each side of its axis.
void drawBone(Canvas& canvas, Point from, Point to, double thickness);

/// A skull of 20 by 23 pixels about `at`, turned by `angle`.
void drawSkull(Canvas& canvas, Point at, double angle);

/// A lit wall lantern in an iron cage, 26 px high around `centre`, without the light that it throws.
void drawLantern(Canvas& canvas, Point centre);

/// A four-pointed glint that reaches `size` pixels, in a little light of its own.
void drawSparkle(Canvas& canvas, Point at, double size);

}  // namespace grub
