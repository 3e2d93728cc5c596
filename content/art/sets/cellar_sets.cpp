#include <array>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"

namespace grub {

namespace {

/// Day that shows through cracks.
constexpr Rgb kDaylight = rgb(0xffd86a);

/// A gap between stones, `width` at its widest, bright inside and with light around it; it tapers to both ends.
void drawBrightCrack(Canvas& canvas, std::span<const Point> points, double width) {
    const auto tapered = [&](double more) {
        std::vector<Joint> joints;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const double along = static_cast<double>(i) / static_cast<double>(points.size() - 1);
            joints.push_back({points[i], 0.6 + more + width / 2 * std::sin(along * std::numbers::pi)});
        }
        return limb(joints);
    };
    for (const Point& at : points) canvas.glow(at, 34, kDaylight, 0.34F);
    canvas.flat(tapered(2), rgb(0x2a2012), {.alpha = 0.75F});
    canvas.flat(tapered(0), kDaylight);
    canvas.flat(tapered(-0.2 - width / 6), rgb(0xfffbe0));
}

// The cracks around the barrel.
constexpr std::array kMain{Point{158, 236}, Point{172, 229}, Point{176, 214}, Point{174, 198}, Point{184, 188},
                           Point{181, 172}, Point{190, 160}, Point{193, 142}, Point{206, 131}, Point{210, 112}};
constexpr std::array kOver{Point{196, 140}, Point{212, 130}, Point{228, 133}, Point{244, 124},
                           Point{262, 127}, Point{278, 121}, Point{286, 136}, Point{301, 142}};
constexpr std::array kBranchUp{Point{250, 126}, Point{254, 112}, Point{248, 98}, Point{255, 84}, Point{252, 74}};
constexpr std::array kBranchLeft{Point{183, 176}, Point{168, 170}, Point{162, 156}, Point{148, 152}};
constexpr std::array kBranchRight{Point{282, 130}, Point{292, 112}, Point{288, 100}, Point{297, 88}};

void drawLastBarrel(Canvas& canvas, const Rect&) {
    constexpr double kScale = 1.5;
    constexpr double kFloor = 248;
    constexpr double kBarrel = 2.3;
    drawHall(canvas, {.hall = Hall::Podval, .columns = 4, .rows = 4, .floorRow = 3, .scale = kScale},
             {-26, kFloor - 3 * 64 * kScale});
    canvas.dimAround({150, 170}, 290, 0.6F);
    canvas.glow({34, 96}, 150, kTurma.glow, 0.5F);
    drawPiece(canvas, "fon\\fakel", {34 - 48, 96 - 39}, kScale, 3);
    canvas.glow({236, 180}, 170, kDaylight, 0.5F);
    for (const Point& end : {Point{96, 120}, Point{70, 200}, Point{150, 20}, Point{262, 10}})
        drawBeam(canvas, {238, 168}, 8, end, 60, kDaylight, 0.42F);
    drawBrightCrack(canvas, kMain, 5.6);
    drawBrightCrack(canvas, kOver, 5);
    drawBrightCrack(canvas, kBranchUp, 3);
    drawBrightCrack(canvas, kBranchLeft, 3);
    drawBrightCrack(canvas, kBranchRight, 3);
    drawPiece(canvas, "fon\\bochka", {246 - 32 * kBarrel, kFloor + 3 - 62 * kBarrel}, kBarrel);
    canvas.halo({200, kFloor - 4}, 44, kDaylight, 0.3F);
    drawPiece(canvas, "poly\\paut", {0, 0}, 1.3);
}

constexpr std::array kSets{
    //         name           px   px
    SetDrawing{"last-barrel", 302, 264, drawLastBarrel},
};

}  // namespace

std::span<const SetDrawing> cellarSets() { return kSets; }

}  // namespace grub
