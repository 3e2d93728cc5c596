#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "meadow_parts.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr Material kEarth = stony(rgb(0x8a5f44), 1.6F, 0.16F, 0);

// ---- at sunrise

void drawSunrise(Canvas& canvas, const Rect& area) {
    constexpr Point kSun{246, 152};
    constexpr double kHorizon = 176;
    drawGradient(canvas, {0, 0, area.width, 90}, rgb(0x7d9cd6), rgb(0xd9c4d8));
    drawGradient(canvas, {0, 90, area.width, kHorizon - 90}, rgb(0xd9c4d8), rgb(0xffe2a4));
    {
        constexpr int kRays = 18;
        const auto rays = canvas.group({.cover = 0.42F});
        for (int i = 0; i < kRays; ++i) {
            const double angle = std::numbers::pi * (i + 0.5) / kRays + std::numbers::pi;
            const double half = i % 2 == 0 ? 0.055 : 0.03;
            const auto at = [&](double a) { return kSun + Point{std::cos(a), std::sin(a)} * 460; };
            canvas.flat(polygon({kSun, at(angle - half), at(angle + half)}), rgb(0xfff4c4));
        }
    }
    canvas.halo(kSun, 230, rgb(0xfff0b8), 0.75F);
    drawCloud(canvas, {404, 36}, 22);
    canvas.part(circle(kSun, 96), glossy(material(0xffe07a, 0xffc85a, 0xfff6c8), 0, 0),
                {.bevel = 30, .line = 0, .shadow = 0});
    canvas.part(ellipse({76, 200}, 150, 62), kFarGrass, {.bevel = 12, .line = 1, .shadow = 0});
    canvas.part(ellipse({410, 214}, 150, 62), kFarGrass, {.bevel = 12, .line = 1, .shadow = 0});
    drawFarPrison(canvas, {72, 142}, 0.95, rgb(0x7d7299));
    drawTree(canvas, {430, 166}, 46, rgb(0x6f9468));
    drawTree(canvas, {400, 164}, 34, rgb(0x7a9c70));
    canvas.flat(rectangle(0, 190, area.width, area.height - 190), kGrass.base);
    canvas.part(loop({{-20, 176},
                      {60, 150},
                      {150, 172},
                      {246, 166},
                      {350, 160},
                      {420, 166},
                      {490, 180},
                      {490, 200},
                      {490, 300},
                      {490, 300},
                      {300, 300},
                      {-20, 300},
                      {-20, 300},
                      {-20, 250},
                      {-20, 200},
                      {-20, 176}}),
                kGrass, {.bevel = 16, .line = 1.4});
    canvas.glow({246, 176}, 210, rgb(0xffe9a0), 0.55F);
    drawGrowth(canvas, {0, 184, area.width, 80}, 34, 7);
    for (const auto& [x, y, size, angle] :
         {std::array{166.0, 128.0, 20.0, 0.5}, std::array{148.0, 186.0, 15.0, -0.4},
          std::array{330.0, 150.0, 22.0, 1.0}, std::array{352.0, 196.0, 14.0, 0.2}, std::array{188.0, 78.0, 14.0, 0.9},
          std::array{312.0, 100.0, 13.0, -0.6}, std::array{132.0, 150.0, 9.0, 0.2}, std::array{372.0, 170.0, 9.0, 0.7}})
        drawRubblePiece(canvas, {x, y}, size, size * 0.8, angle, kEarth.base);
}

/// A molehill whose near side hides what comes out of it, as large as `area`. Around it nothing is drawn.
void drawMolehill(Canvas& canvas, const Rect& area) {
    constexpr std::uint32_t kLumps = 9;
    const Point middle{area.centre().x, area.height + 10};
    VectorPath hill = ellipse(middle, area.width * 0.46, area.height * 0.8);
    for (std::uint32_t i = 0; i < kLumps; ++i) {  // lumps on its outline, the ones at the rim larger
        const double angle = std::numbers::pi * (1 + (i + 0.5) / kLumps);
        const double rim = i > 1 && i + 2 < kLumps ? 1 : 0.6;
        hill.unite(circle(middle + Point{area.width * 0.41 * std::cos(angle), area.height * 0.76 * std::sin(angle)},
                          rim * (13 + 6 * randomShare(i, 1, 11))));
    }
    canvas.part(hill, kEarth, {.bevel = 13, .line = 2});
    for (std::uint32_t i = 0; i < 30; ++i) {
        const double angle = std::numbers::pi * (1 + randomShare(i, 2, 11));
        const double reach = std::sqrt(randomShare(i, 3, 11)) * 0.86;
        const Point at =
            middle + Point{area.width * 0.44 * std::cos(angle), area.height * 0.8 * std::sin(angle)} * reach;
        const double size = 3 + 4 * randomShare(i, 4, 11);
        canvas.part(ellipse(at, size, size * 0.8), stony(kEarth.base * (0.86F + 0.3F * randomShare(i, 5, 11)), 1, 0.1F),
                    {.bevel = size * 0.8, .line = 0.6, .shadow = 0.3F});
    }
    for (const double x : {10.0, 22.0, area.width - 24, area.width - 10})
        drawTuft(canvas, {x, area.height + 2}, 15, rgb(0x8ab45a));
}

// ---- at noon

/// The corner of a cottage: plaster between beams, a window with a curtain and flowers, the edge of a thatched roof.
void drawCottage(Canvas& canvas, double right, double floor) {
    constexpr Material kPlaster = stony(rgb(0xead6b0), 0.8F, 0.06F, 0);
    constexpr Material kThatch = stony(rgb(0xc09a58), 1.8F, 0.16F, 0);
    canvas.part(rectangle(-20, 20, right + 20, floor - 20, 2), kPlaster, {.bevel = 5, .line = 1.6});
    for (const double y : {34.0, 168.0})
        canvas.part(rectangle(-20, y, right + 20, 12, 2), kWood, {.bevel = 4, .line = 1.4});
    canvas.part(rectangle(right - 14, 30, 14, floor - 30, 2), kWood, {.bevel = 4, .line = 1.4});
    canvas.part(polygon({{-10, floor}, {-10, floor - 14}, {right + 4, floor - 12}, {right + 4, floor}}, 3),
                stony(rgb(0x9a94a0), 1.2F, 0.12F), {.bevel = 6, .line = 1.4});
    VectorPath eaves = rectangle(-20, -30, right + 42, 52, 4);
    for (int i = 0; 13 * i < right + 34; ++i) {
        const double x = 13.0 * i - 12;
        eaves.unite(circle({x, 22 + 2 * std::sin(x)}, 8));
    }
    canvas.part(eaves, kThatch, {.bevel = 12, .line = 1.6, .shadow = 0.5F});
}

/// A window of 70 by 76 pixels, its upper left corner at `corner`.
void drawCottageWindow(Canvas& canvas, Point corner) {
    const auto set = canvas.placed(corner);
    canvas.part(rectangle(-6, -6, 82, 88, 3), kWood, {.bevel = 4, .line = 1.4});
    const VectorPath panes = rectangle(0, 0, 70, 76, 2);
    canvas.flat(panes, rgb(0x5a4a58));
    const Mask inside = canvas.mask(panes);
    canvas.flat(polygon({{0, 76}, {0, 40}, {50, 0}, {70, 0}, {70, 10}, {20, 76}}), rgb(0x9a86a0),
                {.alpha = 0.35F, .clip = &inside});
    constexpr Material kCloth = glossy(material(0xf4ecdc, 0xb8a8b8, 0xffffff), 0.05F);
    for (const double side : {-1.0, 1.0}) {
        const auto half = canvas.placed({35, 0}, 0, side, 1);
        canvas.part(loop({{0, -4}, {6, 24}, {20, 40}, {38, 54}, {38, 40}, {38, 10}, {38, -4}}), kCloth,
                    {.bevel = 8, .line = 1.1, .clip = &inside});
        for (const double x : {12.0, 22.0})
            canvas.flat(curve({{x, -4}, {x + 3, 14}, {x + 8, 28}, {x + 14, 38}}), rgb(0xb09ac0),
                        {.alpha = 0.6F, .stroke = 2.4, .clip = &inside});
        canvas.part(rectangle(-1.5, 0, 3, 76), kWood, {.bevel = 1.5, .line = 0.9, .shadow = 0.2F});
    }
    canvas.part(rectangle(-8, 80, 86, 15, 3), kWood, {.bevel = 5, .line = 1.4});
    for (std::uint32_t i = 0; i < 7; ++i) {
        drawTuft(canvas, {2.0 + 11 * i, 82}, 13, rgb(0x5f8a40));
        drawFlower(canvas, {3.0 + 11 * i, 70 + 6 * randomShare(i, 2, 4)}, 4.4,
                   i % 2 == 0 ? rgb(0xf6eefc) : rgb(0xc9a4e6));
    }
}

/// A cloth on the grass, in checks; it lies in perspective, its upper edge in the row `top`.
void drawCloth(Canvas& canvas, double left, double right, double top, double bottom) {
    constexpr int kColumns = 16;
    constexpr int kRows = 3;
    constexpr double kSplay = 26;  // by how much the near edge is longer, at each side
    const auto at = [&](double column, double row) {
        const double depth = row / kRows;
        return Point{mix(static_cast<float>(left - kSplay * depth), static_cast<float>(right + kSplay * depth),
                         static_cast<float>(column / kColumns)),
                     top + (bottom - top) * (0.75 * depth + 0.25 * depth * depth)};
    };
    canvas.part(polygon({at(0, 0), at(kColumns, 0), at(kColumns, kRows), at(0, kRows)}, 3),
                glossy(material(0xfaf3e4, 0xc0b4c8, 0xffffff), 0.05F), {.bevel = 4, .line = 1.4, .shadow = 0.4F});
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            const int dyed = (row % 2 == 0 ? 1 : 0) + (column % 2 == 0 ? 1 : 0);
            if (dyed == 0) continue;
            canvas.flat(polygon({at(column, row), at(column + 1, row), at(column + 1, row + 1), at(column, row + 1)}),
                        rgb(0x6f8fd0), {.alpha = 0.32F * static_cast<float>(dyed)});
        }
    }
}

/// A jug and two cups, `floor` the row they stand on.
void drawJug(Canvas& canvas, double x, double floor) {
    constexpr Material kGlaze = glossy(material(0xd8c8a8, 0x86708a, 0xfff8e4), 0.7F);
    const auto stood = canvas.placed({x, floor});
    canvas.part(curve({{10, -34}, {26, -36}, {24, -12}, {10, -12}}), kGlaze, {.bevel = 2, .line = 1.2, .stroke = 4});
    canvas.part(loop({{-8, -44},
                      {-6, -34},
                      {-16, -26},
                      {-14, -12},
                      {-13, -2},
                      {-8, 0},
                      {0, 0},
                      {8, 0},
                      {13, -2},
                      {14, -12},
                      {16, -26},
                      {6, -34},
                      {9, -44},
                      {4, -41},
                      {-2, -41},
                      {-8, -44}}),
                kGlaze, {.bevel = 9, .line = 1.4});
    canvas.part(rectangle(-14, -20, 28, 5), glossy(material(rgb(0x6f8fd0)), 0.5F), {.bevel = 2, .line = 0.8});
    canvas.part(polygon({{24, -15}, {42, -15}, {39, 1}, {27, 1}}, 2), kGlaze, {.bevel = 5, .line = 1.2});
    canvas.flat(ellipse({33, -14.4}, 7.6, 2), rgb(0x5a3a40), {.alpha = 0.8F});
}

void drawPicnic(Canvas& canvas, const Rect& area) {
    constexpr double kHorizon = 176;
    drawGradient(canvas, {0, 0, area.width, kHorizon + 20}, rgb(0x6aa6e0), rgb(0xdff0ee));
    drawCloud(canvas, {330, 128}, 26);
    drawCloud(canvas, {470, 96}, 15);
    canvas.part(ellipse({280, 226}, 190, 62), kFarGrass, {.bevel = 12, .line = 1, .shadow = 0});
    canvas.part(ellipse({620, 230}, 260, 72), kFarGrass, {.bevel = 12, .line = 1, .shadow = 0});
    drawFarPrison(canvas, {310, 168}, 0.6, rgb(0x9a90b4));
    drawTree(canvas, {226, 190}, 64, rgb(0x6f9c5c));
    drawTree(canvas, {500, 186}, 78, rgb(0x669456));
    drawTree(canvas, {462, 182}, 50, rgb(0x7aa668));
    canvas.part(loop({{-20, 196},
                      {140, 178},
                      {300, 190},
                      {420, 184},
                      {560, 176},
                      {700, 178},
                      {800, 190},
                      {800, 240},
                      {800, 330},
                      {800, 330},
                      {500, 330},
                      {-20, 330},
                      {-20, 330},
                      {-20, 280},
                      {-20, 240},
                      {-20, 196}}),
                kGrass, {.bevel = 16, .line = 1.4});
    drawGrowth(canvas, {180, 200, area.width - 180, 44}, 26, 3);
    drawCottage(canvas, 150, 238);
    drawCottageWindow(canvas, {42, 72});
    canvas.glow({420, 220}, 320, rgb(0xfff4c8), 0.3F);
    drawCloth(canvas, 64, 520, 240, 286);
    drawJug(canvas, 334, 254);
    drawGrowth(canvas, {0, 284, area.width, 20}, 16, 5);
}

constexpr std::array kSets{
    //         name             px   px
    SetDrawing{"sunrise", 462, 264, drawSunrise},
    SetDrawing{"picnic", 776, 300, drawPicnic},
    SetDrawing{"molehill", 230, 80, drawMolehill, true},
};

}  // namespace

std::span<const SetDrawing> meadowSets() { return kSets; }

}  // namespace grub
