#include <array>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// Row that is walked on, and how many times as large as in play the floor is.
constexpr double kFloor = 430;
constexpr double kScale = 1.375;
constexpr double kCell = kCellSize * kScale;

/// The hole that has closed: two cells about column 402.
constexpr double kHoleLeft = 402 - kCell;
constexpr double kHoleRight = 402 + kCell;

/// The hall above the floor, and the one below it.
void drawHalls(Canvas& canvas, const Rect&) {
    drawHall(canvas, {.hall = Hall::Turma, .columns = 7, .rows = 6, .floorRow = 6, .scale = 2}, {-32, -80});
    const Mask above = canvas.mask(rectangle(0, 0, 800, kFloor));
    canvas.shadeRows(kFloor - 60, kFloor, 1, 0.62F, &above);
    const Mask below = canvas.mask(rectangle(0, kFloor, 800, 600 - kFloor));
    canvas.shadeRows(kFloor + kCell, kFloor + kCell + 60, 0.42F, 0.8F, &below);
    drawPiece(canvas, "fon\\ruki", {640, 190}, 1.6);
    canvas.dimAround({380, 330}, 560, 0.4F);
    drawPiece(canvas, "fon\\fakel", {92, 220}, 2);
    canvas.glow({156, 268}, 360, kTurma.glow, 0.4F);
    for (const Joint& crumb : {Joint{{296, 427}, 5}, Joint{{282, 429}, 3}, Joint{{508, 427}, 4.4},
                               Joint{{522, 429}, 2.6}, Joint{{538, 428}, 3.4}})
        canvas.part(circle(crumb.at, crumb.radius), stony(kTurma.floor[2], 0.6F, 0.1F), {.bevel = 3, .line = 1.1});
}

/// How far the floor's upper edge is below that of its set, which leaves room for the collar.
constexpr double kLip = 24;

/// Broken stones around the chest of whoever is stuck, in a ragged row with its foot on the floor.
void drawCollar(Canvas& canvas) {
    constexpr int kStones = 13;
    constexpr double kLeft = 326;
    constexpr double kRight = 478;
    for (std::uint32_t i = 0; i < kStones; ++i) {
        const double width = 13 + 9.0 * randomShare(i, 1, 37);
        const double height = 8 + 5.0 * randomShare(i, 2, 37);
        const double x = kLeft + (kRight - kLeft) * i / (kStones - 1) + 4.0 * (randomShare(i, 3, 37) - 0.5);
        drawRubblePiece(canvas, {x, kLip + 2 - height / 2 + 3.0 * randomShare(i, 4, 37)}, width, height,
                        1.4 * (randomShare(i, 5, 37) - 0.5), kTurma.floor[i % 2 == 0 ? 2 : 1]);
    }
}

/// Between new and old bricks, along their joints, it still glows; `aside` is where the joint of the third row is.
void drawSeam(Canvas& canvas, double x, double aside) {
    const VectorPath joints =
        polyline({{x, 0}, {x, 40.4}, {x + aside, 40.4}, {x + aside, 64.6}, {x, 64.6}, {x, kCell}});
    {
        const auto soft = canvas.group({.box = Rect{x - 60, -kLip, 120, kCell + kLip}, .blur = 4});
        canvas.flat(joints, rgb(0xff8a2c), {.alpha = 0.9F, .stroke = 9});
    }
    canvas.glow({x, 40}, 64, rgb(0xff9a3c), 0.5F);
    canvas.flat(joints, rgb(0xffe08c), {.stroke = 2.2});
}

/// The floor itself, in front of whoever is stuck in it.
void drawClosedFloor(Canvas& canvas, const Rect& area) {
    constexpr int kBefore = 4;  // cells left of the hole
    const auto onFloor = canvas.placed({0, kLip});
    for (int column = 0; (column - kBefore) * kCell + kHoleLeft < area.width; ++column) {
        const Point corner{kHoleLeft + (column - kBefore) * kCell, 0};
        if (column == kBefore || column == kBefore + 1) {
            drawPiece(canvas, "poly\\vosstfull", corner, kScale, 7);
        } else {
            drawPiece(canvas, column % 3 == 1 ? "poly\\modul_pol" : "steny\\modul_pol_11a", corner, kScale);
        }
    }
    drawSeam(canvas, kHoleLeft, 22);
    drawSeam(canvas, kHoleRight, -22);
    const auto above = canvas.placed({0, -kLip});
    drawCollar(canvas);
}

constexpr std::array kSets{
    //         name            px   px
    SetDrawing{"closed-hall", 800, 600, drawHalls},
    SetDrawing{"closed-floor", 800, 112, drawClosedFloor, true},
};

}  // namespace

std::span<const SetDrawing> closedFloorSets() { return kSets; }

}  // namespace grub
