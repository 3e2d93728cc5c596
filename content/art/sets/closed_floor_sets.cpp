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

/// The floor itself, in front of whoever is stuck in it. Where the hole was, it still glows.
void drawClosedFloor(Canvas& canvas, const Rect& area) {
    constexpr int kBefore = 4;  // cells left of the hole
    for (int column = 0; (column - kBefore) * kCell + kHoleLeft < area.width; ++column) {
        const Point corner{kHoleLeft + (column - kBefore) * kCell, 0};
        if (column == kBefore || column == kBefore + 1) {
            drawPiece(canvas, "poly\\vosstfull", corner, kScale, 7);
        } else {
            drawPiece(canvas, column % 3 == 1 ? "poly\\modul_pol" : "steny\\modul_pol_11a", corner, kScale);
        }
    }
    for (const double x : {kHoleLeft, kHoleRight}) {
        canvas.flat(polyline({{x, 0}, {x - 3, 18}, {x + 3, 40}, {x - 2, 66}, {x + 2, kCell}}), rgb(0xffc46a),
                    {.alpha = 0.9F, .stroke = 3.4});
        canvas.glow({x, 40}, 70, rgb(0xff9a3c), 0.75F);
    }
}

constexpr std::array kSets{
    //         name            px   px
    SetDrawing{"closed-hall", 800, 600, drawHalls},
    SetDrawing{"closed-floor", 800, 88, drawClosedFloor, true},
};

}  // namespace

std::span<const SetDrawing> closedFloorSets() { return kSets; }

}  // namespace grub
