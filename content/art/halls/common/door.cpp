#include "door.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

/// Opening or frame of a door: `half` wide on each side of the middle, `top` is its highest row, standing on the
/// ground.
VectorPath doorway(double half, double top, DoorShape shape) {
    constexpr double kSill = 66;
    if (shape == DoorShape::Square) {
        return polygon({{32 - half, kSill},
                        {32 - half, top + 5},
                        {32 - half + 6, top},
                        {32 + half - 6, top},
                        {32 + half, top + 5},
                        {32 + half, kSill}},
                       3);
    }
    const double spring = top + 22;
    return loop({{32 - half, kSill},
                 {32 - half, spring + 8},
                 {32 - half, spring + 4},
                 {32 - half, spring},
                 {32 - half, top + 8},
                 {32 - half * 0.56, top},
                 {32, top},
                 {32 + half * 0.56, top},
                 {32 + half, top + 8},
                 {32 + half, spring},
                 {32 + half, spring + 4},
                 {32 + half, spring + 8},
                 {32 + half, kSill}});
}

void drawFrame(Canvas& canvas, const DoorKind& kind) {
    canvas.part(doorway(28.5, 5, kind.shape), kind.frame, {.bevel = 5, .line = 1.4});
    constexpr double kPi = std::numbers::pi;
    const Rgb joint = kind.frame.shadow * 0.7F;
    for (int i = 1; i < 6 && kind.shape == DoorShape::Arch; ++i) {
        const double angle = kPi + kPi * i / 6;
        const Point ray{std::cos(angle), std::sin(angle)};
        canvas.flat(polyline({Point{32, 32} + ray * 21.5, Point{32, 32} + ray * 26.6}), joint,
                    {.alpha = 0.6F, .stroke = 1});
    }
    for (const double x : {5.6, 53.4})
        canvas.flat(polyline({{x, 47}, {x + 5, 47}}), joint, {.alpha = 0.6F, .stroke = 1});
}

/// Golden light in the whole opening, brightest on the ground; it grows with `open`.
void drawLightBehind(Canvas& canvas, const Mask& opening, float open) {
    const auto light = canvas.group({.cover = open, .clip = &opening});
    canvas.flat(rectangle(8, 8, 48, 58), rgb(0xffc860));
    canvas.haloBetween({32, 64}, 40, 72, 20, rgb(0xfff6d2), 1);
    canvas.haloBetween({32, 64}, 22, 44, 20, rgb(0xfffdf2), 1);
}

void drawSignal(Canvas& canvas, bool open) {
    const Material red = glossy(material(0xff5a4a, 0x8a1430, 0xffb09a), 1);
    const Material green = glossy(material(0x5fe08a, 0x117a52, 0xd0ffd8), 1);
    canvas.part(circle({32, 7.6}, 6.2), kDarkMetal, {.bevel = 2.2, .line = 1.1});
    canvas.part(circle({32, 7.4}, 4.5), open ? green : red, {.bevel = 3.6, .line = 0.7, .shadow = 0.1F});
    canvas.glow({32, 7.4}, 15, open ? rgb(0x7df0a0) : rgb(0xff5a4a), 0.4F);
}

}  // namespace

void drawPlankLeaf(Canvas& canvas, const Material& leaf, const Mask& opening) {
    for (int i = 0; i < 5; ++i) {
        canvas.part(rectangle(10.4 + i * 8.7, 2, 8.3, 66, 1.4), leaf,
                    {.bevel = 2.6, .line = 0.8, .shadow = 0.1F, .clip = &opening});
    }
    for (const double y : {24.0, 50.0}) {
        canvas.part(rectangle(9, y, 46, 5, 1.6), kMetal, {.bevel = 2.2, .line = 0.9, .clip = &opening});
        for (const double x : {15.0, 32.0, 49.0})
            canvas.part(circle({x, y + 2.5}, 1.3), kDarkMetal,
                        {.bevel = 1, .line = 0.4, .shadow = 0.1F, .clip = &opening});
    }
    canvas.part(circle({45.6, 40}, 3.3), kGold, {.bevel = 2.6, .line = 1, .clip = &opening});
}

void drawBarLeaf(Canvas& canvas, const Material& leaf, const Mask& opening) {
    for (const double x : {16.0, 24.0, 32.0, 40.0, 48.0}) {
        canvas.part(rectangle(x - 2.1, -8, 4.2, 70, 1), leaf, {.bevel = 2.1, .line = 1, .clip = &opening});
        canvas.part(polygon({{x - 2.1, 61}, {x + 2.1, 61}, {x, 66}}), leaf,
                    {.bevel = 1.6, .line = 0.9, .clip = &opening});
    }
    for (const double y : {14.0, 31.0, 48.0})
        canvas.part(rectangle(9, y, 46, 4.4, 1.4), leaf, {.bevel = 2.1, .line = 1, .clip = &opening});
}

void drawDoorway(Canvas& canvas, const DoorKind& kind, double open) {
    drawFrame(canvas, kind);
    const VectorPath hole = doorway(21.5, 12, kind.shape);
    canvas.flat(hole, rgb(0x140d1c));
    const Mask opening = canvas.mask(hole);
    const auto light = static_cast<float>(eased(open * 1.6));
    drawLightBehind(canvas, opening, kind.seeThrough ? std::max(light, 0.12F) : light);
    {
        const auto raised = canvas.placed({0, -44 * eased(open)});
        kind.drawLeaf(canvas, kind.leaf, opening);
    }
    canvas.flat(hole, kInk, {.alpha = 0.9F, .stroke = 1.2});
    if (open > 0) canvas.glow({32, 60}, 34, rgb(0xffd98a), 0.35F * light);
}

void drawExit(Canvas& canvas, const DoorKind& kind, double open) {
    drawDoorway(canvas, kind, open);
    drawSignal(canvas, open > 0);
}

}  // namespace grub
