#include "jelezo_room.h"

#include <array>

#include "common_parts.h"
#include "jelezo_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

/// The wall stays behind the play: dimmer than its palette.
constexpr float kDimmed = 0.92F;

Material iron(Rgb colour, float gloss = 0.05F) {
    Material plate = stony(colour, 0.7F, 0.1F, gloss);
    plate.light = mix(plate.base, plate.light, 0.5F);
    return plate;
}

/// One plate a cell, riveted along both sides.
void drawPlate(Canvas& canvas, Rgb colour) {
    canvas.flat(rectangle(-40, -40, 144, 144), kJelezo.backdropMortar);
    drawJoined(canvas, [&] {
        canvas.part(rectangle(0.7, 0.7, 62.6, 62.6, 3), iron(colour), {.bevel = 3, .line = 0, .shadow = 0});
    });
    for (const double x : {5.0, 59.0}) {
        for (const double y : {5.0, 32.0, 59.0})
            canvas.part(circle({x, y}, 1.7), iron(kJelezo.backdrop[2] * 1.15F, 0.3F), {.bevel = 1.6, .line = 0.4});
    }
}

void dim(Canvas& canvas) { canvas.shadeRows(0, 1, kDimmed, kDimmed); }

void drawPlain(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[0]);
    dim(canvas);
}

void drawLouvres(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[0]);
    for (int i = 0; i < 5; ++i) {
        canvas.flat(rectangle(11, 15.6 + 8.4 * i, 42, 3.6, 1.8), kJelezo.backdropMortar, {.alpha = 0.8F});
        canvas.part(rectangle(11, 12.2 + 8.4 * i, 42, 4, 2), iron(kJelezo.backdrop[2]),
                    {.bevel = 2, .line = 0.5, .shadow = 0.3F});
    }
    dim(canvas);
}

/// A brace from corner to corner.
void drawBraced(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[1]);
    canvas.part(limb({{{10, 54}, 3.2}, {{54, 10}, 3.2}}), iron(kJelezo.backdrop[2]),
                {.bevel = 3, .line = 0.6, .shadow = 0.35F});
    dim(canvas);
}

/// Rust has run down from a seam.
void drawRusty(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[0]);
    const Rgb rust = mix(kJelezo.backdrop[0], rgb(0xa8552e), 0.34F);
    canvas.part(rectangle(12, 14, 40, 4.4, 2), iron(kJelezo.backdrop[1]), {.bevel = 2, .line = 0.5, .shadow = 0.3F});
    for (const Joint& run : {Joint{{18, 33}, 2.2}, Joint{{26, 44}, 3}, Joint{{33, 29}, 1.8}, Joint{{44, 38}, 2.6}})
        canvas.flat(limb({{{run.at.x, 19}, run.radius * 0.7}, {run.at, run.radius}}), rust, {.alpha = 0.5F});
    dim(canvas);
}

/// A hatch that stays shut.
void drawHatch(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[1]);
    canvas.part(circle({32, 32}, 19), iron(kJelezo.backdrop[2]), {.bevel = 3, .line = 0.8, .shadow = 0.35F});
    canvas.part(circle({32, 32}, 14.5), iron(kJelezo.backdrop[0]), {.bevel = 5, .line = 0.8});
    for (const double x : {-1.0, 1.0}) {
        for (const double y : {-1.0, 1.0})
            canvas.part(circle({32 + 11.9 * x, 32 + 11.9 * y}, 1.4), iron(kJelezo.backdrop[2] * 1.2F, 0.3F),
                        {.bevel = 1.3, .line = 0.4});
    }
    canvas.part(ring({32, 32}, 7.4, 5), iron(kJelezo.backdrop[2] * 1.25F, 0.2F), {.bevel = 1.2, .line = 0.7});
    canvas.part(polyline({{26.6, 32}, {37.4, 32}}), iron(kJelezo.backdrop[2] * 1.25F, 0.2F),
                {.bevel = 1, .line = 0.6, .stroke = 2.2});
    dim(canvas);
}

/// The fire of a furnace behind a barred mouth.
void drawFurnace(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[1]);
    dim(canvas);
    canvas.glow({32, 34}, 33, kJelezo.glow, 0.55F);
    canvas.part(rectangle(12, 12, 40, 42, 7), iron(kJelezo.solid[1] * 0.62F, 0.2F), {.bevel = 4, .line = 1.1});
    const VectorPath mouth = rectangle(18, 18, 28, 30, 4);
    canvas.flat(mouth, rgb(0x2a1210));
    const Mask inside = canvas.mask(mouth);
    canvas.flat(ellipse({32, 50}, 22, 24), rgb(0xff7a2a), {.alpha = 0.8F, .clip = &inside});
    canvas.flat(ellipse({32, 51}, 14, 14), rgb(0xffd06a), {.alpha = 0.85F, .clip = &inside});
    for (const double x : {25.0, 32.0, 39.0})
        canvas.part(rectangle(x - 1.5, 16, 3, 34, 1), kDarkMetal, {.bevel = 1.5, .line = 0.8});
    canvas.flat(mouth, kInk, {.alpha = 0.8F, .stroke = 1});
}

void drawChain(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[0]);
    const Material link = iron(kJelezo.solid[1] * 0.6F, 0.3F);
    for (int i = -1; i < 6; ++i) {
        const double y = 12.8 * i + 6.4;
        canvas.part(ellipse({32, y}, 3.4, 5.2), link, {.bevel = 1, .line = 0.7, .stroke = 2});
        canvas.part(polyline({{32, y + 4.6}, {32, y + 8.2}}), link, {.bevel = 1, .line = 0.7, .stroke = 2.2});
    }
    dim(canvas);
}

void drawLamp(Canvas& canvas, FrameOf) {
    drawPlate(canvas, kJelezo.backdrop[1]);
    dim(canvas);
    canvas.glow({32, 30}, 33, kJelezo.glow, 0.62F);
    drawBulkheadLamp(canvas, {32, 31});
}

constexpr std::array kStrips{
    //            name                       px  px frames
    StripDrawing{"sten_jel\\fon_jel", 64, 64, 1, Ground::Joined, drawPlain},
    StripDrawing{"fon\\modul3", 64, 64, 1, Ground::Joined, drawLouvres},
    StripDrawing{"fon\\modul4", 64, 64, 1, Ground::Joined, drawBraced},
    StripDrawing{"fon\\modul6", 64, 64, 1, Ground::Joined, drawRusty},
    StripDrawing{"fon\\modul7", 64, 64, 1, Ground::Joined, drawHatch},
    StripDrawing{"sten_jel\\door_jel", 64, 64, 1, Ground::Joined, drawFurnace},
    StripDrawing{"sten_jel\\cep_jel", 64, 64, 1, Ground::Joined, drawChain},
    StripDrawing{"sten_jel\\pol_lamp_jel", 64, 64, 1, Ground::Joined, drawLamp},
};

}  // namespace

std::span<const StripDrawing> jelezoWallStrips() { return kStrips; }

}  // namespace grub
