#include <array>
#include <vector>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "props.h"
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

/// A hole in the floor, `floor` its upper row: its sides are the ends of broken bricks, and it goes down into the dark.
void drawDugHole(Canvas& canvas, double left, double right, double floor) {
    const auto outline = [=](double in) {
        return polygon({{left - 12 + in, floor - 4},
                        {right + 12 - in, floor - 4},
                        {right + 6 - in, floor + 9},
                        {right + 10 - in, floor + 18},
                        {right - 3 - in, floor + 21},
                        {right - 7 - in, floor + 33},
                        {right - 1 - in, floor + 50},
                        {left + 2 + in, floor + 50},
                        {left + 8 + in, floor + 35},
                        {left + 2 + in, floor + 22},
                        {left - 10 + in, floor + 19},
                        {left - 5 + in, floor + 8}},
                       1.5);
    };
    {
        const auto belowFloor = canvas.group({.box = Rect{left - 30, floor, right - left + 60, 60}});
        canvas.part(outline(0), stony(kTurma.floor[2] * 0.82F, 1.4F, 0.16F), {.bevel = 3, .line = 1.8, .shadow = 0});
        const VectorPath depth = outline(7);
        canvas.flat(depth, kInk, {.stroke = 2});
        const Mask inside = canvas.mask(depth);
        const auto far = canvas.group({.clip = &inside});
        canvas.flat(depth, rgb(0x150f24));
        for (std::uint32_t i = 0; i < 8; ++i) {  // the far side, in what light falls in
            const std::uint32_t row = i / 4;
            drawRubblePiece(canvas, {left + 2 + 24 * (i % 4) - 10.0 * row, floor + 5 + 14.0 * row}, 22, 12, 0,
                            varied(kTurma.floor[i % 3] * (row == 0 ? 0.42F : 0.26F), i, 0.1F));
        }
        canvas.shadeRows(floor + 14, floor + 30, 1, 0.25F);
    }
    for (const auto& [x, y, size, angle] :
         {std::array{left - 16, floor - 4, 15.0, 0.3}, std::array{right + 15, floor - 5, 17.0, -0.35},
          std::array{right + 29, floor - 2, 9.0, 0.5}})
        drawRubblePiece(canvas, {x, y}, size, size * 0.64, angle, kTurma.floor[2] * 0.9F);
}

/// A heap of bits of brick on the row `floor`, highest in its middle.
void drawBrickHeap(Canvas& canvas, double left, double right, double floor, double height) {
    constexpr std::uint32_t kBits = 30;
    for (std::uint32_t i = 0; i < kBits; ++i) {
        const double up = 1 - (i + 1.0) / kBits;  // from the top, so that the lower ones lie in front
        const double half = (right - left) / 2 * (1 - 0.85 * up);
        const double x = (left + right) / 2 + half * (2.0 * randomShare(i, 1, 5) - 1);
        const double width = 13 + 9 * randomShare(i, 2, 5);
        drawRubblePiece(canvas, {x, floor - width * 0.3 - up * height}, width, width * 0.6,
                        1.3 * (randomShare(i, 3, 5) - 0.5), varied(kTurma.floor[i % 3] * 0.9F, i, 0.12F));
    }
}

void drawMoonlitCell(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 246;
    drawPrisonHall(canvas, -28, kFloor, area.width);
    drawTally(canvas, {288, 178}, 5);
    canvas.dimAround({190, 190}, 330, 0.5F);
    canvas.glow({62, 106}, 150, kMoonlight, 0.4F);
    drawBeam(canvas, {66, 92}, 62, {300, 330}, 190, kMoonlight, 0.42F);
    drawPiece(canvas, "fon\\window", {2, 44}, 1.9);
    for (const double in : {0.0, 7.0, 14.0})
        canvas.flat(
            polygon({{104 + in, kFloor + 2}, {196 - in, kFloor + 2}, {214 - in, area.height}, {88 + in, area.height}}),
            kMoonlight, {.alpha = 0.1F});
    drawPiece(canvas, "poly\\paut1", {area.width - 90, 0}, 1.4);
    drawDugHole(canvas, 210, 282, kFloor);
    drawBrickHeap(canvas, 16, 112, kFloor + 2, 34);
}

// ---- the corridor of the rats

/// The way home of a rat: a hole in the wall, and what it has carried there.
void drawRatHole(Canvas& canvas, double middle, double floor) {
    const std::initializer_list<Point> arch{
        {middle - 38, floor}, {middle - 40, floor - 90}, {middle + 40, floor - 90}, {middle + 38, floor}};
    {
        const auto aboveFloor = canvas.group({.box = Rect{middle - 60, floor - 120, 120, 120}});
        canvas.part(curve(arch), stony(kTurma.solid[1] * 0.5F, 1.2F, 0.12F), {.bevel = 5, .line = 1.4, .stroke = 13});
    }
    const VectorPath hole = curve(arch).close();
    canvas.flat(hole, rgb(0x0d0a1c));
    const Mask inside = canvas.mask(hole);
    {
        const auto hoard = canvas.group({.clip = &inside});
        for (const auto& [x, y, angle] :
             {std::array{-2.0, -9.0, -2.6}, std::array{14.0, -7.0, 0.5}, std::array{-8.0, -20.0, -0.9},
              std::array{8.0, -16.0, -2.2}, std::array{-12.0, -5.0, 0.15}}) {
            const auto key = canvas.placed({middle + x, floor + y}, angle, 0.7, 0.7);
            drawKeyShape(canvas, kGold, false);
        }
    }
    canvas.glow({middle, floor - 8}, 40, rgb(0xffd25a), 0.3F);
}

void drawRatCorridor(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 260;
    drawPrisonHall(canvas, -60, kFloor, area.width);
    canvas.dimAround({210, 170}, 300, 0.42F);
    drawRatHole(canvas, 20, kFloor);
    for (const auto& [x, y] : {std::array{204.0, 190.0}, std::array{362.0, 92.0}}) {
        canvas.glow({x, y}, 190, kTurma.glow, 0.62F);
        canvas.glow({x, kFloor + 4}, 130, kTurma.glow, 0.25F);
        drawPiece(canvas, "fon\\fakel", {x - 32 * 1.5, y - 26 * 1.5}, 1.5, static_cast<int>(x) % 5);
    }
    drawPiece(canvas, "poly\\paut", {0, 0}, 1.4);
    canvas.shadeRows(0, 60, 0.7F, 1);
}

// ---- the hall with a door

/// The middle of the exit's lowest row.
constexpr Point kDoorFoot{616, 244};

/// The exit, partly drawn up, its light, and a shadow on the floor for who creeps past it.
void drawOpeningDoor(Canvas& canvas, const Rect&) {
    const auto [middle, floor] = kDoorFoot;
    constexpr double kSize = 2.6;
    constexpr int kPartlyOpen = 6;
    drawPiece(canvas, "dveri\\door_a", {middle - 32 * kSize, floor - 64 * kSize}, kSize, kPartlyOpen);
    canvas.flat(
        polygon({{middle - 52, floor}, {middle + 52, floor}, {middle + 84, floor + 34}, {middle - 96, floor + 34}}),
        rgb(0xffe2a0), {.alpha = 0.3F});
    canvas.halo({middle, floor - 60}, 190, rgb(0xffe2a0), 0.3F);
    const auto soft = canvas.group({.blur = 3});
    canvas.flat(ellipse({middle + 103, floor + 4}, 38, 5), kInk, {.alpha = 0.6F});
}

void drawKeyHall(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = kDoorFoot.y;
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
    canvas.glow(kDoorFoot - Point{0, 50}, 200, rgb(0xffd88a), 0.5F);
    canvas.glow(kDoorFoot - Point{0, 158}, 90, rgb(0x6fe08a), 0.5F);
    drawPiece(canvas, "fon\\fakel", kTorch - Point{32, 26} * 1.7, 1.7, 2);
    drawPiece(canvas, "poly\\paut1", {area.width - 96, 0}, 1.5);
    canvas.glow({150, 150}, 170, kTurma.glow, 0.22F);
}

constexpr std::array kSets{
    //         name            px   px
    SetDrawing{"moonlit-cell", 382, 288, drawMoonlitCell},
    SetDrawing{"rat-corridor", 382, 288, drawRatCorridor},
    SetDrawing{"key-hall", 776, 276, drawKeyHall},
    SetDrawing{"opening-door", 776, 276, drawOpeningDoor, true},
};

}  // namespace

std::span<const SetDrawing> prisonSets() { return kSets; }

}  // namespace grub
