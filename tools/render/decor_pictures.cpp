#include "decor_pictures.h"

#include <array>
#include <cmath>

#include "lantern.h"
#include "masonry.h"
#include "palette.h"
#include "rig.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- lights

/// A flame whose tip bends by `bend` pixels.
void drawFlame(Canvas& canvas, double bend, double height) {
    const Material fire = glossy(material(0xff8a2a, 0xe8482a, 0xffd25a), 0);
    const double tip = 34 - height;
    canvas.part(loop({{32 + bend, tip},
                      {37 + bend * 0.6, tip + 10},
                      {41.5, 22},
                      {41.5, 28},
                      {41.5, 34},
                      {37, 36},
                      {32, 36},
                      {27, 36},
                      {22.5, 34},
                      {22.5, 28},
                      {22.5, 22},
                      {30 + bend * 0.6, tip + 12},
                      {32 + bend, tip}}),
                fire, {.bevel = 6, .line = 1, .shadow = 0});
    canvas.flat(loop({{32 + bend * 0.5, tip + 11},
                      {35, 25},
                      {37, 27},
                      {37, 30.5},
                      {37, 34},
                      {35, 35},
                      {32, 35},
                      {29, 35},
                      {27, 34},
                      {27, 30.5},
                      {27, 27},
                      {31, 26},
                      {32 + bend * 0.5, tip + 11}}),
                rgb(0xfff2a8), {.alpha = 0.95F});
}

/// A torch of the prison: an iron basket on an arm.
void drawTorch(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    canvas.halo({32, 26}, 30, kTurma.glow, 0.5F + 0.04F * static_cast<float>(wave(2 * phase)));
    canvas.part(limb({{{32, 42}, 3.4}, {{32, 58}, 2.2}}), kWood, {.bevel = 3, .line = 1.2});
    drawFlame(canvas, 2.4 * wave(phase), 25 + 1.8 * wave(2 * phase + 0.1));
    canvas.part(polygon({{22.5, 33}, {41.5, 33}, {38, 44}, {26, 44}}, 2), kDarkMetal, {.bevel = 3, .line = 1.2});
    for (const double x : {28.6, 35.4})
        canvas.flat(polyline({{x, 34.5}, {32 + (x - 32) * 0.7, 43}}), rgb(0xff9a3c), {.alpha = 0.8F, .stroke = 1.6});
    canvas.part(rectangle(21.5, 31.6, 21, 4, 1.8), kMetal, {.bevel = 1.8, .line = 1});
}

/// A torch that leans from a holder on the wall, facing left as the file does; the other side is its mirror.
void drawLeaningTorch(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    canvas.halo({27, 25}, 25, kTurma.glow, 0.5F + 0.05F * static_cast<float>(wave(2 * phase)));
    canvas.part(rectangle(42, 43, 7, 17, 2.4), kDarkMetal, {.bevel = 3, .line = 1.2});
    canvas.part(limb({{{31, 41}, 3.2}, {{46, 56}, 2.2}}), kWood, {.bevel = 2.8, .line = 1.2});
    canvas.part(rectangle(36.5, 47, 9, 5, 2), kDarkMetal, {.bevel = 2.2, .line = 1});
    const auto aside = canvas.placed({-4, 2});
    drawFlame(canvas, 2.6 * wave(phase), 24 + 2 * wave(2 * phase + 0.1));
    canvas.part(polygon({{23, 33}, {41, 33}, {39.5, 42}, {30, 43.5}}, 2), kDarkMetal, {.bevel = 3, .line = 1.2});
    canvas.part(rectangle(22, 31.6, 20, 4, 1.8), kMetal, {.bevel = 1.8, .line = 1});
}

/// Water that gathers at the top of the cell, falls, and splashes in the last two pictures.
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

void drawWallLamp(Canvas& canvas, FrameOf) {
    canvas.halo({32, 24}, 23, kTurma.glow, 0.5F);
    canvas.part(circle({32, 6}, 3.4), kDarkMetal, {.bevel = 2.4, .line = 1});
    drawLantern(canvas, {32, 24});
}

/// Light on the wall round a lamp, three cells by two. The lamp hangs in the middle cell of the lower row.
constexpr Point kLampAt{96, 88};

template <int Column, int Row>
void drawLightPool(Canvas& canvas, FrameOf) {
    const Point origin{-kCellSize * Column, -kCellSize * Row};
    // Fades to nothing at all four sides: it reaches farther up and sideways than down.
    const auto cell = canvas.placed(origin + kLampAt, 0, 1, 1);
    canvas.haloBetween({0, 0}, 94, 87, 39, kTurma.glow, 0.55F);
}

/// A lamp on a long or a short chain, in front of everything.
void drawHangingLamp(Canvas& canvas, double length) {
    canvas.halo({32, length + 14}, 19, kTurma.glow, 0.4F);
    for (int link = 0; link * 6 < length - 3; ++link) {
        canvas.part(ellipse({32, 1.0 + 6 * link}, 1.7, 3.3), kDarkMetal,
                    {.bevel = 0.8, .line = 0.7, .shadow = 0, .stroke = 1.4});
    }
    drawLantern(canvas, {32, length + 14});
}
void drawLongLamp(Canvas& canvas, FrameOf) { drawHangingLamp(canvas, 34); }
void drawShortLamp(Canvas& canvas, FrameOf) { drawHangingLamp(canvas, 12); }

// ---- shadows: laid over the wall below floors and blocks

/// The shadow of `depth` rows below an edge at the top.
void drawShadowBelow(Canvas& canvas, double depth, float strength) {
    constexpr double kStep = 0.25;
    for (int step = -64; step * kStep < depth; ++step) {
        const double y = step * kStep;
        const double share = y < 0 ? 1 : std::pow(1 - y / depth, 1.4);
        canvas.flat(rectangle(-16, y, 96, kStep), rgb(0x0c0818), {.alpha = strength * static_cast<float>(share)});
    }
}
void drawShade(Canvas& canvas, FrameOf) { drawShadowBelow(canvas, 32, 0.62F); }
void drawDeepShade(Canvas& canvas, FrameOf) { drawShadowBelow(canvas, 56, 0.7F); }
void drawFaintShade(Canvas& canvas, FrameOf) { drawShadowBelow(canvas, 22, 0.45F); }

// ---- on the wall

void drawWindow(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(10, 7, 44, 47, 5), stony(kTurma.solid[1] * 0.74F, 0.8F, 0.1F, 0.05F),
                {.bevel = 4, .line = 1.2});
    const VectorPath opening = rectangle(16.5, 13, 31, 35, 3);
    canvas.flat(opening, rgb(0x0e1430));
    const Mask sky = canvas.mask(opening);
    canvas.flat(ellipse({34, 50}, 22, 26), rgb(0x24306a), {.alpha = 0.8F, .clip = &sky});
    canvas.flat(circle({40, 22}, 6), rgb(0xfff3c8), {.clip = &sky});
    canvas.flat(circle({42.8, 20.4}, 5.2), rgb(0x0e1430), {.clip = &sky});
    for (const Point star : {Point{21, 18}, Point{28, 30}, Point{36, 39}, Point{21, 41}, Point{45, 34}}) {
        canvas.flat(circle(star, 0.9), rgb(0xdfe6ff), {.alpha = 0.9F, .clip = &sky});
    }
    for (const double x : {24.0, 32.0, 40.0})
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

constexpr Material kBone = glossy(material(0xe8dcc4, 0x8a6f80, 0xfffaec), 0.3F);

void drawBone(Canvas& canvas, Point from, Point to, double thickness) {
    const Point along = (to - from) * (1 / length(to - from));
    const Point across{-along.y, along.x};
    VectorPath bone = limb({{from, thickness}, {to, thickness}});
    for (const Point end : {from, to}) {
        for (const double side : {-1.0, 1.0})
            bone.unite(circle(end + across * (side * thickness * 0.95), thickness * 1.15));
    }
    canvas.part(bone, kBone, {.bevel = thickness * 1.1, .line = 1.1});
}

void drawSkullAt(Canvas& canvas, Point at, double angle) {
    const auto laid = canvas.placed(at, angle);
    canvas.part(loop({{-10, -2},  {-10, -10}, {-5, -13}, {0, -13},    {5, -13},   {10, -10}, {10, -2}, {10, 2},
                      {7.5, 3.5}, {6.5, 5},   {6.2, 7},  {6, 9},      {5.6, 9.6}, {3, 10},   {-3, 10}, {-5.6, 9.6},
                      {-6, 9},    {-6.2, 7},  {-6.5, 5}, {-7.5, 3.5}, {-10, 2},   {-10, -2}}),
                kBone, {.bevel = 7, .line = 1.2});
    for (const double x : {-4.2, 4.2}) canvas.flat(ellipse({x, -1}, 2.9, 3.2), rgb(0x3a2436));
    canvas.flat(polygon({{0, 2}, {1.5, 4.8}, {-1.5, 4.8}}, 0.5), rgb(0x3a2436));
    for (const double x : {-2.6, 0.0, 2.6})
        canvas.flat(polyline({{x, 6.8}, {x, 9.4}}), rgb(0x3a2436), {.alpha = 0.8F, .stroke = 0.9});
}

void drawSkull(Canvas& canvas, FrameOf) { drawSkullAt(canvas, {32, 51.4}, -0.06); }

void drawBones(Canvas& canvas, FrameOf) {
    drawBone(canvas, {12, 58}, {34, 50}, 2);
    drawBone(canvas, {22, 50}, {46, 58.4}, 2.1);
    drawSkullAt(canvas, {45, 51}, 0.25);
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

constexpr std::array kPictures{
    //            name                 px  px frames
    PictureEntry{"fon\\fakel", 64, 64, 8, Ground::Clear, drawTorch},
    PictureEntry{"kam_left", 64, 64, 8, Ground::Clear, drawLeaningTorch},
    PictureEntry{"kam_right", 64, 64, 8, Ground::Clear, drawLeaningTorch},
    PictureEntry{"kapli", 64, 64, 10, Ground::Clear, drawDrops},
    PictureEntry{"fon\\lampa", 64, 64, 1, Ground::Clear, drawWallLamp},
    PictureEntry{"lampalong", 64, 64, 1, Ground::Clear, drawLongLamp},
    PictureEntry{"lampashort", 64, 64, 1, Ground::Clear, drawShortLamp},
    PictureEntry{"fon\\a11", 64, 64, 1, Ground::Clear, drawLightPool<0, 0>},
    PictureEntry{"fon\\a12", 64, 64, 1, Ground::Clear, drawLightPool<1, 0>},
    PictureEntry{"fon\\a13", 64, 64, 1, Ground::Clear, drawLightPool<2, 0>},
    PictureEntry{"fon\\a21", 64, 64, 1, Ground::Clear, drawLightPool<0, 1>},
    PictureEntry{"fon\\a22", 64, 64, 1, Ground::Clear, drawLightPool<1, 1>},
    PictureEntry{"fon\\a23", 64, 64, 1, Ground::Clear, drawLightPool<2, 1>},
    PictureEntry{"fon\\sh1_proz", 64, 64, 1, Ground::Clear, drawShade},
    PictureEntry{"fon\\sh2_proz", 64, 64, 1, Ground::Clear, drawDeepShade},
    PictureEntry{"fon\\sh3_proz", 64, 64, 1, Ground::Clear, drawFaintShade},
    PictureEntry{"fon\\window", 64, 64, 1, Ground::Clear, drawWindow},
    PictureEntry{"dveri\\reshet", 64, 64, 1, Ground::Clear, drawGrille},
    PictureEntry{"fon\\dpip", 64, 64, 1, Ground::Clear, drawDrain},
    PictureEntry{"fon\\ruki", 64, 64, 1, Ground::Clear, drawShackles},
    PictureEntry{"fon\\bochka", 64, 64, 1, Ground::Clear, drawBarrel},
    PictureEntry{"fon\\kreslo", 64, 64, 1, Ground::Clear, drawChair},
    PictureEntry{"fon\\skull", 64, 64, 1, Ground::Clear, drawSkull},
    PictureEntry{"fon\\kosti", 64, 64, 1, Ground::Clear, drawBones},
    PictureEntry{"poly\\paut", 64, 64, 1, Ground::Clear, drawWebLeft},
    PictureEntry{"poly\\paut1", 64, 64, 1, Ground::Clear, drawWebRight},
};

}  // namespace

std::span<const PictureEntry> decorPictures() { return kPictures; }

}  // namespace grub
