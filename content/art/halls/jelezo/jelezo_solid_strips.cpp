#include "jelezo_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

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
    canvas.part(rectangle(-40, kCapTop, 144, 11.9),
                stony(mix(kJelezo.solid[0], rgb(0xeaf4f8), 0.42F), 0.3F, 0.06F, 0.5F),
                {.bevel = 3.2, .line = 0.9, .shadow = 0});
    for (int x = -28; x < 96; x += 8) {
        canvas.flat(polyline({{x + 1.5, 7.8}, {x + 5.0, 4.4}}), kJelezo.solid[1] * 0.72F,
                    {.alpha = 0.8F, .stroke = 1.6});
    }
    drawLip(canvas);
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

constexpr std::array kStrips{
    //            name                  px  px frames
    StripDrawing{"poly\\kam_jel", 64, 64, 1, Ground::Joined, drawIronBlock},
    StripDrawing{"poly\\kam_jel2", 64, 64, 1, Ground::Joined, drawIronWall},
};

}  // namespace

std::span<const StripDrawing> jelezoSolidStrips() { return kStrips; }

}  // namespace grub
