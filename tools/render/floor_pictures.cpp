#include "floor_pictures.h"

#include <array>
#include <vector>

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
    return {0.35 + 1.8 * depth + 0.7 * randomShare(n, 1, seed), -0.05 * middle + 2 * (randomShare(n, 2, seed) - 0.5),
            0.22 * (randomShare(n, 3, seed) - 0.5)};
}

/// The walls of the hole: every other course is bonded into the neighbour and leaves a broken end.
void drawStubs(Canvas& canvas, std::uint32_t seed) {
    for (std::uint32_t course = 0; course < 3; ++course) {
        for (const bool right : {false, true}) {
            const std::uint32_t n = course * 2 + (right ? 1 : 0);
            const double reach = (course % 2 == 1 ? 5.5 : 2) + 2 * randomShare(n, 4, seed);
            drawBrickStub(canvas, {right ? kCellSize : 0, 13.0 + 17 * course}, right ? -1 : 1, reach, 32 + n);
        }
    }
}

/// Crumbs that fall out of the broken ends and through the hole, until the last picture.
void drawCrumbs(Canvas& canvas, double time, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 10; ++i) {
        const double age = time - 2.2 - 1.6 * randomShare(i, 7, seed);
        const double size = 2.6 - 0.35 * age + 0.6 * randomShare(i, 5, seed);
        const Point at{7 + 5.5 * i, 24 + 20 * randomShare(i, 6, seed) + 1.6 * age * age};
        if (age <= 0 || time > 6.5 || size < 0.9 || at.y > 60) continue;
        canvas.part(polygon({{at.x - size, at.y + size * 0.5},
                             {at.x - size * 0.3, at.y - size},
                             {at.x + size, at.y},
                             {at.x + size * 0.4, at.y + size * 0.8}},
                            1),
                    stony(kTurma.floor[i % 3] * 0.9F, 0.3F, 0.1F), {.bevel = 1.6, .line = 0.9, .shadow = 0});
    }
}

/// Cracks that run from the point of the hit.
void drawHitCracks(Canvas& canvas) {
    drawCrack(canvas, {{30, 1}, {33, 6}, {29, 12}, {34, 19}, {31, 30}, {36, 38}, {33, 48}}, 1);
    drawCrack(canvas, {{33, 6}, {43, 9}, {48, 16}, {57, 20}}, 1);
    drawCrack(canvas, {{29, 12}, {19, 15}, {14, 23}, {6, 26}}, 1);
    drawCrack(canvas, {{31, 30}, {22, 36}, {20, 44}}, 0.9F);
}

void drawFallingStones(Canvas& canvas, double time, std::uint32_t seed, bool under) {
    for (std::size_t i = kFloorStones.size(); i-- > 0;) {
        const Stone& stone = kFloorStones[i];
        const Loosening way = looseningOf(i, seed);
        const double t = std::max(0.0, time - way.start);
        const double drop = kGravity * t * t;
        const double size = std::max(0.0, 1 - 0.17 * t);
        if (stone.y + drop > 60 || size < 0.4) continue;
        const Point centre{stone.x + stone.width / 2, stone.y + stone.height / 2};
        const Point shift{way.drift * t, drop};
        const auto tipped = canvas.placed(centre + shift, way.turn * t, size, size);
        const auto back = canvas.placed(centre * -1);
        drawFloorStone(canvas, i, under);
    }
}

void drawDust(Canvas& canvas, double time, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double age = time - 1.7 - 0.5 * randomShare(i, 8, seed);
        if (age <= 0 || age > 4.5) continue;
        const Point at{8 + 8 * i + 3 * (randomShare(i, 9, seed) - 0.5), 44 + 14 * randomShare(i, 6, seed) - 4.5 * age};
        canvas.halo(at, 7 + 2.4 * age, rgb(0xe8cdb0), static_cast<float>(0.62 * (1 - age / 4.5)));
    }
}

/// What kind of floor cell breaks or grows.
enum class Storey { Top, Under };

void drawWhole(Canvas& canvas, Storey storey) {
    storey == Storey::Top ? drawFloor(canvas, {}, FloorWear::New) : drawUnderFloor(canvas, FloorWear::New);
}

void drawBreaking(Canvas& canvas, FrameOf frame, Storey storey, std::uint32_t seed) {
    if (frame.index == 0) {
        drawWhole(canvas, storey);
        drawHitCracks(canvas);
        return;
    }
    const double time = frame.index;
    drawStubs(canvas, seed);
    drawCrumbs(canvas, time, seed);
    drawFallingStones(canvas, time, seed, storey == Storey::Under);
    canvas.outline(0.5);
    drawDust(canvas, time, seed);
}

void drawBreakTop(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, Storey::Top, 1); }
void drawBreakUnder(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, Storey::Under, 2); }
void drawBreakTopOther(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, Storey::Top, 3); }
void drawBreakUnderOther(Canvas& canvas, FrameOf frame) { drawBreaking(canvas, frame, Storey::Under, 4); }

// ---- growing again: courses rise from below in a warm seam; the last picture is the floor, still glowing

constexpr Rgb kSeam = rgb(0xffd27a);

constexpr int kEdgePoints = 9;

/// Row up to which the floor has grown in this picture; above the cell in the last one.
double grownRow(FrameOf frame) {
    return frame.index + 1 < frame.count ? 60 - 58 * eased((frame.index + 0.6) / (frame.count - 0.6)) : -8;
}

std::vector<Point> grownEdge(double row) {
    std::vector<Point> edge{{-40, row}};
    for (std::uint32_t i = 0; i < kEdgePoints; ++i) edge.push_back({8.0 * i, row + 5 * (randomShare(i, 1, 17) - 0.5)});
    edge.push_back({104, row});
    return edge;
}

/// The glowing line on top of what has grown, and crumbs that fly up to it.
void drawSeam(Canvas& canvas, const std::vector<Point>& edge, double row, std::uint32_t picture) {
    for (std::size_t i = 0; i + 1 < edge.size(); ++i) {
        canvas.flat(polyline({edge[i], edge[i + 1]}), kSeam, {.alpha = 0.9F, .stroke = 2.6});
        canvas.flat(polyline({edge[i], edge[i + 1]}), rgb(0xffffff), {.alpha = 0.8F, .stroke = 1});
    }
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double height = 3 + 13 * randomShare(i, picture, 23);
        if (row - height > 3)
            canvas.flat(circle({5 + 8.5 * i, row - height}, 1.7 - height * 0.06), kSeam, {.alpha = 0.95F});
    }
}

void drawGrowing(Canvas& canvas, FrameOf frame, Storey storey) {
    const double row = grownRow(frame);
    if (row < 0) {
        drawWhole(canvas, storey);
        canvas.glow({32, 5}, 38, kSeam, 0.3F);
        return;
    }
    drawStubs(canvas, 1);
    const std::vector<Point> edge = grownEdge(row);
    std::vector<Point> grown = edge;
    grown.insert(grown.end(), {{104, 104}, {-40, 104}});
    Canvas floor = canvas.blankCopy();
    drawWhole(floor, storey);
    canvas.layOver(floor, canvas.mask(polygon(grown)));
    drawSeam(canvas, edge, row, static_cast<std::uint32_t>(frame.index));
    canvas.glow({32, row}, 34, kSeam, 0.5F);
}

void drawGrowTop(Canvas& canvas, FrameOf frame) { drawGrowing(canvas, frame, Storey::Top); }
void drawGrowUnder(Canvas& canvas, FrameOf frame) { drawGrowing(canvas, frame, Storey::Under); }

// ---- floors

void drawMiddle(Canvas& canvas, FrameOf) { drawFloor(canvas, {}, FloorWear::New); }
void drawChipped(Canvas& canvas, FrameOf) { drawFloor(canvas, {}, FloorWear::Chipped); }
void drawUnder(Canvas& canvas, FrameOf) { drawUnderFloor(canvas, FloorWear::New); }
void drawUnderChipped(Canvas& canvas, FrameOf) { drawUnderFloor(canvas, FloorWear::Chipped); }
void drawLeftEnd(Canvas& canvas, FrameOf) { drawFloor(canvas, {.left = true}, FloorWear::New); }
void drawRightEnd(Canvas& canvas, FrameOf) { drawFloor(canvas, {.right = true}, FloorWear::New); }
void drawAlone(Canvas& canvas, FrameOf) { drawFloor(canvas, {.left = true, .right = true}, FloorWear::New); }

// ---- what cannot be dug

/// A dressed block with iron studs under a slab to walk on.
void drawBlock(Canvas& canvas, FrameOf) {
    const Material edge = stony(kTurma.solid[0] * 0.94F, 1.1F, 0.12F, 0.2F);
    const Material panel = stony(kTurma.solid[1] * 0.94F, 1.1F, 0.12F, 0.1F);
    const Material slab = stony(mix(kTurma.solid[0], rgb(0xe8e6f0), 0.42F), 0.6F, 0.08F, 0.2F);
    canvas.flat(rectangle(-40, -40, 144, 144), rgb(0x2a2a3e));
    canvas.part(rectangle(1, 8, 62, 55, 5), edge, {.bevel = 5, .line = 0, .shadow = 0});
    canvas.part(rectangle(10, 19, 44, 36, 6), panel, {.bevel = 3, .line = 0.9, .shadow = 0.3F});
    for (const double x : {5.8, 58.2}) {
        for (const double y : {17.5, 58.2}) canvas.part(circle({x, y}, 2.1), kMetal, {.bevel = 2, .line = 0.7});
    }
    canvas.shadeRows(8, 64, 1.02F, 0.82F);
    canvas.flat(rectangle(-40, 11, 144, 3.5), rgb(0x1a1020), {.alpha = 0.38F});
    canvas.part(rectangle(0.5, 0.9, 63, 11, 2.6), slab, {.bevel = 3.4, .line = 0.9, .shadow = 0});
}

/// The same with a grating let in.
void drawGratedBlock(Canvas& canvas, FrameOf frame) {
    drawBlock(canvas, frame);
    const VectorPath opening = rectangle(17, 23, 30, 27, 4);
    canvas.part(opening, stony(rgb(0x23233a), 0, 0), {.bevel = 2, .line = 1});
    const Mask inside = canvas.mask(opening);
    for (const double x : {24.0, 32.0, 40.0}) {
        canvas.part(rectangle(x - 1.9, 20, 3.8, 34, 1), kDarkMetal, {.bevel = 1.9, .line = 0.8, .clip = &inside});
    }
}

/// Rough stones laid without pattern, the bulk below the blocks that are walked on; they reach into the neighbours, so
/// that blocks of them join.
void drawRoughWall(Canvas& canvas, FrameOf) {
    constexpr std::array kStones{Stone{-8, 2, 36, 28, 1}, Stone{28, 0, 28, 34, 2}, Stone{-16, 30, 30, 33, 3},
                                 Stone{14, 32, 34, 31, 4}};
    canvas.flat(rectangle(-40, -40, 144, 144), rgb(0x2a2a3e));
    drawJoined(canvas, [&] {
        for (const Stone& s : kStones) {
            canvas.part(rectangle(s.x + 0.8, s.y + 0.8, s.width - 1.6, s.height - 1.6, 8),
                        stony(varied(kTurma.solid[s.number % 2] * 0.8F, s.number, 0.06F), 1.4F, 0.13F),
                        {.bevel = 7, .line = 0, .shadow = 0});
        }
    });
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
    PictureEntry{"poly\\modul_pol", 64, 64, 1, Ground::Joined, drawChipped},
    PictureEntry{"poly\\modul_pol06", 64, 64, 1, Ground::Joined, drawMiddle},
    PictureEntry{"poly\\pol_kray1", 64, 64, 1, Ground::Joined, drawLeftEnd},
    PictureEntry{"poly\\pol_kray2", 64, 64, 1, Ground::Joined, drawRightEnd},
    PictureEntry{"poly\\pol_kray3", 64, 64, 1, Ground::Joined, drawAlone},
    PictureEntry{"poly\\modul_pol01", 64, 64, 1, Ground::Joined, drawUnder},
    PictureEntry{"poly\\modul_pol02", 64, 64, 1, Ground::Joined, drawUnderChipped},
    PictureEntry{"poly\\modul_pol03", 64, 64, 1, Ground::Joined, drawGratedBlock},
    PictureEntry{"poly\\modul_pol04", 64, 64, 1, Ground::Joined, drawBlock},
    PictureEntry{"poly\\polkam", 64, 64, 1, Ground::Joined, drawRoughWall},
    PictureEntry{"poly\\kam_proz", 64, 64, 1, Ground::Clear, drawBoulder},
    PictureEntry{"poly\\lom1", 64, 64, 8, Ground::Joined, drawBreakTop},
    PictureEntry{"poly\\lom2", 64, 64, 8, Ground::Joined, drawBreakUnder},
    PictureEntry{"poly\\lom3", 64, 64, 8, Ground::Joined, drawBreakTopOther},
    PictureEntry{"poly\\lom4", 64, 64, 8, Ground::Joined, drawBreakUnderOther},
    PictureEntry{"poly\\vosstfull", 64, 64, 8, Ground::Joined, drawGrowTop},
    PictureEntry{"poly\\vossthalf", 64, 64, 8, Ground::Joined, drawGrowUnder},
};

}  // namespace

std::span<const PictureEntry> floorPictures() { return kPictures; }

}  // namespace grub
