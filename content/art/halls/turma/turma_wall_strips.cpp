#include "turma_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

/// The wall stays behind the play: dimmer than its palette.
constexpr float kDimmed = 0.9F;

/// Rows of stones of half a cell, with no joint on the edge of a cell. Only the first stone lies inside it altogether.
constexpr Stone kInner{5, 11, 34, 32, 1};
constexpr std::array kCrossing{Stone{39, 11, 30, 32, 2}, Stone{21, 43, 37, 32, 3}, Stone{58, 43, 27, 32, 4}};

void drawStone(Canvas& canvas, const Stone& stone, Rgb colour) {
    constexpr double kJoint = 1.3;
    Material surface = stony(varied(colour, stone.number, 0.05F), 0.75F, 0.09F, 0);
    surface.light = mix(surface.base, surface.light, 0.4F);
    canvas.part(rectangle(stone.x + kJoint / 2, stone.y + kJoint / 2, stone.width - kJoint, stone.height - kJoint, 4.5),
                surface, {.bevel = 4.5, .line = 0, .shadow = 0});
}

void drawWall(Canvas& canvas, Rgb inner) {
    canvas.flat(rectangle(-32, -32, 128, 128), kTurma.backdropMortar);
    drawJoined(canvas, [&] {
        for (const Stone& stone : kCrossing) drawStone(canvas, stone, kTurma.backdrop[stone.number % 3]);
    });
    drawStone(canvas, kInner, inner);
}

/// Ends each wall: what was drawn so far becomes dimmer.
void dim(Canvas& canvas) { canvas.shadeRows(0, 1, kDimmed, kDimmed); }

void drawPlain(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[1]);
    dim(canvas);
}

void drawLight(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[2] * 1.06F);
    dim(canvas);
}

void drawDark(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[1] * 0.88F);
    dim(canvas);
}

void drawCrackedLight(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[2]);
    drawCrack(canvas, {{36, 14}, {29, 18}, {27, 24}, {19, 27}, {17, 33}}, 0.7F);
    dim(canvas);
}

void drawCracked(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[0]);
    drawCrack(canvas, {{13, 13}, {17, 20}, {15, 26}, {21, 33}, {20, 41}}, 0.8F);
    drawCrack(canvas, {{17, 20}, {24, 23}, {27, 22}}, 0.6F);
    dim(canvas);
}

/// Water has run down the inner stone; moss grows where it ends.
void drawDamp(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[0]);
    for (const Joint& run : {Joint{{15, 34}, 2.6}, Joint{{21, 30}, 3.4}, Joint{{28, 36}, 2.2}}) {
        canvas.flat(limb({{{run.at.x, 13}, run.radius * 0.6}, {run.at, run.radius}}), kTurma.backdropMortar * 0.8F,
                    {.alpha = 0.4F});
    }
    const Material moss = stony(mix(kTurma.backdrop[0], kTurma.accent, 0.26F), 1.2F, 0.2F);
    VectorPath tufts;
    for (const Joint& tuft : {Joint{{9, 41}, 2.6}, Joint{{13, 40}, 3.2}, Joint{{18, 39.5}, 3.6}, Joint{{23, 40.5}, 3},
                              Joint{{28, 41}, 2.4}, Joint{{17, 36}, 2.2}}) {
        tufts.unite(circle(tuft.at, tuft.radius));
    }
    canvas.part(tufts, moss, {.bevel = 2.5, .line = 0, .shadow = 0.3F});
    dim(canvas);
}

/// The inner stone is gone.
void drawNiche(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[1]);
    const VectorPath hole = rectangle(kInner.x + 1, kInner.y + 1, kInner.width - 2, kInner.height - 2, 5);
    canvas.flat(hole, kTurma.backdropMortar * 0.45F);
    const Mask inHole = canvas.mask(hole);
    canvas.part(rectangle(3, 37, 40, 10, 4), stony(kTurma.backdrop[0] * 0.9F, 0.8F, 0.1F),
                {.bevel = 4, .line = 0, .shadow = 0.4F, .clip = &inHole});
    dim(canvas);
}

/// Two narrower stones in place of the inner one.
void drawSplit(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdropMortar);
    canvas.flat(rectangle(kInner.x, kInner.y, kInner.width, kInner.height), kTurma.backdropMortar);
    drawStone(canvas, {kInner.x, kInner.y, 20, kInner.height, 7}, kTurma.backdrop[0]);
    drawStone(canvas, {kInner.x + 20, kInner.y, 14, kInner.height, 8}, kTurma.backdrop[1]);
    dim(canvas);
}

/// An iron ring with a length of chain.
void drawRing(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[0]);
    Material iron = kDarkMetal;
    iron.base = iron.base * 0.72F;
    iron.light = iron.light * 0.7F;
    canvas.part(circle({22, 20}, 4), iron, {.bevel = 3, .line = 0.8});
    for (const double y : {25.0, 38.0})
        canvas.part(ellipse({22, y + 4}, 3, 4.8), iron, {.bevel = 1, .line = 0.7, .stroke = 2});
    canvas.part(polyline({{22, 31.5}, {22, 36.5}}), iron, {.bevel = 1, .line = 0.7, .stroke = 2.2});
    canvas.part(ring({22, 52}, 7, 4.8), iron, {.bevel = 1.1, .line = 0.8});
    dim(canvas);
}

/// A wall lantern. Its light ends inside the cell, so that no edge shows.
void drawLampWall(Canvas& canvas, Rgb inner) {
    drawWall(canvas, inner);
    dim(canvas);
    canvas.glow({32, 30}, 33, kTurma.glow, 0.62F);
    drawLantern(canvas, {32, 30});
}

void drawLampOne(Canvas& canvas, FrameOf) { drawLampWall(canvas, kTurma.backdrop[1]); }

/// A barred slit with lamp light behind it.
void drawLampTwo(Canvas& canvas, FrameOf) {
    drawWall(canvas, kTurma.backdrop[1]);
    dim(canvas);
    canvas.glow({32, 32}, 33, kTurma.glow, 0.5F);
    canvas.part(rectangle(17, 16, 30, 32, 6), stony(kTurma.solid[1] * 0.8F, 0.8F, 0.1F, 0.1F), {.bevel = 4});
    const VectorPath opening = rectangle(22, 21, 20, 22, 3);
    canvas.flat(opening, rgb(0x8a4a2a));
    const Mask inside = canvas.mask(opening);
    canvas.flat(ellipse({32, 44}, 14, 17), kTurma.glow, {.alpha = 0.9F, .clip = &inside});
    canvas.flat(ellipse({32, 46}, 8, 11), rgb(0xfff2b0), {.alpha = 0.85F, .clip = &inside});
    for (const double x : {27.0, 32.0, 37.0})
        canvas.part(rectangle(x - 1.2, 19, 2.4, 26, 1), kDarkMetal, {.bevel = 1.2, .line = 0.7});
}

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"steny\\modul", 64, 64, 1, Ground::Joined, drawPlain},
    StripDrawing{"steny\\modul01", 64, 64, 1, Ground::Joined, drawLight},
    StripDrawing{"steny\\modul02", 64, 64, 1, Ground::Joined, drawSplit},
    StripDrawing{"steny\\modul03", 64, 64, 1, Ground::Joined, drawCracked},
    StripDrawing{"steny\\modul2", 64, 64, 1, Ground::Joined, drawDamp},
    StripDrawing{"steny\\modul5", 64, 64, 1, Ground::Joined, drawDark},
    StripDrawing{"steny\\modul6", 64, 64, 1, Ground::Joined, drawCrackedLight},
    StripDrawing{"steny\\modul8", 64, 64, 1, Ground::Joined, drawNiche},
    StripDrawing{"steny\\modul9", 64, 64, 1, Ground::Joined, drawRing},
    StripDrawing{"steny\\modul_lampa1", 64, 64, 1, Ground::Joined, drawLampOne},
    StripDrawing{"steny\\modul_lampa2", 64, 64, 1, Ground::Joined, drawLampTwo},
};

}  // namespace

std::span<const StripDrawing> turmaWallStrips() { return kStrips; }

}  // namespace grub
