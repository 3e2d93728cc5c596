#include "turma_room.h"

#include <array>

#include "common_parts.h"
#include "motion.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

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

/// A torch of turma: an iron basket on an arm.
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

/// A torch that leans from a holder on the wall to its left, flush with the cell's edge; the other side is its mirror.
void drawLeaningTorch(Canvas& canvas, FrameOf frame) {
    constexpr double kWallEdge = 49;  // in the drawing below, which leans the other way
    const auto turned = canvas.placed({kWallEdge, 0}, 0, -1, 1);
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

constexpr std::array kStrips{
    //            name       px  px frames
    StripDrawing{"fon\\fakel", 64, 64, 8, Ground::Clear, drawTorch},
    StripDrawing{"kam_left", 64, 64, 8, Ground::Clear, drawLeaningTorch},
    StripDrawing{"kam_right", 64, 64, 8, Ground::Clear, drawLeaningTorch},
};

}  // namespace

std::span<const StripDrawing> turmaTorchStrips() { return kStrips; }

}  // namespace grub
