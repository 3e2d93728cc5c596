#include "dog_parts.h"

#include "face.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kMuzzle = glossy(material(0xd49a66, 0x7a4650, 0xf4c994), 0.2F, 0.4F);
constexpr Material kCollar = glossy(material(0xd8263a, 0x6f1236, 0xff6f5e), 0.6F);
constexpr Material kNose = glossy(material(0x2a2030, 0x120c1c, 0x6b5a78), 1);
constexpr Material kAmber = glossy(material(0xffd257, 0xd07a26, 0xfff2b0), 0.3F);
constexpr Material kTongue = glossy(material(0xf07b86, 0xa03a58, 0xffb9b4), 0.5F);
constexpr Material kThroat = material(0x5a2034, 0x32182e, 0x8a3448);

constexpr Material kLid = glossy(material(0x9889ac, 0x4f3b6e, 0xcdc2d8), 0.1F, 0.3F);

constexpr EyeStyle kEyes{.ball = kAmber, .lid = kLid, .pupil = rgb(0x31101c), .shape = {1, 1.04}, .glower = 0.9};
constexpr double kEyeRadius = 3.9;
constexpr double kEyeRow = -3;
constexpr BrowStyle kBrows{.colour = rgb(0x4a3763), .half = 3, .thickness = 2.2, .arch = 0.5};
/// Height of a calm brow above its eye's middle.
constexpr double kBrowHeight = 4.7;

VectorPath skullShape() {
    return loop({{-12.4, 2},
                 {-12.8, -5.4},
                 {-8.6, -11.6},
                 {0, -11.6},
                 {8.6, -11.6},
                 {12.8, -5.4},
                 {12.4, 2},
                 {12.2, 7.6},
                 {7, 10.4},
                 {0, 10.4},
                 {-7, 10.4},
                 {-12.2, 7.6},
                 {-12.4, 2}});
}

/// Pixels that the ears stand up, or hang down.
double earLift(const Expression& expression) {
    if (expression.eyes == Eyes::Wide) return 3.5;
    if (expression.eyes == Eyes::Spiral || expression.browTilt < -0.2) return -3.4;
    return expression.lid > 0.9 ? -2.4 : 0;
}

void drawEar(Canvas& canvas, double side, double lift, double turn, const Material& fur, bool hollow) {
    const double x = side * 8.2 - turn * 0.35;
    const double droop = lift < 0 ? -lift : 0;
    const Point inner{x - side * 4.6, -9.2};
    const Point tip{x + side * (3.6 - 0.3 * lift + 0.4 * droop), -15 - lift};
    const Point outer{x + side * 3.4, -4.5};
    canvas.part(polygon({inner, tip, outer}, 2.6), fur, {.bevel = 3, .line = 1.1});
    if (!hollow) return;
    const Point middle = (inner + tip + outer) * (1.0 / 3) + Point{side * 0.4, 0};
    const auto into = [middle](Point corner) { return mix(corner, middle, 0.42); };
    canvas.part(polygon({into(inner), into(tip), into(outer)}, 1.4), kDogSkin,
                {.bevel = 1.6, .line = 0.5, .shadow = 0.1F});
}

void drawSpike(Canvas& canvas, Point at, Point tip) {
    const Point across{-(tip - at).y * 0.45, (tip - at).x * 0.45};
    canvas.part(polygon({at + across, tip, at - across}, 0.6), kMetal, {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
}

/// Two jowls under one bridge; `lift` raises the corners of the mouth.
VectorPath jowls(double x, double lift) {
    const double wide = 9.6 + 0.3 * lift;
    return loop({{x, 1.4},
                 {x + 4, -1.6},
                 {x + 9.4, -0.4 * lift},
                 {x + wide, 4.6 - lift},
                 {x + wide, 8.6 - 0.6 * lift},
                 {x + 3.4, 9.8},
                 {x, 6.6},
                 {x - 3.4, 9.8},
                 {x - wide, 8.6 - 0.6 * lift},
                 {x - wide, 4.6 - lift},
                 {x - 9.4, -0.4 * lift},
                 {x - 4, -1.6},
                 {x, 1.4}});
}

void drawTooth(Canvas& canvas, Point root, double half, double up) {
    canvas.part(polygon({root + Point{-half, 0}, root + Point{0, -up}, root + Point{half, 0}}, 0.6), kEnamel,
                {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
}

void drawTongue(Canvas& canvas, Point root, Point tip) {
    canvas.part(limb({{root, 2.7}, {mix(root, tip, 0.6), 3}, {tip, 2.7}}), kTongue,
                {.bevel = 2.4, .line = 0.9, .shadow = 0.2F});
    canvas.flat(polyline({root + Point{0, 1}, mix(root, tip, 0.8)}), kTongue.shadow, {.alpha = 0.6F, .stroke = 0.7});
}

/// What shows between the jowls and below them. A smile lets the tongue out, unless it is a smug one under heavy lids.
void drawUnderJaw(Canvas& canvas, double x, const Expression& expression) {
    const PartStyle jaw{.bevel = 3, .line = 1};
    switch (expression.mouth) {
        case Mouth::Smile:
            if (expression.lid > 0.3) {
                canvas.part(ellipse({x, 8}, 6, 3.2), kMuzzle, jaw);
            } else {
                canvas.part(ellipse({x, 8.6}, 6.4, 4.4), kThroat, jaw);
                drawTongue(canvas, {x + 0.6, 9.5}, {x + 2, 14.4});
            }
            break;
        case Mouth::Open:
            canvas.part(ellipse({x, 9.8}, 7.2, 5.8), kMuzzle, jaw);
            canvas.part(ellipse({x, 9}, 5.6, 5), kThroat, {.bevel = 3, .line = 0.8});
            if (expression.eyes == Eyes::Spiral) {
                drawTongue(canvas, {x + 1.4, 11.4}, {x + 3.4, 17});
            } else {
                canvas.part(ellipse({x, 12}, 3.4, 1.9), kTongue, {.bevel = 1.8, .line = 0.5, .shadow = 0});
            }
            break;
        case Mouth::Grit: canvas.part(ellipse({x, 8.6}, 7, 3.8), kMuzzle, jaw); break;
        case Mouth::Frown: canvas.part(ellipse({x, 9}, 4.6, 3.2), kMuzzle, jaw); break;
        case Mouth::Pout: canvas.part(ellipse({x, 8.4}, 4, 3.2), kMuzzle, jaw); break;
    }
}

/// Freckles, the parting of the jowls, and the nose.
void drawMuzzle(Canvas& canvas, double turn, const Expression& expression) {
    const Mouth mouth = expression.mouth;
    const double x = turn * 1.15;
    const double lift = mouth == Mouth::Smile ? 1.5 : mouth == Mouth::Frown ? -2.4 : 0.0;
    canvas.part(jowls(x, lift), kMuzzle, {.bevel = 4.6, .line = 1.1});
    for (const double side : {-1.0, 1.0}) {
        for (const Point dot : {Point{4.2, 4}, Point{6.6, 3}, Point{6, 5.6}}) {
            canvas.flat(circle({x + side * dot.x, dot.y - 0.5 * lift}, 0.5), kDogFold, {.alpha = 0.55F});
        }
        if (mouth == Mouth::Grit) {
            drawTooth(canvas, {x + side * 5.2, 9.8}, 1.9, 5.6);
            drawTooth(canvas, {x + side * 1.9, 10.2}, 1, 2.2);
        }
        if (mouth == Mouth::Open && expression.eyes != Eyes::Spiral)
            drawTooth(canvas, {x + side * 3.6, 13.4}, 1.2, 2.8);
    }
    canvas.flat(polyline({{x, 2}, {x, 6.6}}), kDogFold, {.stroke = 1});
    if (mouth == Mouth::Pout) canvas.flat(ellipse({x, 9.4}, 1.8, 1.3), kDogFold);
    canvas.part(ellipse({x + turn * 0.2, 0}, 3.5, 2.5), kNose, {.bevel = 2.4, .line = 0.8, .shadow = 0.25F});
}

}  // namespace

void drawDogCollar(Canvas& canvas, double turn) {
    const double x = -turn * 0.6;
    canvas.part(ellipse({x, 8.4}, 11.4, 5.6), kCollar, {.bevel = 3, .line = 1.1});
    for (const double at : {-0.8, -0.28, 0.28, 0.8}) {
        const Point root{x + 10.6 * at, 8.2 + 5 * (1 - at * at)};
        drawSpike(canvas, root, root + Point{2.2 * at, 3.4});
    }
}

void drawDogFace(Canvas& canvas, double turn, const Expression& expression) {
    const double lift = earLift(expression);
    const bool aside = turn > 1;
    drawEar(canvas, 1, lift, turn, kDogFarFur, !aside);
    drawEar(canvas, -1, lift, turn, aside ? kDogFur : kDogFarFur, true);
    canvas.part(skullShape(), kDogFur, {.bevel = 9, .line = 1.3});
    const auto features = canvas.placed({0, -expression.chin});
    // Wrinkles above the bridge of the nose.
    for (const double y : {-4.6, -6.6}) {
        const double x = turn * 0.9;
        canvas.flat(curve({{x - 1.8, y}, {x - 0.8, y - 0.9}, {x + 0.8, y - 0.9}, {x + 1.8, y}}), kDogFold,
                    {.alpha = 0.4F, .stroke = 0.8});
    }
    drawUnderJaw(canvas, turn * 1.15, expression);
    drawMuzzle(canvas, turn, expression);
    for (const double side : {1.0, -1.0}) {
        const Point eye{5 * side + turn * (side > 0 ? 0.75 : 0.9), kEyeRow};
        drawEye(canvas, eye, kEyeRadius, -side, expression, kEyes);
        drawBrow(canvas, eye - Point{0, kBrowHeight - 0.5 * expression.chin}, -side, expression, kBrows);
    }
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {turn, -17}, 19, 5, expression.stars);
}

void drawDogNape(Canvas& canvas, const Expression& expression) {
    const double lift = earLift(expression);
    for (const double side : {-1.0, 1.0}) drawEar(canvas, side, lift, 0, kDogFur, false);
    const VectorPath skull = skullShape();
    canvas.part(skull, kDogFur, {.bevel = 9, .line = 1.3});
    const Mask inSkull = canvas.mask(skull);
    // Jowls that show beyond the cheeks, and the rolls of the neck.
    for (const double side : {-1.0, 1.0}) {
        canvas.part(ellipse({side * 12, 6}, 3.2, 4.4, side * 0.3), kDogFur,
                    {.bevel = 3, .line = 0.8, .shadow = 0.2F, .clip = &inSkull});
    }
    canvas.part(ellipse({0, 3.4}, 6.6, 3.2), kDogFur, {.bevel = 3.4, .line = 0.7, .shadow = 0.2F});
    canvas.part(ellipse({0, 6.6}, 8.8, 3.8), kDogFur, {.bevel = 4, .line = 0.8, .shadow = 0.3F});
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
