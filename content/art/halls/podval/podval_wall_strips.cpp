#include "podval_room.h"

#include <array>
#include <cmath>
#include <numbers>
#include <span>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

/// Makes up for what joints and shaded edges take of the palette's brightness: the wall's L* stays above 21.
constexpr float kGain = 1.02F;

/// Stones that reach into the neighbours are the same in every variant; those inside the cell may differ.
constexpr std::array kCrossing{Stone{-12, -10, 30, 26, 1}, Stone{18, -10, 34, 20, 2}, Stone{-12, 16, 22, 38, 3}};
constexpr std::array kInner{Stone{10, 16, 24, 20, 4}, Stone{34, 10, 18, 26, 5}, Stone{10, 36, 42, 18, 6}};
constexpr std::array kOtherInner{Stone{34, 10, 18, 22, 7}, Stone{10, 16, 24, 16, 8}, Stone{10, 32, 18, 22, 9},
                                 Stone{28, 32, 24, 22, 10}};

void drawStone(Canvas& canvas, const Stone& stone, float dimmer = 1) {
    Material surface = stony(varied(kPodval.backdrop[stone.number % 3], stone.number, 0.07F) * dimmer, 1.1F, 0.12F, 0);
    surface.light = mix(surface.base, surface.light, 0.4F);
    canvas.part(rectangle(stone.x + 0.9, stone.y + 0.9, stone.width - 1.8, stone.height - 1.8, 7), surface,
                {.bevel = 6, .line = 0, .shadow = 0});
}

void drawWall(Canvas& canvas, std::span<const Stone> inner, float dimmer = 1) {
    canvas.flat(rectangle(-40, -40, 144, 144), kPodval.backdropMortar);
    drawJoined(canvas, [&] {
        for (const Stone& stone : kCrossing) drawStone(canvas, stone);
    });
    for (const Stone& stone : inner) drawStone(canvas, stone, dimmer);
}

void brighten(Canvas& canvas) { canvas.shadeRows(0, 1, kGain, kGain); }

void drawPlain(Canvas& canvas, FrameOf) {
    drawWall(canvas, kInner);
    brighten(canvas);
}

void drawOther(Canvas& canvas, FrameOf) {
    drawWall(canvas, kOtherInner);
    brighten(canvas);
}

void drawCracked(Canvas& canvas, FrameOf) {
    drawWall(canvas, kOtherInner, 0.92F);
    drawCrack(canvas, {{14, 18}, {19, 24}, {17, 30}, {23, 38}, {21, 47}}, 0.8F);
    drawCrack(canvas, {{19, 24}, {28, 27}}, 0.6F);
    brighten(canvas);
}

/// Moss in the joints, and three toadstools on it.
void drawMossy(Canvas& canvas, FrameOf) {
    drawWall(canvas, kInner, 0.95F);
    const Material moss = stony(mix(kPodval.backdrop[0], kPodval.accent, 0.34F), 1.2F, 0.2F);
    VectorPath tufts;
    for (const Joint& tuft : {Joint{{15, 35}, 3}, Joint{{20, 36}, 3.8}, Joint{{26, 35.4}, 3.4}, Joint{{31, 36}, 2.6},
                              Joint{{36, 53}, 3}, Joint{{42, 53.4}, 3.6}, Joint{{47, 52.6}, 2.6}})
        tufts.unite(circle(tuft.at, tuft.radius));
    canvas.part(tufts, moss, {.bevel = 2.6, .line = 0, .shadow = 0.3F});
    for (const Joint& stool : {Joint{{19, 32}, 3}, Joint{{25.5, 30.5}, 3.8}, Joint{{42, 49}, 3.2}}) {
        const Point at = stool.at;
        canvas.part(limb({{at, 1}, {at + Point{0, 4}, 1.3}}), stony(rgb(0x8a8878), 0, 0), {.bevel = 1.2, .line = 0.5});
        canvas.part(ellipse(at, stool.radius, stool.radius * 0.62), stony(rgb(0x8f8a5a), 0, 0.05F, 0.2F),
                    {.bevel = 2, .line = 0.6});
    }
    brighten(canvas);
}

/// A stone is missing; something looks out of the dark.
void drawHole(Canvas& canvas, FrameOf) {
    drawWall(canvas, kInner);
    const VectorPath hole = rectangle(11, 37, 40, 16, 6);
    canvas.flat(hole, kPodval.backdropMortar * 0.5F);
    for (const double x : {27.0, 34.0}) {
        canvas.flat(ellipse({x, 45}, 2.1, 1.6), kPodval.glow * 0.8F);
        canvas.flat(ellipse({x, 45}, 0.7, 1.5), rgb(0x101010));
    }
    brighten(canvas);
}

// ---- a relieving arch over three cells

constexpr Point kArchCentre{96, 96};
constexpr double kArchInner = 68;
constexpr double kArchOuter = 88;

template <int Column>
void drawArch(Canvas& canvas, FrameOf) {
    drawWall(canvas, kInner);
    const auto cell = canvas.placed({-kCellSize * Column, 0});
    canvas.flat(circle(kArchCentre, kArchInner + 2), kPodval.backdropMortar * 0.6F, {.alpha = 0.72F});
    constexpr int kVoussoirs = 13;
    for (int i = 0; i < kVoussoirs; ++i) {
        constexpr double kPi = std::numbers::pi;
        const auto at = [](double radius, double step) {
            const double angle = kPi + kPi * step / kVoussoirs;
            return kArchCentre + Point{radius * std::cos(angle), radius * std::sin(angle)};
        };
        const auto number = static_cast<std::uint32_t>(20 + i);
        canvas.part(polygon({at(kArchInner, i + 0.05), at(kArchOuter, i + 0.04), at(kArchOuter, i + 0.96),
                             at(kArchInner, i + 0.95)},
                            4),
                    stony(varied(kPodval.backdrop[2] * 1.22F, number, 0.08F), 1, 0.12F),
                    {.bevel = 5, .line = 0.8, .shadow = 0.35F});
    }
    brighten(canvas);
}

constexpr std::array kStrips{
    //            name               px  px frames
    StripDrawing{"fon\\modul02", 64, 64, 1, Ground::Joined, drawPlain},
    StripDrawing{"fon\\modul2", 64, 64, 1, Ground::Joined, drawOther},
    StripDrawing{"fon\\modul03", 64, 64, 1, Ground::Joined, drawCracked},
    StripDrawing{"fon\\modul8", 64, 64, 1, Ground::Joined, drawMossy},
    StripDrawing{"fon\\modul9", 64, 64, 1, Ground::Joined, drawHole},
    StripDrawing{"steny\\arka1", 64, 64, 1, Ground::Joined, drawArch<0>},
    StripDrawing{"steny\\arka2", 64, 64, 1, Ground::Joined, drawArch<1>},
    StripDrawing{"steny\\arka3", 64, 64, 1, Ground::Joined, drawArch<2>},
};

}  // namespace

std::span<const StripDrawing> podvalWallStrips() { return kStrips; }

}  // namespace grub
