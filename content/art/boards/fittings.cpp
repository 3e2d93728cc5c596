#include "fittings.h"

#include <cmath>

#include "board_looks.h"
#include "shapes.h"

namespace grub {

namespace {

/// From one link of a chain to the next.
constexpr double kLinkPitch = 12;

/// Metal that stands out on a gold plate.
Material darker(Material metal) {
    metal.base = metal.base * 0.8F;
    metal.shadow = metal.shadow * 0.8F;
    return metal;
}

}  // namespace

void drawNail(Canvas& canvas, Point centre) {
    canvas.part(circle(centre, 3.1), kIron, {.bevel = 2.8, .line = 1.0, .shadow = 0.5F});
    canvas.flat(circle(centre + Point{-0.8, -1.1}, 0.7), rgb(0xffffff), {.alpha = 0.8F});
}

void drawRing(Canvas& canvas, Point hole) {
    canvas.flat(ellipse(hole, 4.2, 3.6), kBoardInk, {.alpha = 0.85F});
    canvas.part(ring(hole - Point{0, 6}, 7.2, 4.4), kIron, {.bevel = 1.6, .line = 1.1, .shadow = 0.5F});
}

void drawChain(Canvas& canvas, Point end) {
    const int links = static_cast<int>(std::ceil(end.y / kLinkPitch)) + 1;
    for (int i = links; i >= 0; --i) {
        const Point at = end - Point{0, i * kLinkPitch};
        const bool edgeOn = i % 2 == 1;
        if (edgeOn) {
            canvas.part(limb({{at - Point{0, 6}, 1.9}, {at + Point{0, 6}, 1.9}}), kIron,
                        {.bevel = 1.9, .line = 1.0, .shadow = 0.4F});
        } else {
            canvas.part(ellipse(at, 3.8, 6.6), kIron, {.bevel = 1.5, .line = 1.0, .shadow = 0.4F, .stroke = 3});
        }
    }
}

VectorPath arrowHead(Point centre, double length, double angle) {
    const Affine turned = Affine{}.translated(centre).rotated(angle);
    const double half = length / 2;
    return polygon({turned.apply({-half, -half * 1.15}), turned.apply({half, 0}), turned.apply({-half, half * 1.15})},
                   length * 0.16);
}

void drawSpoonMark(Canvas& canvas, Point centre, double length) {
    const double unit = length / 36;
    const auto placed = canvas.placed(centre, 0, unit, unit);
    const Material steel = darker(kIron);
    constexpr double kLine = 2;
    canvas.part(limb({{{-14.4, 0}, 2.6}, {{-8, 0}, 1.9}, {{3, 0}, 1.8}}), steel, {.bevel = 1.7, .line = kLine});
    canvas.part(ellipse({8.4, 0}, 8.4, 6.6), steel, {.bevel = 3, .line = kLine});
    canvas.flat(ellipse({8.8, 0.4}, 5.8, 4.2), steel.shadow, {.alpha = 0.6F});
    canvas.flat(ellipse({8.8, 1.6}, 4.6, 2.6), steel.light, {.alpha = 0.6F});
}

}  // namespace grub
