#include "floor_pictures.h"

#include <array>
#include <cmath>

#include "floor_drawing.h"
#include "noise.h"
#include "palette.h"
#include "rig.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- breaking: the hit lands while picture 0 is shown, then cap and bricks tip into the hole

constexpr double kGravity = 3.2;  // px a picture squared

/// How a stone leaves: the picture in which it comes loose, and its sideways speed and turn a picture.
struct Loosening {
    double start;
    double drift;
    double turn;
};

Loosening looseningOf(std::size_t stone, std::uint32_t seed) {
    const auto n = static_cast<std::uint32_t>(stone);
    const double middle = kFloorStones[stone].x + kFloorStones[stone].width / 2 - kCellSize / 2;
    const double depth = kFloorStones[stone].y / kCellSize;
    return {0.8 + 1.8 * depth + 0.7 * randomShare(n, 1, seed), -0.05 * middle + 2 * (randomShare(n, 2, seed) - 0.5),
            0.22 * (randomShare(n, 3, seed) - 0.5)};
}

/// The jagged ends of the bricks that stay in the walls of the hole.
void drawStubs(Canvas& canvas, std::uint32_t seed) {
    for (std::uint32_t course = 0; course < 3; ++course) {
        for (const double side : {0.0, 1.0}) {
            const auto n = course * 2 + static_cast<std::uint32_t>(side);
            const double y = 14 + 17 * course;
            const double reach = 2.5 + 3 * randomShare(n, 4, seed);
            const double wall = side * kCellSize;
            const double inward = side > 0 ? -1 : 1;
            canvas.part(polygon({{wall - 6 * inward, y},
                                 {wall + reach * inward, y + 1},
                                 {wall + (reach - 2) * inward, y + 7},
                                 {wall + (reach + 0.8) * inward, y + 13},
                                 {wall - 6 * inward, y + 15}},
                                1.4),
                        stony(kTurma.floor[n % 3] * 0.8F, 0.8F, 0.12F), {.bevel = 2, .line = 0.9, .shadow = 0.2F});
        }
    }
}

/// Rubble on the ground of the hole, `share` of it.
void drawRubble(Canvas& canvas, double share, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 9; ++i) {
        if (randomShare(i, 7, seed) > share) continue;
        const double size = 1.8 + 2 * randomShare(i, 5, seed);
        const Point at{5 + 6.6 * i, 62 - size * 0.7};
        canvas.part(polygon({{at.x - size, at.y + size * 0.6},
                             {at.x - size * 0.4, at.y - size},
                             {at.x + size, at.y - size * 0.3},
                             {at.x + size * 0.7, at.y + size * 0.7}},
                            1.2),
                    stony(kTurma.floor[i % 3] * 0.85F, 0.4F, 0.1F), {.bevel = 1.8, .line = 0.9, .shadow = 0.2F});
    }
}

/// Cracks that run from the point of the hit.
void drawHitCracks(Canvas& canvas) {
    drawCrack(canvas, {{30, 1}, {33, 6}, {29, 12}, {34, 19}, {31, 30}, {36, 38}, {33, 48}}, 1);
    drawCrack(canvas, {{33, 6}, {43, 9}, {48, 16}, {57, 20}}, 1);
    drawCrack(canvas, {{29, 12}, {19, 15}, {14, 23}, {6, 26}}, 1);
    drawCrack(canvas, {{31, 30}, {22, 36}, {20, 44}}, 0.9F);
}

void drawFallingStones(Canvas& canvas, double time, std::uint32_t seed) {
    for (std::size_t i = kFloorStones.size(); i-- > 0;) {
        const Stone& stone = kFloorStones[i];
        const Loosening way = looseningOf(i, seed);
        const double t = std::max(0.0, time - way.start);
        const double drop = kGravity * t * t;
        const double size = std::max(0.0, 1 - 0.14 * t);
        if (stone.y + drop > 56 + 0.2 * stone.height || size < 0.35) continue;
        const Point centre{stone.x + stone.width / 2, stone.y + stone.height / 2};
        const Point shift{way.drift * t, drop};
        const auto tipped = canvas.placed(centre + shift, way.turn * t, size, size);
        const auto back = canvas.placed(centre * -1);
        drawFloorStone(canvas, i);
    }
}

void drawDust(Canvas& canvas, double time, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double age = time - 0.6 - 0.3 * randomShare(i, 8, seed);
        if (age <= 0 || age > 4.5) continue;
        const Point at{8 + 8 * i + 3 * (randomShare(i, 9, seed) - 0.5), 44 + 14 * randomShare(i, 6, seed) - 4.5 * age};
        canvas.flat(circle(at, 3.5 + 1.6 * age), rgb(0xe8cdb0), {.alpha = static_cast<float>(0.34 * (1 - age / 4.5))});
    }
}

void drawBreaking(Canvas& canvas, FrameOf frame, FloorEnds ends, std::uint32_t seed) {
    if (frame.index == 0) {
        drawFloor(canvas, ends, FloorWear::New);
        drawHitCracks(canvas);
        return;
    }
    const double time = frame.index;
    drawStubs(canvas, seed);
    drawRubble(canvas, frame.progress() * 1.1 - 0.35, seed);
    drawFallingStones(canvas, time, seed);
    drawDust(canvas, time, seed);
    canvas.outline(0.5);
}

void drawBreakOne(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, {}, 1); }
void drawBreakTwo(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, {.left = true}, 2); }
void drawBreakThree(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, {.right = true}, 3); }
void drawBreakFour(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, {.left = true, .right = true}, 4); }

// ---- growing again: courses rise from below in a warm seam; the last picture is the floor, still glowing

constexpr Rgb kSeam = rgb(0xffd27a);

/// The part of the floor below `row` has grown; a glowing line lies on it and crumbs fly up to it.
void drawGrown(Canvas& canvas, FrameOf frame, FloorEnds ends) {
    const double row = 58 - 57 * eased((frame.index + 0.4) / (frame.count - 1));
    if (row > 1) drawStubs(canvas, 1);
    std::vector<Point> edge{{-40, row}};
    for (std::uint32_t i = 0; i <= 8; ++i)
        edge.push_back({8.0 * i, row + (row > 1 ? 5 * (randomShare(i, 1, 17) - 0.5) : -8)});
    edge.insert(edge.end(), {{104, row}, {104, 104}, {-40, 104}});
    Canvas floor(canvas.blankCopy());
    drawFloor(floor, ends, FloorWear::New);
    canvas.layOver(floor, canvas.mask(polygon(edge, 1)));
    if (row <= 1) return;
    for (std::size_t i = 1; i + 4 < edge.size(); ++i) {
        canvas.flat(polyline({edge[i], edge[i + 1]}), kSeam, {.alpha = 0.9F, .stroke = 2.6});
        canvas.flat(polyline({edge[i], edge[i + 1]}), rgb(0xffffff), {.alpha = 0.8F, .stroke = 1});
    }
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double height = 3 + 13 * randomShare(i, static_cast<std::uint32_t>(frame.index), 23);
        const Point at{5 + 8.5 * i, row - height};
        if (at.y < 3) continue;
        canvas.flat(circle(at, 1.6 - height * 0.06), kSeam, {.alpha = 0.95F});
    }
}

/// The seam's light on the bricks.
void drawSeamGlow(Canvas& canvas, FrameOf frame) {
    const double row = 58 - 57 * eased((frame.index + 0.4) / (frame.count - 1));
    const float strength = frame.index + 1 < frame.count ? 0.5F : 0.25F;
    canvas.glow({32, std::max(row, 4.0)}, 34, kSeam, strength);
}

void drawRegrow(Canvas& canvas, FrameOf frame) {
    drawGrown(canvas, frame, {});
    drawSeamGlow(canvas, frame);
}

void drawRegrowEnds(Canvas& canvas, FrameOf frame) {
    drawGrown(canvas, frame, {.left = true, .right = true});
    drawSeamGlow(canvas, frame);
}

// ---- floors

void drawMiddle(Canvas& canvas, FrameOf) { drawFloor(canvas, {}, FloorWear::New); }
void drawChipped(Canvas& canvas, FrameOf) { drawFloor(canvas, {}, FloorWear::Chipped); }
void drawMossyFloor(Canvas& canvas, FrameOf) { drawFloor(canvas, {}, FloorWear::Mossy); }
void drawLeftEnd(Canvas& canvas, FrameOf) { drawFloor(canvas, {.left = true}, FloorWear::New); }
void drawRightEnd(Canvas& canvas, FrameOf) { drawFloor(canvas, {.right = true}, FloorWear::New); }
void drawAlone(Canvas& canvas, FrameOf) { drawFloor(canvas, {.left = true, .right = true}, FloorWear::New); }

// ---- what cannot be dug

/// A dressed block with iron corners.
void drawBlock(Canvas& canvas, FrameOf) {
    const Material edge = stony(kTurma.solid[0], 1.1F, 0.12F, 0.2F);
    const Material panel = stony(kTurma.solid[1], 1.1F, 0.12F, 0.1F);
    canvas.flat(rectangle(-40, -40, 144, 144), rgb(0x2a2a3e));
    canvas.part(rectangle(1, 1, 62, 62, 5), edge, {.bevel = 5, .line = 0, .shadow = 0});
    canvas.part(rectangle(10, 10, 44, 44, 6), panel, {.bevel = 3, .line = 0.9, .shadow = 0.3F});
    for (const double x : {5.6, 58.4}) {
        for (const double y : {5.6, 58.4}) canvas.part(circle({x, y}, 2.3), kMetal, {.bevel = 2, .line = 0.7});
    }
    canvas.shadeRows(0, 64, 1.05F, 0.82F);
}

/// Rough stones laid without pattern; they reach into the neighbours, so that blocks of them join.
void drawRoughWall(Canvas& canvas, FrameOf) {
    constexpr std::array kStones{Stone{-8, 2, 36, 28, 1}, Stone{28, 0, 28, 34, 2}, Stone{-16, 30, 30, 33, 3},
                                 Stone{14, 32, 34, 31, 4}};
    canvas.flat(rectangle(-40, -40, 144, 144), rgb(0x2a2a3e));
    drawJoined(canvas, [&] {
        for (const Stone& s : kStones) {
            canvas.part(rectangle(s.x + 0.8, s.y + 0.8, s.width - 1.6, s.height - 1.6, 8),
                        stony(varied(kTurma.solid[s.number % 2], s.number, 0.06F), 1.5F, 0.14F),
                        {.bevel = 7, .line = 0, .shadow = 0});
        }
    });
    canvas.shadeRows(0, 64, 1.06F, 0.84F);
}

/// A single boulder, the wall showing at its corners.
void drawBoulder(Canvas& canvas, FrameOf) {
    const Material stone = stony(kTurma.solid[0], 1.5F, 0.14F, 0.15F);
    canvas.part(loop({{2, 30},
                      {2, 10},
                      {8, 2},
                      {26, 1.6},
                      {46, 1.6},
                      {61, 4},
                      {62, 24},
                      {63, 44},
                      {62, 62},
                      {34, 62.4},
                      {10, 62.4},
                      {2, 56},
                      {2, 30}}),
                stone, {.bevel = 13, .line = 1.4});
    drawCrack(canvas, {{40, 8}, {36, 18}, {42, 26}, {38, 36}}, 0.7F);
}

constexpr std::array kPictures{
    //            name                     px  px frames
    PictureEntry{"steny\\modul_pol_11a", 64, 64, 1, Ground::Joined, drawMiddle},
    PictureEntry{"poly\\modul_pol", 64, 64, 1, Ground::Joined, drawMiddle},
    PictureEntry{"poly\\modul_pol01", 64, 64, 1, Ground::Joined, drawChipped},
    PictureEntry{"poly\\modul_pol02", 64, 64, 1, Ground::Joined, drawMossyFloor},
    PictureEntry{"poly\\pol_kray1", 64, 64, 1, Ground::Joined, drawLeftEnd},
    PictureEntry{"poly\\pol_kray2", 64, 64, 1, Ground::Joined, drawRightEnd},
    PictureEntry{"poly\\pol_kray3", 64, 64, 1, Ground::Joined, drawAlone},
    PictureEntry{"poly\\modul_pol03", 64, 64, 1, Ground::Joined, drawLeftEnd},
    PictureEntry{"poly\\modul_pol06", 64, 64, 1, Ground::Joined, drawRightEnd},
    PictureEntry{"poly\\modul_pol04", 64, 64, 1, Ground::Joined, drawBlock},
    PictureEntry{"poly\\polkam", 64, 64, 1, Ground::Joined, drawRoughWall},
    PictureEntry{"poly\\kam_proz", 64, 64, 1, Ground::Clear, drawBoulder},
    PictureEntry{"poly\\lom1", 64, 64, 8, Ground::Joined, drawBreakOne},
    PictureEntry{"poly\\lom2", 64, 64, 8, Ground::Joined, drawBreakTwo},
    PictureEntry{"poly\\lom3", 64, 64, 8, Ground::Joined, drawBreakThree},
    PictureEntry{"poly\\lom4", 64, 64, 8, Ground::Joined, drawBreakFour},
    PictureEntry{"poly\\vosstfull", 64, 64, 8, Ground::Joined, drawRegrow},
    PictureEntry{"poly\\vossthalf", 64, 64, 8, Ground::Joined, drawRegrowEnds},
};

}  // namespace

std::span<const PictureEntry> floorPictures() { return kPictures; }

}  // namespace grub
