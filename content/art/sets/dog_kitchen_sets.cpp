#include <array>

#include "kitchen.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"

namespace grub {

namespace {

/// Row in which the floor meets the wall.
constexpr double kFloorTop = 414;
constexpr std::array kFloorRows{kFloorTop, 434.0, 462.0, 500.0, 548.0, 610.0};
constexpr TiledFloor kFloor{.rows = kFloorRows, .every = 116, .vanishing = {400, 120}, .width = 800, .scale = 1.4};

/// Plaster above, glazed tiles up to the hip.
void drawWall(Canvas& canvas) {
    constexpr double kRail = 306;
    constexpr double kTile = 46;
    drawGradient(canvas, {0, 0, 800, kFloorTop}, rgb(0x543a48), rgb(0x432f42));
    const auto tiles = canvas.group({.box = Rect{0, kRail, 800, kFloorTop - kRail}});
    canvas.flat(rectangle(0, kRail, 800, kFloorTop - kRail), rgb(0x2c2032));
    for (int row = 0; row < 3; ++row) {
        for (int column = -1; column < 18; ++column) {
            canvas.part(rectangle(column * kTile + row % 2 * kTile / 2 + 1, kRail + 10 + row * 37, kTile - 2, 35, 3),
                        glossy(material(rgb(0x54455c)), 0.3F, 0.05F), {.bevel = 4, .line = 0, .shadow = 0});
        }
    }
    canvas.part(rectangle(-10, kRail, 820, 12, 3), kWood, {.bevel = 4, .line = 1.4});
    canvas.shadeRows(kRail, kFloorTop, 0.85F, 0.6F);
}

/// A lamp under a tin shade. Its foot is the middle of the lower edge of the shade.
void drawLamp(Canvas& canvas, Point foot) {
    const auto hung = canvas.placed(foot);
    canvas.part(limb({{{0, -200}, 1.6}, {{0, -26}, 1.6}}), kDarkMetal, {.bevel = 1.4, .line = 1});
    canvas.part(ellipse({0, 2}, 15, 11), glossy(material(0xffdf8e, 0xf0a04a, 0xfffbe6), 0.3F),
                {.bevel = 9, .line = 1.2});
    canvas.part(loop({{-46, 0},
                      {-40, -16},
                      {-18, -24},
                      {-10, -32},
                      {-4, -34},
                      {4, -34},
                      {10, -32},
                      {18, -24},
                      {40, -16},
                      {46, 0},
                      {20, 5},
                      {-20, 5},
                      {-46, 0}}),
                glossy(material(0x5f7a78, 0x273c46, 0xb9d0c6), 0.8F, 0.4F), {.bevel = 11, .line = 1.5});
}

/// The dog's bowl with a bone that nobody has time for.
void drawBowl(Canvas& canvas, Point middle) {
    const auto placed = canvas.placed(middle);
    canvas.flat(ellipse({0, 14}, 58, 8), rgb(0x140a16), {.alpha = 0.5F});
    canvas.part(ellipse({0, -8}, 46, 10), glossy(material(rgb(0x2c2436)), 0.1F), {.bevel = 4, .line = 1.4});
    canvas.part(loop({{-40, -14},
                      {-44, -22},
                      {-36, -28},
                      {-30, -22},
                      {-10, -20},
                      {14, -24},
                      {30, -28},
                      {34, -36},
                      {44, -34},
                      {42, -24},
                      {50, -20},
                      {46, -12},
                      {36, -14},
                      {12, -10},
                      {-12, -6},
                      {-32, -10},
                      {-36, -6},
                      {-42, -8},
                      {-40, -14}}),
                glossy(material(0xe8dcc4, 0x8a6f80, 0xfffaec), 0.3F), {.bevel = 6, .line = 1.4});
    canvas.part(loop({{-47, -8},
                      {-30, 2},
                      {30, 2},
                      {47, -8},
                      {52, 4},
                      {54, 10},
                      {52, 15},
                      {30, 20},
                      {-30, 20},
                      {-52, 15},
                      {-54, 10},
                      {-52, 4},
                      {-47, -8}}),
                glossy(material(0x9aa6b8, 0x46506c, 0xe4eef6), 0.9F, 0.5F), {.bevel = 9, .line = 1.5});
}

void drawDogKitchen(Canvas& canvas, const Rect&) {
    constexpr Point kLampFoot{385, 186};
    drawWall(canvas);
    {
        const auto floor = canvas.group();
        drawTiledFloor(canvas, kFloor);
    }
    drawHearth(canvas, {-76, 194}, 1.78);
    {
        const auto large = canvas.placed({584, 232}, 0, 1.45, 1.45);
        drawShelf(canvas, {}, 156);
    }
    drawPiece(canvas, "bonuses\\modul_stol_pust", {586, 468 - 62 * 3.0}, 3.0);
    drawBowl(canvas, {738, 514});
    canvas.dimAround({385, 380}, 470, 0.34F);
    drawLamp(canvas, kLampFoot);
    drawBeam(canvas, kLampFoot, 70, {385, 640}, 560, rgb(0xffd9a0), 0.26F);
    canvas.glow(kLampFoot, 110, rgb(0xffd9a0), 0.5F);
    canvas.glow({385, 520}, 300, kTurma.glow, 0.16F);
}

/// Strokes on both sides of a tail that wags; the tail is in the middle.
void drawWag(Canvas& canvas, const Rect&) {
    for (const double side : {-1.0, 1.0}) {
        const auto turned = canvas.placed({40, 70}, side * 0.2, side, 1);
        for (const double reach : {24.0, 34.0}) {
            const double high = reach - 4;
            canvas.flat(
                curve({{reach, -8}, {reach, -0.55 * high - 8}, {0.8 * reach, -high - 4}, {0.55 * reach, -high - 12}}),
                rgb(0xf6ead8), {.alpha = 0.8F, .stroke = 2.6});
        }
    }
}

constexpr std::array kSets{
    //         name           px   px
    SetDrawing{"dog-kitchen", 800, 600, drawDogKitchen},
    SetDrawing{"wag", 80, 80, drawWag, true},
};

}  // namespace

std::span<const SetDrawing> dogKitchenSets() { return kSets; }

}  // namespace grub
