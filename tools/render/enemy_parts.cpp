#include "enemy_parts.h"

#include <cmath>
#include <numbers>

#include "shapes.h"

namespace grub {

namespace {

/// Pale, since gold is kept for what can be taken.
constexpr Material kStar = glossy(material(0xfdf3e4, 0xb9a3c9, 0xffffff), 0.5F);

}  // namespace

void drawSpiral(Canvas& canvas, Point at, double radius, Rgb colour) {
    constexpr int kSteps = 26;
    constexpr double kTurns = 1.9;
    VectorPath path;
    for (int i = 0; i <= kSteps; ++i) {
        const double share = static_cast<double>(i) / kSteps;
        const double angle = 2 * std::numbers::pi * kTurns * share;
        const Point p = at + Point{std::cos(angle), std::sin(angle)} * (radius * share);
        i == 0 ? path.moveTo(p) : path.lineTo(p);
    }
    canvas.flat(path, colour, {.stroke = 1});
}

void drawDizzyStars(Canvas& canvas, Point centre, double rx, double ry, double turn) {
    for (int i = 0; i < 3; ++i) {
        const double at = turn + i / 3.0;
        const Point p = centre + Point{rx * wave(at + 0.25), ry * wave(at)};
        const double size = 3.3 + 0.6 * wave(at);
        canvas.part(star(p, 5, size, size * 0.5, 0.6), kStar, {.bevel = 1.6, .line = 1, .shadow = 0.2F});
    }
}

}  // namespace grub
