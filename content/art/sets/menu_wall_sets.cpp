#include <array>

#include "hall_set.h"
#include "palette.h"
#include "sets_room.h"

namespace grub {

namespace {

/// Row of the page that is walked on.
constexpr double kFloor = 538;

void drawMenuWall(Canvas& canvas, const Rect&) {
    drawHall(canvas, {.hall = Hall::Turma, .columns = 13, .rows = 10, .floorRow = 9}, {0, kFloor - 9 * 64});
    canvas.glow({300, 300}, 360, kTurma.glow, 0.2F);
}

constexpr std::array kSets{
    //         name         px   px
    SetDrawing{"menu-wall", 800, 600, drawMenuWall},
};

}  // namespace

std::span<const SetDrawing> menuWallSets() { return kSets; }

}  // namespace grub
