#include <array>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"

namespace grub {

namespace {

/// The row that the dog sits on, before the bars.
constexpr double kFloor = 248;

/// The opening of the cell.
constexpr Rect kCell{168, 60, 162, kFloor - 60};

constexpr Rgb kMoonlight = rgb(0xb8c8ff);

void drawCellByNight(Canvas& canvas, const Rect&) {
    drawHall(canvas, {.hall = Hall::Turma, .columns = 7, .rows = 5, .floorRow = 4}, {-20, kFloor - 4 * kCellSize});
    canvas.dimAround({210, 190}, 360, 0.5F);
    canvas.part(rectangle(kCell.x - 15, kCell.y - 15, kCell.width + 30, kCell.height + 15, 7),
                stony(kTurma.solid[1] * 0.5F, 1, 0.12F), {.bevel = 7, .line = 1.5, .shadow = 0.5F});
    const Mask inside = canvas.mask(kCell.path(4));
    {
        const auto cell = canvas.group({.box = kCell, .clip = &inside});
        drawHall(canvas, {.hall = Hall::Turma, .columns = 4, .rows = 4, .floorRow = 4}, {kCell.x - 12, kCell.y - 40});
        canvas.shadeRows(kCell.y, kCell.bottom(), 0.4F, 0.75F);
        drawPiece(canvas, "fon\\window", {kCell.right() - 62, kCell.y + 26}, 1);
        drawPiece(canvas, "poly\\paut", {kCell.x, kCell.y}, 0.72);
        canvas.glow({kCell.right() - 30, kCell.y + 58}, 110, kMoonlight, 0.4F);
    }
    drawBeam(canvas, {kCell.right() - 30, kCell.y + 54}, 36, {kCell.x - 60, kFloor + 60}, 130, kMoonlight, 0.32F);
    for (int i = 0; i < 4; ++i) {  // moonlight between the shadows of the bars
        const double x = 162 + 26 * i;
        canvas.flat(polygon({{x, kFloor + 1}, {x + 16, kFloor + 1}, {x - 14, 288}, {x - 40, 288}}, 1), kMoonlight,
                    {.alpha = 0.3F});
    }
    canvas.glow({80, 190}, 150, kTurma.glow, 0.16F);
}

/// The bars, laid over whoever is in the cell.
void drawBars(Canvas& canvas, const Rect&) {
    constexpr double kFirst = 197;
    constexpr double kEvery = 26;
    constexpr int kBars = 5;
    Material iron = kDarkMetal;
    iron.base = mix(iron.base, kMoonlight, 0.12F);
    for (int i = 0; i < kBars; ++i) {
        const double x = kFirst + i * kEvery;
        canvas.part(rectangle(x - 3.6, kCell.y - 4, 7.2, kCell.height + 5, 2), iron,
                    {.bevel = 3.6, .line = 1.5, .shadow = 0.5F});
    }
    for (const double y : {kCell.y + 6, kFloor - 22}) {
        canvas.part(rectangle(kCell.x - 5, y, kCell.width + 10, 8, 2.4), iron,
                    {.bevel = 3.6, .line = 1.4, .shadow = 0.5F});
        for (int i = 0; i < kBars; ++i)
            canvas.part(circle({kFirst + i * kEvery, y + 4}, 2.2), kMetal, {.bevel = 2, .line = 0.7, .shadow = 0.2F});
    }
    canvas.part(rectangle(kCell.right() - 22, kFloor - 72, 26, 32, 4), kMetal,
                {.bevel = 5, .line = 1.5, .shadow = 0.5F});
    const Point key{kCell.right() - 9, kFloor - 59};
    canvas.flat(circle(key, 3.6), kInk);
    canvas.flat(polygon({key + Point{-1.4, 0}, key + Point{1.4, 0}, key + Point{2.8, 11}, key + Point{-2.8, 11}}),
                kInk);
}

constexpr std::array kSets{
    //         name         px   px   clear places
    SetDrawing{"night-cell", 382, 288, drawCellByNight},
    SetDrawing{"cell-bars", 382, 288, drawBars, true},
};

}  // namespace

std::span<const SetDrawing> cellSets() { return kSets; }

}  // namespace grub
