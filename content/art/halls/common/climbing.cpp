#include "climbing.h"

#include "common_parts.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- ladders

constexpr double kRungEvery = 16;
constexpr double kFirstRung = 8;
constexpr int kRungs = 4;
constexpr double kRailWidth = 7.4;

/// Rungs of the cell between rails that run from `top` to `bottom`.
void drawRungsAndRails(Canvas& canvas, const Material& material, double top, double bottom) {
    for (int rung = -1; rung <= kRungs; ++rung) {
        const double y = kFirstRung + rung * kRungEvery;
        if (y < top || y > bottom) continue;
        canvas.part(rectangle(13, y - 2.6, 38, 5.2, 2.4), material, {.bevel = 2.6, .line = 1.3, .shadow = 0.45F});
    }
    for (const double x : {kLeftRail, kRightRail}) {
        canvas.part(rectangle(x - kRailWidth / 2, top, kRailWidth, bottom - top, 2.4), material,
                    {.bevel = 3.7, .line = 1.4, .shadow = 0.4F});
    }
    for (int rung = -1; rung <= kRungs; ++rung) {
        const double y = kFirstRung + rung * kRungEvery;
        if (y < top || y > bottom) continue;
        for (const double x : {kLeftRail, kRightRail})
            canvas.part(circle({x, y}, 1.5), kMetal, {.bevel = 1.4, .line = 0.6, .shadow = 0.2F});
    }
}

/// Rows at which rails begin and end: beyond the neighbours or in this cell.
constexpr double kAbove = -40;
constexpr double kBelow = 104;
constexpr double kTop = 1.8;
constexpr double kFoot = 63.3;

// ---- pipes

constexpr double kAxis = 10;
constexpr double kPipeRadius = 4.8;

/// Copper in turma and podval, steel in jelezo.
Material pipeMetal(const WorldPalette& world) {
    Material pipe = material(world.pipe);
    pipe.gloss = 0.75F;
    pipe.rim = 0.5F;
    pipe.bounce = 0.3F;
    pipe.grain = 0.05F;
    return pipe;
}

void drawPipe(Canvas& canvas, const Material& metal, double from, double to) {
    canvas.part(rectangle(from, kAxis - kPipeRadius, to - from, 2 * kPipeRadius), metal,
                {.bevel = kPipeRadius, .line = 1.4, .shadow = 0.3F});
}

/// A flange with bolts, where a pipe goes into the wall.
void drawFlange(Canvas& canvas, double x) {
    canvas.part(rectangle(x - 5, 0.8, 10, 18.4, 3), kMetal, {.bevel = 4, .line = 1.2});
    for (const double y : {4.4, 15.6})
        canvas.part(circle({x, y}, 1.3), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

constexpr double kWallLeft = 7.5;
constexpr double kWallRight = kCellSize - kWallLeft;

}  // namespace

void drawLadder(Canvas& canvas, const Material& material, LadderEnd end) {
    drawRungsAndRails(canvas, material, end == LadderEnd::Top ? kTop : kAbove, end == LadderEnd::Foot ? kFoot : kBelow);
}

void drawHangPipe(Canvas& canvas, const WorldPalette& world, PipeEnds ends) {
    drawPipe(canvas, pipeMetal(world), ends.left ? kWallLeft : kAbove, ends.right ? kWallRight : kBelow);
    if (ends.left) drawFlange(canvas, kWallLeft);
    if (ends.right) drawFlange(canvas, kWallRight);
}

void drawPipeJoint(Canvas& canvas, const WorldPalette& world) {
    drawHangPipe(canvas, world);
    canvas.part(rectangle(25.5, kAxis - 7.2, 13, 14.4, 2.4), pipeMetal(world), {.bevel = 5, .line = 1.3});
    for (const double x : {28.4, 35.6})
        canvas.part(circle({x, kAxis}, 1.3), kMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

void drawPipeStrap(Canvas& canvas, const WorldPalette& world) {
    drawHangPipe(canvas, world);
    canvas.part(rectangle(28.5, 0.4, 7, 15.4, 2), kMetal, {.bevel = 2.6, .line = 1.1});
    canvas.part(circle({32, kAxis}, 1.4), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

}  // namespace grub
