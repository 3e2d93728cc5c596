#include "common_room.h"

#include <array>
#include <cmath>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

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

/// Light of a high window that falls through three cells by three. The upper right and the lower middle cell have no
/// strip: nothing of it may lie there.
struct Ray {
    Point from;
    Point to;
};
constexpr Ray kUpperEdge{{40, 12}, {214, 116}};
constexpr Ray kLowerEdge{{12, 28}, {214, 200}};
constexpr Rgb kMoonlight = rgb(0xbcd4ff);

template <int Column, int Row>
void drawShaft(Canvas& canvas, FrameOf) {
    const auto cell = canvas.placed({-kCellSize * Column, -kCellSize * Row});
    constexpr int kLayers = 9;
    constexpr int kSteps = 24;
    for (int layer = 0; layer < kLayers; ++layer) {
        const double inset = 0.05 * layer;
        const auto edge = [inset](double along, double share) {
            return mix(mix(kUpperEdge.from, kUpperEdge.to, along), mix(kLowerEdge.from, kLowerEdge.to, along),
                       share < 0.5 ? inset : 1 - inset);
        };
        for (int step = 0; step < kSteps; ++step) {
            const double a = static_cast<double>(step) / kSteps;
            const double b = static_cast<double>(step + 1) / kSteps;
            canvas.flat(polygon({edge(a, 0), edge(b, 0), edge(b, 1), edge(a, 1)}), kMoonlight,
                        {.alpha = 0.034F * static_cast<float>(1 - a)});
        }
    }
    for (std::uint32_t i = 0; i < 26; ++i) {
        const Point mote{6 + 180.0 * randomShare(i, 1, 61), 20 + 165.0 * randomShare(i, 2, 61)};
        canvas.halo(mote, 2 + 2.0 * randomShare(i, 3, 61), kMoonlight, 0.3F);
    }
}

/// A lamp on a long or a short chain, in front of everything. Its flame is 17 px below the end of the chain: both
/// lengths keep it in the brightest part of a light pool, 24 px below the ceiling.
void drawHangingLamp(Canvas& canvas, double length) {
    canvas.halo({32, length + 14}, 19, kTurma.glow, 0.4F);
    for (int link = 0; link * 6 < length - 3; ++link) {
        canvas.part(ellipse({32, 1.0 + 6 * link}, 1.7, 3.3), kDarkMetal,
                    {.bevel = 0.8, .line = 0.7, .shadow = 0, .stroke = 1.4});
    }
    drawLantern(canvas, {32, length + 14});
}
void drawLongLamp(Canvas& canvas, FrameOf) { drawHangingLamp(canvas, 12); }
void drawShortLamp(Canvas& canvas, FrameOf) { drawHangingLamp(canvas, 4); }

// ---- shadows: laid over the wall below floors and blocks

constexpr Rgb kShade = rgb(0x0c0818);
constexpr double kShadeDepth = 32;
constexpr float kShadeStrength = 0.62F;

/// The shadow below an edge at the top of the cell, in the columns from `x` on.
void drawShadowBelow(Canvas& canvas, double x, double width, float strength) {
    constexpr double kStep = 0.5;
    for (int step = 0; step * kStep < kShadeDepth; ++step) {
        const double y = step * kStep;
        const double share = std::pow(1 - y / kShadeDepth, 1.4);
        canvas.flat(rectangle(x, y, width, kStep), kShade, {.alpha = strength * static_cast<float>(share)});
    }
}

void drawShade(Canvas& canvas, FrameOf) { drawShadowBelow(canvas, 0, kCellSize, kShadeStrength); }

/// The same, fading away towards the side where the floor ends in air.
template <Sides Open>
void drawShadeEnd(Canvas& canvas, FrameOf) {
    constexpr int kFade = 26;
    drawShadowBelow(canvas, Open == kLeft ? kFade : 0, kCellSize - kFade, kShadeStrength);
    for (int i = 0; i < kFade; ++i) {
        const float share = smoothstep(0, kFade, static_cast<float>(i) + 0.5F);
        drawShadowBelow(canvas, Open == kLeft ? i : kCellSize - 1 - i, 1, kShadeStrength * share);
    }
}

constexpr std::array kStrips{
    //            name                 px  px frames
    StripDrawing{"fon\\lampa", 64, 64, 1, Ground::Clear, drawWallLamp},
    StripDrawing{"lampalong", 64, 64, 1, Ground::Clear, drawLongLamp},
    StripDrawing{"lampashort", 64, 64, 1, Ground::Clear, drawShortLamp},
    StripDrawing{"fon\\a11", 64, 64, 1, Ground::Clear, drawLightPool<0, 0>},
    StripDrawing{"fon\\a12", 64, 64, 1, Ground::Clear, drawLightPool<1, 0>},
    StripDrawing{"fon\\a13", 64, 64, 1, Ground::Clear, drawLightPool<2, 0>},
    StripDrawing{"fon\\a21", 64, 64, 1, Ground::Clear, drawLightPool<0, 1>},
    StripDrawing{"fon\\a22", 64, 64, 1, Ground::Clear, drawLightPool<1, 1>},
    StripDrawing{"fon\\a23", 64, 64, 1, Ground::Clear, drawLightPool<2, 1>},
    StripDrawing{"fon\\a2\\p11", 64, 64, 1, Ground::Clear, drawShaft<0, 0>},
    StripDrawing{"fon\\a2\\p12", 64, 64, 1, Ground::Clear, drawShaft<1, 0>},
    StripDrawing{"fon\\a2\\p21", 64, 64, 1, Ground::Clear, drawShaft<0, 1>},
    StripDrawing{"fon\\a2\\p22", 64, 64, 1, Ground::Clear, drawShaft<1, 1>},
    StripDrawing{"fon\\a2\\p23", 64, 64, 1, Ground::Clear, drawShaft<2, 1>},
    StripDrawing{"fon\\a2\\p31", 64, 64, 1, Ground::Clear, drawShaft<0, 2>},
    StripDrawing{"fon\\a2\\p33", 64, 64, 1, Ground::Clear, drawShaft<2, 2>},
    StripDrawing{"fon\\sh1_proz", 64, 64, 1, Ground::Clear, drawShade},
    StripDrawing{"fon\\sh2_proz", 64, 64, 1, Ground::Clear, drawShadeEnd<kLeft>},
    StripDrawing{"fon\\sh3_proz", 64, 64, 1, Ground::Clear, drawShadeEnd<kRight>},
};

}  // namespace

std::span<const StripDrawing> lightStrips() { return kStrips; }

}  // namespace grub
