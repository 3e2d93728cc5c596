#include "turma_room.h"

#include <array>
#include <cmath>
#include <numbers>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- on the wall

void drawWindow(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(10, 7, 44, 47, 5), stony(kTurma.solid[1] * 0.74F, 0.8F, 0.1F, 0.05F),
                {.bevel = 4, .line = 1.2});
    const VectorPath opening = rectangle(16.5, 13, 31, 35, 3);
    canvas.flat(opening, rgb(0x18214e));
    // Moon and stars stand between the bars.
    canvas.flat(VectorPath{}
                    .moveTo({39.6, 18})
                    .curveTo({32.1, 17.4}, {32.1, 26.6}, {39.6, 26})
                    .curveTo({35.4, 24.6}, {35.4, 19.4}, {39.6, 18})
                    .close(),
                rgb(0xfff3c8));
    for (const Point star : {Point{27.6, 19}, Point{25.8, 33}, Point{36.4, 37}, Point{18.6, 41}, Point{45.4, 31}})
        canvas.flat(circle(star, 0.9), rgb(0xdfe6ff), {.alpha = 0.9F});
    for (const double x : {22.0, 32.0, 42.0})
        canvas.part(rectangle(x - 1.7, 11, 3.4, 39, 1), kDarkMetal, {.bevel = 1.8, .line = 0.9});
    canvas.part(rectangle(8, 51, 48, 6.5, 2), stony(kTurma.solid[0] * 0.78F, 0.8F, 0.1F, 0.1F),
                {.bevel = 2.6, .line = 1.1});
}

void drawGrille(Canvas& canvas, FrameOf) {
    const VectorPath opening = rectangle(8, 8, 48, 48, 4);
    canvas.part(opening, stony(rgb(0x191830), 0, 0), {.bevel = 2, .line = 1.2});
    const Mask inside = canvas.mask(opening);
    for (const double x : {16.0, 26.7, 37.3, 48.0})
        canvas.part(rectangle(x - 1.8, 4, 3.6, 56, 1), kDarkMetal, {.bevel = 1.8, .line = 0.9, .clip = &inside});
    for (const double y : {20.0, 42.0})
        canvas.part(rectangle(4, y, 56, 3.6, 1), kDarkMetal, {.bevel = 1.8, .line = 0.9, .clip = &inside});
}

/// The mouth of a drain with a dark run below it.
void drawDrain(Canvas& canvas, FrameOf) {
    canvas.flat(limb({{{32, 34}, 5}, {{31, 50}, 4}, {{32, 60}, 1.5}}), rgb(0x141a34), {.alpha = 0.5F});
    canvas.part(circle({32, 28}, 14), stony(kTurma.solid[1] * 0.8F, 0.8F, 0.1F, 0.1F), {.bevel = 4, .line = 1.2});
    canvas.flat(circle({32, 28}, 9), rgb(0x0e0c1c));
    const Mask mouth = canvas.mask(circle({32, 28}, 9));
    for (const double x : {28.0, 32.0, 36.0})
        canvas.part(rectangle(x - 1.1, 16, 2.2, 24, 0.8), kDarkMetal, {.bevel = 1.1, .line = 0.6, .clip = &mouth});
    canvas.flat(limb({{{32, 36}, 2.4}, {{32, 41}, 1.4}}), kTurma.accent, {.alpha = 0.55F});
}

/// Shackles on two chains.
void drawShackles(Canvas& canvas, FrameOf) {
    for (const double side : {-1.0, 1.0}) {
        const double x = 32 + side * 13;
        canvas.part(circle({x, 12}, 3.4), kDarkMetal, {.bevel = 2.6, .line = 1});
        for (int i = 0; i < 4; ++i) {
            const Point at{x + side * 0.8 * i, 18.0 + 6 * i};
            canvas.part(i % 2 == 0 ? ellipse(at, 2.4, 3.8) : ellipse(at, 0.9, 3.6), kDarkMetal,
                        {.bevel = 0.9, .line = 0.7, .stroke = 1.6});
        }
        canvas.part(ring({x + side * 3, 47}, 7.4, 4.8), kDarkMetal, {.bevel = 1.3, .line = 1});
    }
}

// ---- on the floor

void drawBarrel(Canvas& canvas, FrameOf) {
    Material staves = glossy(material(0x8a5a3a, 0x40253a, 0xc48a58), 0.15F);
    staves.bump = 0.3F;
    staves.grain = 0.12F;
    const VectorPath body = loop({{19, 17},
                                  {24, 14.6},
                                  {40, 14.6},
                                  {45, 17},
                                  {51.5, 30},
                                  {51.5, 46},
                                  {45, 60.6},
                                  {40, 62},
                                  {24, 62},
                                  {19, 60.6},
                                  {12.5, 46},
                                  {12.5, 30},
                                  {19, 17}});
    canvas.part(body, staves, {.bevel = 12, .line = 1.4});
    const Mask inBody = canvas.mask(body);
    for (const double x : {20.0, 28.0, 36.0, 44.0}) {
        canvas.flat(curve({{32 + (x - 32) * 0.8, 14},
                           {x + (x - 32) * 0.35, 28},
                           {x + (x - 32) * 0.35, 48},
                           {32 + (x - 32) * 0.8, 62}}),
                    rgb(0x2a1828), {.alpha = 0.4F, .stroke = 1, .clip = &inBody});
    }
    for (const double y : {21.0, 50.0})
        canvas.part(rectangle(8, y, 48, 5, 1), kDarkMetal, {.bevel = 2.4, .line = 0.9, .clip = &inBody});
}

void drawChair(Canvas& canvas, FrameOf) {
    const auto leg = [&](double x, double top) {
        canvas.part(rectangle(x - 2.2, top, 4.4, 62 - top, 1.4), kWood, {.bevel = 2.2, .line = 1.2});
    };
    leg(20, 14);
    leg(44, 14);
    canvas.part(rectangle(16.5, 12, 31, 7, 2.4), kWood, {.bevel = 3, .line = 1.2});
    canvas.part(rectangle(19, 25, 26, 5, 1.6), kWood, {.bevel = 2.2, .line = 1});
    leg(17, 44);
    leg(47, 44);
    canvas.part(rectangle(13, 39, 38, 7.5, 2.6), kWood, {.bevel = 3.2, .line = 1.3});
}

void drawSkullOnFloor(Canvas& canvas, FrameOf) { drawSkull(canvas, {32, 51.4}, -0.06); }

void drawBones(Canvas& canvas, FrameOf) {
    drawBone(canvas, {12, 58}, {34, 50}, 2);
    drawBone(canvas, {22, 50}, {46, 58.4}, 2.1);
    drawSkull(canvas, {45, 51}, 0.25);
    drawBone(canvas, {8, 52}, {18, 59}, 1.6);
}

/// A cobweb in the corner of a cell; `side` 1 upper left, -1 upper right.
void drawWeb(Canvas& canvas, double side) {
    const auto turned = canvas.placed({side > 0 ? 0.0 : kCellSize, 0}, 0, side, 1);
    constexpr std::array kEnds{Point{44, 1}, Point{40, 17}, Point{31, 30}, Point{18, 40}, Point{1, 46}};
    const FlatStyle thread{.alpha = 0.55F, .stroke = 0.9};
    for (const Point end : kEnds) canvas.flat(polyline({{0, 0}, end}), rgb(0xd6dcf0), thread);
    for (const double share : {0.3, 0.52, 0.74, 0.95}) {
        for (std::size_t i = 0; i + 1 < kEnds.size(); ++i) {
            const Point a = kEnds[i] * share;
            const Point b = kEnds[i + 1] * share;
            const Point sag = mix(a, b, 0.5) * 0.88;
            canvas.flat(curve({a, sag, sag, b}), rgb(0xd6dcf0), {.alpha = 0.5F, .stroke = 0.8});
        }
    }
}
void drawWebLeft(Canvas& canvas, FrameOf) { drawWeb(canvas, 1); }
void drawWebRight(Canvas& canvas, FrameOf) { drawWeb(canvas, -1); }

// ---- water

/// Water that gathers at the top of the cell, falls, and splashes in the last two frames.
void drawDrops(Canvas& canvas, FrameOf frame) {
    const Material water = glossy(material(0x8fd4e8, 0x2f6a9a, 0xf0ffff), 1, 0.5F);
    constexpr int kFalls = 4;
    constexpr int kSplashes = 8;
    const double time = frame.index;
    if (frame.index < kFalls) {
        const double size = 1.4 + 0.5 * time;
        canvas.part(ellipse({32, size + 0.6 * time}, size, size * 1.25), water, {.bevel = 2.4, .line = 0.8});
    } else if (frame.index < kSplashes) {
        const double y = 8 + 3.3 * (time - kFalls + 0.5) * (time - kFalls + 0.5) + 2;
        canvas.part(loop({{32, y - 6},
                          {33, y - 2},
                          {34.8, y},
                          {34.8, y + 2},
                          {34.8, y + 4},
                          {33.4, y + 5},
                          {32, y + 5},
                          {30.6, y + 5},
                          {29.2, y + 4},
                          {29.2, y + 2},
                          {29.2, y},
                          {31, y - 2},
                          {32, y - 6}}),
                    water, {.bevel = 2.6, .line = 0.8});
    } else {
        const double age = time - kSplashes + 1;
        canvas.flat(ellipse({32, 61}, 4 + 4 * age, 1.2), rgb(0x8fd4e8), {.alpha = 0.5F / static_cast<float>(age)});
        for (const double side : {-1.0, -0.4, 0.5, 1.0}) {
            canvas.part(circle({32 + side * (3 + 4 * age), 58 - 4 * age * (1.4 - std::abs(side)) + 2 * age * age},
                               2.2 - 0.5 * age),
                        water, {.bevel = 1.6, .line = 0.7});
        }
    }
}

/// Drool that a dog shakes off: three drops fly to one side and fall. `side` -1 left, 1 right.
void drawDrool(Canvas& canvas, FrameOf frame, double side) {
    const Material drool = glossy(material(0xc4dcec, 0x5a7ca0, 0xffffff), 1, 0.5F);
    const auto flying = canvas.placed({32, 0}, 0, side, 1);
    for (int i = 0; i < 3; ++i) {
        const double age = frame.index - 0.8 * i;
        if (age < 0) continue;
        const Point at{2 + (3.4 - 0.5 * i) * age, 30 - (3.2 - 0.9 * i) * age + 0.86 * age * age};
        const double size = 2.6 - 0.12 * age - 0.3 * i;
        if (at.y < 60) canvas.part(ellipse(at, size, size * 1.25), drool, {.bevel = 2.4, .line = 0.8});
    }
}
void drawDroolLeft(Canvas& canvas, FrameOf frame) { drawDrool(canvas, frame, -1); }
void drawDroolRight(Canvas& canvas, FrameOf frame) { drawDrool(canvas, frame, 1); }

// ---- rails of a frame

constexpr int kRailLength = 240;

void drawRail(Canvas& canvas) {
    canvas.part(rectangle(1, 2, kRailLength - 2, 12, 4), kDarkMetal, {.bevel = 5, .line = 1});
    for (int x = 8; x < kRailLength; x += 16) canvas.part(circle({1.0 * x, 8}, 2), kMetal, {.bevel = 1.7, .line = 0.6});
}
void drawRailAcross(Canvas& canvas, FrameOf) { drawRail(canvas); }
void drawRailUpright(Canvas& canvas, FrameOf) {
    const auto turned = canvas.placed({16, 0}, std::numbers::pi / 2);
    drawRail(canvas);
}

constexpr std::array kStrips{
    //            name                 px  px frames
    StripDrawing{"kapli", 64, 64, 10, Ground::Clear, drawDrops},
    StripDrawing{"fon\\window", 64, 64, 1, Ground::Clear, drawWindow},
    StripDrawing{"dveri\\reshet", 64, 64, 1, Ground::Clear, drawGrille},
    StripDrawing{"fon\\dpip", 64, 64, 1, Ground::Clear, drawDrain},
    StripDrawing{"fon\\ruki", 64, 64, 1, Ground::Clear, drawShackles},
    StripDrawing{"fon\\bochka", 64, 64, 1, Ground::Clear, drawBarrel},
    StripDrawing{"fon\\kreslo", 64, 64, 1, Ground::Clear, drawChair},
    StripDrawing{"fon\\skull", 64, 64, 1, Ground::Clear, drawSkullOnFloor},
    StripDrawing{"fon\\kosti", 64, 64, 1, Ground::Clear, drawBones},
    StripDrawing{"poly\\paut", 64, 64, 1, Ground::Clear, drawWebLeft},
    StripDrawing{"poly\\paut1", 64, 64, 1, Ground::Clear, drawWebRight},
    StripDrawing{"polkan\\drop_l", 64, 64, 8, Ground::Clear, drawDroolLeft},
    StripDrawing{"polkan\\drop_r", 64, 64, 8, Ground::Clear, drawDroolRight},
    StripDrawing{"gor", 240, 16, 1, Ground::Clear, drawRailAcross},
    StripDrawing{"vert", 16, 240, 1, Ground::Clear, drawRailUpright},
};

}  // namespace

std::span<const StripDrawing> turmaDecorStrips() { return kStrips; }

}  // namespace grub
