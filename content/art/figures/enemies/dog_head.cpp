#include "dog_parts.h"

#include "face.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kCollar = glossy(material(0xd8263a, 0x6f1236, 0xff6f5e), 0.6F);
constexpr Material kAmber = glossy(material(0xffd257, 0xd07a26, 0xfff2b0), 0.3F);
constexpr Material kLid = glossy(material(0x9889ac, 0x4f3b6e, 0xcdc2d8), 0.1F, 0.3F);
/// Fur around the eyes: it sets them off from muzzle and skull.
constexpr Material kMask = glossy(material(0x76678e, 0x443462, 0x9c8eb0), 0.1F, 0.2F);
constexpr Material kEarFur = glossy(material(0x807298, 0x46355f, 0xb0a2c0), 0.1F, 0.4F);

constexpr EyeStyle kEyes{.ball = kAmber, .lid = kLid, .pupil = rgb(0x31101c), .shape = {1, 1.04}, .glower = 0.9};
constexpr double kEyeRadius = 3.9;
constexpr double kEyeRow = -3.4;
constexpr BrowStyle kBrows{.colour = rgb(0x3a2950), .half = 3.1, .thickness = 2.2, .arch = 0.5};
/// Height of a calm brow above its eye's middle.
constexpr double kBrowHeight = 4.6;

/// Flat above, broad at the cheeks.
VectorPath skullShape() {
    return loop({{-11.8, 2},
                 {-12.4, -4},
                 {-11.6, -10.8},
                 {-6.4, -10.8},
                 {-3, -10.8},
                 {-2, -10.2},
                 {0, -10.2},
                 {2, -10.2},
                 {3, -10.8},
                 {6.4, -10.8},
                 {11.6, -10.8},
                 {12.4, -4},
                 {11.8, 2},
                 {12.2, 7.6},
                 {7, 10.4},
                 {0, 10.4},
                 {-7, 10.4},
                 {-12.2, 7.6},
                 {-11.8, 2}});
}

/// Pixels that the tips of the ears are raised; they hang lower where negative.
double earLift(const Expression& expression) {
    if (expression.eyes == Eyes::Wide) return 3;
    if (expression.eyes == Eyes::Spiral || expression.browTilt < -0.2) return -4.6;
    return expression.lid > 0.9 ? -2 : 0;
}

/// An ear that is folded forward: its tip hangs beside the brow.
void drawEar(Canvas& canvas, double side, double lift, double turn, const Material& fur) {
    const auto place = canvas.placed({side * 9.6 + turn * 0.2, -9.6}, 0, side, 1);
    const Point tip{4.4 + 0.2 * lift, 6.6 - lift};
    canvas.part(loop({{-4, -0.8},
                      {-2, -3.4},
                      {2.4, -3.4},
                      {4, -1},
                      {5.4, 0.8},
                      tip + Point{1.6, -2},
                      tip,
                      tip + Point{-2.4, 0.4},
                      {-0.6, 3.4 - 0.3 * lift},
                      {-4, -0.8}}),
                fur, {.bevel = 2.6, .line = 1.1});
    canvas.flat(curve({{-2.6, -0.6}, {-0.6, -1.6}, {1.6, -1.2}, {3, 0.2}}), kDogFold, {.alpha = 0.4F, .stroke = 0.8});
}

void drawSpike(Canvas& canvas, Point at, Point tip) {
    const Point across{-(tip - at).y * 0.45, (tip - at).x * 0.45};
    canvas.part(polygon({at + across, tip, at - across}, 0.6), kMetal, {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
}

/// The dark fur around both eyes, and the folds between them.
void drawMask(Canvas& canvas, double turn) {
    const double x = turn * 0.8;
    VectorPath mask = ellipse({x - 4.8, -2.4}, 6.4, 5.4);
    mask.unite(ellipse({x + 4.8 - 0.2 * turn, -2.4}, 6.4 - 0.2 * turn, 5.4));
    const Mask inSkull = canvas.mask(skullShape());
    canvas.part(mask, kMask, {.bevel = 4, .line = 0, .shadow = 0, .clip = &inSkull});
    for (const double side : {-1.0, 1.0}) {
        canvas.flat(curve({{x + side * 0.8, -4.4}, {x + side * 1.6, -5.4}, {x + side * 1.6, -7}, {x + side, -8.2}}),
                    kDogFold, {.alpha = 0.4F, .stroke = 0.9});
    }
}

}  // namespace

void drawDogCollar(Canvas& canvas, double turn) {
    const double x = -turn * 0.6;
    canvas.part(ellipse({x, 9.2}, 12.2, 6), kCollar, {.bevel = 3, .line = 1.1});
    for (const double at : {-0.8, -0.28, 0.28, 0.8}) {
        const Point root{x + 11.4 * at, 9.2 + 5.2 * (1 - at * at)};
        drawSpike(canvas, root, root + Point{2.2 * at, 3.4});
    }
}

void drawDogFace(Canvas& canvas, double turn, const Expression& expression) {
    const double lift = earLift(expression);
    const bool aside = turn > 1;
    if (aside) drawEar(canvas, 1, lift, turn, kDogFarFur);
    canvas.part(skullShape(), kDogFur, {.bevel = 9, .line = 1.3});
    {
        const auto features = canvas.placed({0, -0.4 * expression.chin});
        drawMask(canvas, turn);
        drawDogMuzzle(canvas, turn, expression);
        for (const double side : {1.0, -1.0}) {
            const Point eye{5 * side + turn * (side > 0 ? 0.75 : 0.9), kEyeRow};
            drawEye(canvas, eye, kEyeRadius, -side, expression, kEyes);
            drawBrow(canvas, eye - Point{0, kBrowHeight - 0.4 * expression.chin}, -side, expression, kBrows);
        }
    }
    if (!aside) drawEar(canvas, 1, lift, turn, kEarFur);
    drawEar(canvas, -1, lift, turn, kEarFur);
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {turn, -17}, 19, 5, expression.stars);
}

void drawDogNape(Canvas& canvas, const Expression& expression) {
    const double lift = earLift(expression);
    // The jowls show beyond the cheeks.
    for (const double side : {-1.0, 1.0})
        canvas.part(ellipse({side * 11, 6}, 3.6, 4.6, side * 0.3), kDogFarFur, {.bevel = 3, .line = 1.1});
    canvas.part(skullShape(), kDogFur, {.bevel = 9, .line = 1.3});
    for (const double side : {-1.0, 1.0}) drawEar(canvas, side, lift, 0, kEarFur);
    canvas.part(loop({{-11.4, 5.6},
                      {-7, 9},
                      {7, 9},
                      {11.4, 5.6},
                      {12.6, 6},
                      {12.6, 9},
                      {11.8, 10.4},
                      {7, 13.8},
                      {-7, 13.8},
                      {-11.8, 10.4},
                      {-12.6, 9},
                      {-12.6, 6},
                      {-11.4, 5.6}}),
                kCollar, {.bevel = 2.6, .line = 1.1});
    // Spikes that point at the viewer are round.
    for (const double x : {-5.4, 0.0, 5.4}) {
        canvas.part(circle({x, 10.8 - 0.03 * x * x}, 1.9), kMetal, {.bevel = 1.9, .line = 0.8, .shadow = 0.2F});
    }
    for (const double side : {-1.0, 1.0}) drawSpike(canvas, {side * 11, 8.6}, {side * 15.4, 7.6});
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {0, -17}, 19, 5, expression.stars);
}

}  // namespace grub
