#include "common_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- turma

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
void drawRubble(Canvas& canvas, const WorldPalette& world, float dim) {
    constexpr std::array kStones{Stone{-8, 2, 36, 28, 1}, Stone{28, 0, 28, 34, 2}, Stone{-16, 30, 30, 33, 3},
                                 Stone{14, 32, 34, 31, 4}};
    canvas.flat(rectangle(-40, -40, 144, 144), mix(world.backdropMortar, rgb(0x3a3844), 0.5F));
    drawJoined(canvas, [&] {
        for (const Stone& s : kStones) {
            canvas.part(rectangle(s.x + 0.8, s.y + 0.8, s.width - 1.6, s.height - 1.6, 8),
                        stony(varied(world.solid[s.number % 2] * dim, s.number, 0.06F), 1.4F, 0.13F),
                        {.bevel = 7, .line = 0, .shadow = 0});
        }
    });
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

// ---- jelezo

/// A riveted plate between rows `top` and 63.
void drawPlate(Canvas& canvas, double top) {
    canvas.flat(rectangle(-40, -40, 144, 144), kJelezo.backdropMortar);
    canvas.part(rectangle(0.8, top, 62.4, 63 - top, 4), stony(kJelezo.solid[0] * 0.9F, 0.9F, 0.11F, 0.2F),
                {.bevel = 4, .line = 0, .shadow = 0});
    canvas.part(rectangle(8.5, top + 7.5, 47, 48 - top, 4), stony(kJelezo.solid[1] * 0.88F, 0.8F, 0.11F, 0.1F),
                {.bevel = 2.6, .line = 0.9, .shadow = 0.3F});
}

void drawPlateRivets(Canvas& canvas, double top) {
    for (const double x : {5.2, 58.8}) {
        for (const double y : {top + 4.6, 58.4}) canvas.part(circle({x, y}, 2.1), kMetal, {.bevel = 2, .line = 0.7});
    }
}

/// A braced plate under a tread plate to walk on.
void drawIronBlock(Canvas& canvas, FrameOf) {
    const Material beam = stony(kJelezo.solid[0] * 0.98F, 0.5F, 0.08F, 0.3F);
    drawPlate(canvas, 9);
    canvas.part(limb({{{13, 21}, 3.2}, {{51, 53}, 3.2}}), beam, {.bevel = 3, .line = 0.9});
    canvas.part(limb({{{51, 21}, 3.2}, {{13, 53}, 3.2}}), beam, {.bevel = 3, .line = 0.9});
    canvas.part(circle({32, 37}, 4.6), beam, {.bevel = 3, .line = 0.9});
    drawPlateRivets(canvas, 13);
    canvas.shadeRows(8, 64, 1.02F, 0.82F);
    canvas.flat(rectangle(-40, 11, 144, 3.5), rgb(0x0c1420), {.alpha = 0.38F});
    canvas.part(rectangle(-40, 0.9, 144, 11), stony(mix(kJelezo.solid[0], rgb(0xeaf4f8), 0.42F), 0.3F, 0.06F, 0.5F),
                {.bevel = 3.2, .line = 0.9, .shadow = 0});
    for (int x = -28; x < 96; x += 8) {
        canvas.flat(polyline({{x + 1.5, 7.8}, {x + 5.0, 4.4}}), kJelezo.solid[1] * 0.72F,
                    {.alpha = 0.8F, .stroke = 1.6});
    }
}

/// Plain plates for the bulk below.
void drawIronWall(Canvas& canvas, FrameOf) {
    drawPlate(canvas, 0.8);
    drawPlateRivets(canvas, 1);
    for (const double y : {24.0, 40.0}) {
        canvas.part(rectangle(15, y - 2, 34, 4, 2), stony(kJelezo.solid[0] * 0.85F, 0.3F, 0.06F, 0.2F),
                    {.bevel = 2, .line = 0.7, .shadow = 0.25F});
    }
    canvas.shadeRows(0, 64, 0.88F, 0.78F);
}

// ---- podval

void drawPodvalWall(Canvas& canvas, FrameOf) { drawRubble(canvas, kPodval, 0.88F); }

/// Rough stones under two flagstones, moss in their joint.
void drawPodvalBlock(Canvas& canvas, FrameOf) {
    drawRubble(canvas, kPodval, 1);
    canvas.shadeRows(8, 64, 1.02F, 0.8F);
    canvas.flat(rectangle(-40, 11, 144, 4), rgb(0x12140e), {.alpha = 0.42F});
    const Rgb slab = mix(kPodval.solid[0], rgb(0xf0eede), 0.36F);
    for (int i = -1; i < 3; ++i) {
        const auto number = static_cast<std::uint32_t>(60 + (i + 2) % 2);
        canvas.part(rectangle(i * 32 + 0.6, 0.9, 30.8, 11.4, 4), stony(varied(slab, number, 0.05F), 0.8F, 0.1F, 0.12F),
                    {.bevel = 3.8, .line = 0.9, .shadow = 0});
    }
    for (const Joint& tuft :
         {Joint{{30, 10.5}, 2.4}, Joint{{33.5, 11.5}, 2.9}, Joint{{8, 11.6}, 2}, Joint{{52, 12}, 2.2}}) {
        canvas.part(circle(tuft.at, tuft.radius), stony(kPodval.capShade * 1.15F, 1, 0.2F),
                    {.bevel = 2.4, .line = 0, .shadow = 0.3F});
    }
}

/// The same with a hole for rats, barred.
void drawPodvalGrate(Canvas& canvas, FrameOf frame) {
    drawPodvalBlock(canvas, frame);
    const VectorPath mouth =
        loop({{16, 54}, {16, 36}, {22, 28}, {32, 28}, {42, 28}, {48, 36}, {48, 54}, {48, 57}, {16, 57}, {16, 54}});
    canvas.part(mouth, stony(rgb(0x171814), 0, 0), {.bevel = 2, .line = 1.4});
    const Mask inside = canvas.mask(mouth);
    for (const double x : {23.0, 32.0, 41.0})
        canvas.part(rectangle(x - 1.7, 26, 3.4, 34, 1), kDarkMetal, {.bevel = 1.7, .line = 0.8, .clip = &inside});
}

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"poly\\modul_pol03", 64, 64, 1, Ground::Joined, drawGratedBlock},
    StripDrawing{"poly\\modul_pol04", 64, 64, 1, Ground::Joined, drawBlock},
    StripDrawing{"poly\\polkam", 64, 64, 1, Ground::Joined, drawRoughWall},
    StripDrawing{"poly\\kam_proz", 64, 64, 1, Ground::Clear, drawBoulder},
    StripDrawing{"poly\\kam_jel", 64, 64, 1, Ground::Joined, drawIronBlock},
    StripDrawing{"poly\\kam_jel2", 64, 64, 1, Ground::Joined, drawIronWall},
    StripDrawing{"fon\\kam1", 64, 64, 1, Ground::Joined, drawPodvalBlock},
    StripDrawing{"fon\\kam2", 64, 64, 1, Ground::Joined, drawPodvalWall},
    StripDrawing{"fon\\kam3", 64, 64, 1, Ground::Joined, drawPodvalGrate},
};

}  // namespace

std::span<const StripDrawing> solidStrips() { return kStrips; }

}  // namespace grub
