#include "kitchen.h"

#include <array>
#include <cmath>
#include <tuple>

#include "common_parts.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"

namespace grub {

void drawHearth(Canvas& canvas, Point corner, double scale) {
    for (const auto& [name, column, row] : {std::tuple{"fon\\k11", 0, 0}, std::tuple{"fon\\k12", 1, 0},
                                            std::tuple{"fon\\k21", 0, 1}, std::tuple{"fon\\k22", 1, 1}})
        drawPiece(canvas, name, corner + Point{column * kCellSize, row * kCellSize} * scale, scale);
    canvas.glow(corner + Point{kCellSize, 1.5 * kCellSize} * scale, 170 * scale, kTurma.glow, 0.6F);
}

namespace {

constexpr Material kCopper = glossy(material(0xb8703f, 0x5a2f36, 0xf0b47a), 0.8F, 0.4F);
constexpr Material kCrockery = glossy(material(0x9aa3b8, 0x4d5070, 0xdfe3ee), 0.5F, 0.2F);

}  // namespace

void drawShelf(Canvas& canvas, Point left, double width) {
    const auto placed = canvas.placed(left);
    constexpr double kEvery = 38;
    for (int i = 0; 24 + i * kEvery < width; ++i) {
        const double x = 14 + i * kEvery;
        const bool pot = i % 2 == 0;
        if (pot) {
            canvas.part(rectangle(x - 11, -21, 22, 21, 5), kCopper, {.bevel = 8, .line = 1.1});
            canvas.part(rectangle(x - 12.5, -23, 25, 5, 2), kCopper, {.bevel = 2.4, .line = 1});
            canvas.part(circle({x, -25.5}, 2.4), kCopper, {.bevel = 2, .line = 0.8});
        } else {
            canvas.part(ellipse({x, -13}, 12, 12), kCrockery, {.bevel = 5, .line = 1.1});
            canvas.part(ring({x, -13}, 8, 6.6), kCrockery, {.bevel = 1, .line = 0, .shadow = 0});
        }
    }
    canvas.part(rectangle(0, 0, width, 6, 2), kWood, {.bevel = 2.6, .line = 1.2, .shadow = 0.6F});
    for (const double x : {12.0, width - 12})
        canvas.part(polygon({{x - 3, 5}, {x + 3, 5}, {x + 2, 15}, {x - 2, 15}}, 1), kWood, {.bevel = 2, .line = 1});
}

void drawTiledFloor(Canvas& canvas, const TiledFloor& floor) {
    const double top = floor.rows.front();
    const double end = floor.rows.back();
    const double gap = 0.8 * floor.scale;
    const auto at = [&](double x, double y) {
        const double share = (y - floor.vanishing.y) / (end - floor.vanishing.y);
        return Point{floor.vanishing.x + (x - floor.vanishing.x) * share, y};
    };
    canvas.flat(rectangle(0, top, floor.width, end - top), rgb(0x2a1c28));
    for (std::size_t row = 0; row + 1 < floor.rows.size(); ++row) {
        const double upper = floor.rows[row] + gap;
        const double lower = floor.rows[row + 1] - gap / 2;
        for (int column = -5; column < 11; ++column) {
            const double left = column * floor.every + gap;
            const double right = (column + 1) * floor.every - gap;
            const bool light = (static_cast<int>(row) + column) % 2 == 0;
            canvas.part(
                polygon({at(left, upper), at(right, upper), at(right, lower), at(left, lower)}, 2 * floor.scale),
                glossy(material(light ? rgb(0x9c7f70) : rgb(0x5d4052)), 0.25F, 0.05F),
                {.bevel = 2.4 * floor.scale, .line = 0, .shadow = 0});
        }
    }
    canvas.shadeRows(top, top + 0.36 * (end - top), 0.5F, 0.95F);
}

namespace {

/// Row in which the floor meets the wall.
constexpr double kFloorTop = 206;
constexpr std::array kFloorRows{kFloorTop, 219.0, 236.0, 258.0, 290.0};
constexpr TiledFloor kFloor{.rows = kFloorRows, .every = 58, .vanishing = {200, 40}, .width = 400, .scale = 1};

/// The fire lights what has been drawn.
void lightKitchen(Canvas& canvas) {
    canvas.glow({20, 180}, 360, kTurma.glow, 0.42F);
    canvas.dimAround({110, 190}, 420, 0.5F);
}

/// The hole that Grub's head looks out of.
constexpr Rect kHole{10, 224, 182, 54};

void drawKitchen(Canvas& canvas, const Rect&) {
    drawGradient(canvas, {0, 0, 382, kFloorTop}, rgb(0x5c404c), rgb(0x432f42));
    {
        const auto paint = canvas.group({.box = Rect{0, 150, 382, kFloorTop - 150}});  // glazed tiles up to the hip
        canvas.flat(rectangle(0, 150, 382, 60), rgb(0x2c2032));
        for (int i = 0; i < 34; ++i) {
            const int row = i / 17;
            canvas.part(rectangle(i % 17 * 23 - 4 + row * 11, 156 + row * 25, 21.5, 23.5, 2),
                        glossy(material(rgb(0x54455c)), 0.3F, 0.05F), {.bevel = 2.6, .line = 0, .shadow = 0});
        }
        canvas.part(rectangle(-4, 149, 400, 7, 2), kWood, {.bevel = 2.6, .line = 1.1});
        canvas.shadeRows(150, kFloorTop, 0.8F, 0.7F);
    }
    {
        const auto floor = canvas.group();
        drawTiledFloor(canvas, kFloor);
    }
    drawShelf(canvas, {124, 116}, 118);
    drawHearth(canvas, {-52, 82}, 1.02);
    lightKitchen(canvas);
    drawPiece(canvas, "bonuses\\modul_stol_pust", {172, 226 - 62 * 1.25}, 1.25);
    canvas.part(ellipse(kHole.centre(), kHole.width / 2, kHole.height / 2), stony(rgb(0x1a1220), 0.5F, 0.1F, 0),
                {.bevel = 3, .line = 1.6, .shadow = 0});
}

/// What lies in front of the head in the hole: the tiles before it, some of them loose.
void drawHoleEdge(Canvas& canvas, const Rect&) {
    const Point middle = kHole.centre();
    const double rx = kHole.width / 2;
    const double ry = kHole.height / 2 - 2;
    constexpr double kRound = 0.5523;  // of a quarter circle's handles
    const Mask front = canvas.mask(loop({{middle.x - rx, middle.y},
                                         {middle.x - rx, middle.y + ry * kRound},
                                         {middle.x - rx * kRound, middle.y + ry},
                                         {middle.x, middle.y + ry},
                                         {middle.x + rx * kRound, middle.y + ry},
                                         {middle.x + rx, middle.y + ry * kRound},
                                         {middle.x + rx, middle.y},
                                         {middle.x + rx + 6, 280},
                                         {middle.x + rx + 6, 290},
                                         {middle.x + rx, 300},
                                         {middle.x - rx, 300},
                                         {middle.x - rx - 6, 290},
                                         {middle.x - rx - 6, 280},
                                         {middle.x - rx, 276},
                                         {middle.x - rx, 270},
                                         {middle.x - rx, middle.y}}));
    {
        const auto before = canvas.group({.clip = &front});
        drawTiledFloor(canvas, kFloor);
        lightKitchen(canvas);
    }
    VectorPath rim = curve({{middle.x - rx, middle.y + 2},
                            {middle.x - rx, middle.y + ry * kRound},
                            {middle.x - rx * kRound, middle.y + ry},
                            {middle.x, middle.y + ry},
                            {middle.x + rx * kRound, middle.y + ry},
                            {middle.x + rx, middle.y + ry * kRound},
                            {middle.x + rx, middle.y + 2}});
    canvas.flat(rim, kInk, {.stroke = 4.5});
    const Material earth = stony(rgb(0x7a5a58), 0.6F, 0.1F);
    for (const Joint& clod : {Joint{{50, 268}, 6}, Joint{{66, 273}, 8}, Joint{{93, 275}, 6.6}, Joint{{121, 274}, 8.4},
                              Joint{{139, 269}, 5.6}})
        drawRubblePiece(canvas, clod.at, 2.2 * clod.radius, 1.5 * clod.radius, std::sin(clod.at.x), rgb(0x7a5a58));
    for (const Joint& crumb :
         {Joint{{58, 275}, 3}, Joint{{80, 277}, 3.6}, Joint{{106, 279}, 3}, Joint{{131, 278}, 2.6}})
        canvas.part(circle(crumb.at, crumb.radius), earth, {.bevel = 3, .line = 1.1});
    const Material loose = glossy(material(rgb(0xa98a78)), 0.25F, 0.1F);
    canvas.part(polygon({{150, 262}, {196, 244}, {212, 262}, {168, 282}}, 3), material(rgb(0x4a3444)),
                {.bevel = 3, .line = 1.5, .shadow = 0.5F});
    canvas.part(polygon({{150, 256}, {196, 238}, {212, 256}, {168, 276}}, 3), loose, {.bevel = 3, .line = 1.2});
    for (const Joint& crumb : {Joint{{24, 276}, 5}, Joint{{36, 283}, 3.4}, Joint{{226, 276}, 4}, Joint{{14, 266}, 3},
                               Joint{{214, 282}, 2.6}})
        canvas.part(circle(crumb.at, crumb.radius), earth, {.bevel = 3, .line = 1.1});
}

constexpr std::array kSets{
    //         name            px   px   clear places
    SetDrawing{"kitchen", 382, 288, drawKitchen},
    SetDrawing{"kitchen-hole", 382, 288, drawHoleEdge, true},
};

}  // namespace

std::span<const SetDrawing> kitchenSets() { return kSets; }

}  // namespace grub
