#include "turma_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

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
    canvas.part(rectangle(0.5, kCapTop, 63, 11.9, 2.6), slab, {.bevel = 3.4, .line = 0.9, .shadow = 0});
    drawLip(canvas);
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

void drawRoughWall(Canvas& canvas, FrameOf) { drawRubble(canvas, kTurma, 0.8F); }

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

constexpr std::array kStrips{
    //            name                  px  px frames
    StripDrawing{"poly\\modul_pol03", 64, 64, 1, Ground::Joined, drawGratedBlock},
    StripDrawing{"poly\\modul_pol04", 64, 64, 1, Ground::Joined, drawBlock},
    StripDrawing{"poly\\polkam", 64, 64, 1, Ground::Joined, drawRoughWall},
    StripDrawing{"poly\\kam_proz", 64, 64, 1, Ground::Clear, drawBoulder},
};

}  // namespace

std::span<const StripDrawing> turmaSolidStrips() { return kStrips; }

}  // namespace grub
