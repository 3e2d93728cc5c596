#include <array>
#include <vector>

#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// Halls behind figures of two and a half to three times their size in play.
constexpr double kScale = 1.5;
constexpr double kTile = 64 * kScale;

/// The light of the moon, and of chalk.
constexpr Rgb kMoonlight = rgb(0xa8bcff);
constexpr Rgb kChalk = rgb(0xd8deee);

/// A wall of three cells above the row `floor`, and the floor below it; `left` moves its joints.
void drawPrisonHall(Canvas& canvas, double left, double floor, double width) {
    drawHall(canvas,
             {.hall = Hall::Turma,
              .columns = static_cast<int>((width - left) / kTile) + 1,
              .rows = 4,
              .floorRow = 3,
              .scale = kScale},
             {left, floor - 3 * kTile});
    const Mask wall = canvas.mask(rectangle(0, 0, width, floor));
    canvas.shadeRows(floor - 40, floor, 1, 0.7F, &wall);
}

// ---- the cell by moonlight

/// Strokes in groups of five, as prisoners count: four upright, the fifth across.
void drawTally(Canvas& canvas, Point at, int groups) {
    for (int group = 0; group < groups; ++group) {
        const int row = group / 3;
        const Point corner = at + Point{27.0 * (group % 3), 30.0 * row};
        for (int i = 0; i < 4; ++i) {
            const double sway = 2.0 * randomShare(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(group), 3);
            canvas.flat(polyline({corner + Point{5.0 * i + sway, sway}, corner + Point{5.0 * i, 17 + sway}}), kChalk,
                        {.alpha = 0.5F, .stroke = 1.7});
        }
        canvas.flat(polyline({corner + Point{-3, 13}, corner + Point{19, 4}}), kChalk, {.alpha = 0.5F, .stroke = 1.7});
    }
}

/// A hole in the floor with broken edges, `floor` its upper row.
void drawDugHole(Canvas& canvas, double left, double right, double floor) {
    canvas.flat(polygon({{left - 7, floor - 1},
                         {right + 6, floor - 1},
                         {right - 1, floor + 9},
                         {right + 4, floor + 20},
                         {right - 3, floor + 40},
                         {left + 4, floor + 40},
                         {left - 3, floor + 22},
                         {left + 3, floor + 10}},
                        2),
                rgb(0x150f24));
    for (const auto& [x, y, angle] : {std::array{left - 8, floor + 3, 0.3}, std::array{left - 3, floor + 17, -0.2},
                                      std::array{right + 8, floor + 4, -0.35}, std::array{right + 4, floor + 18, 0.2}})
        drawRubblePiece(canvas, {x, y}, 17, 11, angle, kTurma.floor[2] * 0.9F);
}

void drawMoonlitCell(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 246;
    drawPrisonHall(canvas, -28, kFloor, area.width);
    drawTally(canvas, {288, 178}, 5);
    canvas.dimAround({190, 190}, 330, 0.5F);
    canvas.glow({62, 106}, 150, kMoonlight, 0.4F);
    drawPiece(canvas, "fon\\window", {2, 44}, 1.9);
    drawBeam(canvas, {66, 92}, 62, {300, 330}, 190, kMoonlight, 0.42F);
    canvas.flat(polygon({{112, kFloor + 2}, {300, kFloor + 2}, {330, area.height}, {96, area.height}}), kMoonlight,
                {.alpha = 0.25F});
    drawPiece(canvas, "poly\\paut1", {area.width - 90, 0}, 1.4);
    drawDugHole(canvas, 248, 286, kFloor);
    drawCrumbs(canvas, 22, 112, kFloor + 2, 34, kTurma.floor[1], 5);
}

// ---- the corridor of the rats

/// The way home of a rat: a hole in the wall, and what it has carried there.
void drawRatHole(Canvas& canvas, double middle, double floor) {
    const std::initializer_list<Point> arch{
        {middle - 38, floor}, {middle - 40, floor - 90}, {middle + 40, floor - 90}, {middle + 38, floor}};
    canvas.part(curve(arch), stony(kTurma.solid[1] * 0.5F, 1.2F, 0.12F), {.bevel = 5, .line = 1.4, .stroke = 13});
    const VectorPath hole = curve(arch).close();
    canvas.flat(hole, rgb(0x0d0a1c));
    const Mask inside = canvas.mask(hole);
    canvas.flat(ellipse({middle, floor}, 26, 13), kGold.shadow, {.alpha = 0.8F, .clip = &inside});
    for (const Point& at :
         {Point{middle - 16, floor - 6}, Point{middle + 2, floor - 10}, Point{middle + 15, floor - 5}})
        canvas.part(ring(at, 6, 3.2), kGold, {.bevel = 1.4, .line = 0.9, .clip = &inside});
    canvas.glow({middle, floor - 8}, 36, rgb(0xffd25a), 0.45F);
}

void drawRatCorridor(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 260;
    drawPrisonHall(canvas, -60, kFloor, area.width);
    canvas.dimAround({210, 170}, 300, 0.42F);
    drawRatHole(canvas, 20, kFloor);
    for (const auto& [x, y] : {std::array{188.0, 186.0}, std::array{362.0, 92.0}}) {
        canvas.glow({x, y}, 190, kTurma.glow, 0.62F);
        canvas.glow({x, kFloor + 4}, 130, kTurma.glow, 0.25F);
        drawPiece(canvas, "fon\\fakel", {x - 32 * 1.5, y - 26 * 1.5}, 1.5, static_cast<int>(x) % 5);
    }
    drawPiece(canvas, "poly\\paut", {0, 0}, 1.4);
    canvas.shadeRows(0, 60, 0.7F, 1);
}

// ---- the hall with a door

/// The exit, partly drawn up: gold light from the gap, green light from the lamp.
void drawOpeningDoor(Canvas& canvas, double middle, double floor) {
    constexpr double kSize = 2.6;
    constexpr int kPartlyOpen = 5;
    canvas.glow({middle, floor - 50}, 200, rgb(0xffd88a), 0.5F);
    canvas.glow({middle, floor - 158}, 90, rgb(0x6fe08a), 0.5F);
    drawPiece(canvas, "dveri\\door_a", {middle - 32 * kSize, floor - 64 * kSize}, kSize, kPartlyOpen);
    canvas.flat(
        polygon({{middle - 52, floor}, {middle + 52, floor}, {middle + 84, floor + 34}, {middle - 96, floor + 34}}),
        rgb(0xffe2a0), {.alpha = 0.5F});
    canvas.halo({middle, floor - 26}, 92, rgb(0xffe2a0), 0.4F);
}

void drawKeyHall(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 244;
    constexpr double kLadder = 2;
    drawPrisonHall(canvas, -40, kFloor, area.width);
    drawPiece(canvas, "fon\\ruki", {404, 132}, 1.4);
    canvas.dimAround({360, 190}, 520, 0.42F);
    for (const double top : {kFloor - 64 * kLadder, kFloor - 128 * kLadder})
        drawPiece(canvas, "lesenki\\modul_lestn", {48 - 32 * kLadder, top}, kLadder);
    {
        const auto inShade = canvas.group({.tint = {rgb(0x2a2448), 0.35F}});
        drawPiece(canvas, "fon\\bochka", {262, kFloor - 62 * 1.9}, 1.9);
        drawPiece(canvas, "fon\\bochka", {340, kFloor - 62 * 1.5}, 1.5);
    }
    constexpr Point kTorch{506, 116};
    canvas.glow(kTorch, 240, kTurma.glow, 0.6F);
    drawOpeningDoor(canvas, 616, kFloor);
    drawPiece(canvas, "fon\\fakel", kTorch - Point{32, 26} * 1.7, 1.7, 2);
    drawPiece(canvas, "poly\\paut1", {area.width - 96, 0}, 1.5);
    canvas.glow({150, 150}, 170, kTurma.glow, 0.22F);
}

constexpr std::array kSets{
    //         name            px   px
    SetDrawing{"moonlit-cell", 382, 288, drawMoonlitCell},
    SetDrawing{"rat-corridor", 382, 288, drawRatCorridor},
    SetDrawing{"key-hall", 776, 276, drawKeyHall},
};

}  // namespace

std::span<const SetDrawing> prisonSets() { return kSets; }

}  // namespace grub
