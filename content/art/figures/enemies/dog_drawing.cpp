#include "dog_drawing.h"

#include <algorithm>

#include "shapes.h"

namespace grub {

namespace {

constexpr Material kFur = glossy(material(0xac9ebc, 0x5a467a, 0xebe3f0), 0.2F, 0.6F);
constexpr Material kFarFur = glossy(material(0x84789c, 0x45325f, 0xb3a6c3), 0.05F, 0.2F);
constexpr Material kPale = glossy(material(0xd9cfe0, 0x8b78a2, 0xf8f3f9), 0.1F, 0.3F);
constexpr Material kMuzzle = glossy(material(0xd49a66, 0x7a4650, 0xf4c994), 0.2F, 0.4F);
constexpr Material kCollar = glossy(material(0xd8263a, 0x6f1236, 0xff6f5e), 0.6F);
constexpr Material kNose = glossy(material(0x2a2030, 0x120c1c, 0x6b5a78), 1);
constexpr Material kAmber = glossy(material(0xffd257, 0xd07a26, 0xfff2b0), 0.3F);
constexpr Material kTongue = glossy(material(0xf07b86, 0xa03a58, 0xffb9b4), 0.5F);

constexpr Rgb kPupil = rgb(0x31101c);
constexpr Rgb kLips = rgb(0x32182e);

void drawEar(Canvas& canvas, double side, double lift, double turn, const Material& fur) {
    const double x = side * 8.2 - turn * 0.35;
    canvas.part(
        polygon({{x - side * 4.6, -8.4}, {x + side * (3.6 - 0.3 * lift), -14.5 - lift}, {x + side * 3.4, -4.5}}, 2.6),
        fur, {.bevel = 3, .line = 1.1});
}

void drawAngryLid(Canvas& canvas, Point eye, double inner) {
    const double side = inner;  // 1: the bridge of the nose lies to the right
    canvas.part(polygon({{eye.x - side * 4.6, eye.y - 4.6},
                         {eye.x + side * 4.4, eye.y - 2.2},
                         {eye.x + side * 4.2, eye.y + 0.5},
                         {eye.x - side * 4.6, eye.y - 2.2}},
                        1.2),
                kFarFur, {.bevel = 1.6, .line = 0.7, .shadow = 0.3F});
}

void drawEye(Canvas& canvas, Point at, const DogFace& face, double inner) {
    const double radius = face.mood == Mood::Angry ? 3.5 : 4.2;
    const VectorPath ball = ellipse(at, radius, radius);
    canvas.part(ball, face.mood == Mood::Dizzy ? kEnamel : kAmber, {.bevel = 2, .line = 0.9, .shadow = 0.25F});
    if (face.mood == Mood::Dizzy) return drawSpiral(canvas, at, radius - 0.4, kPupil);
    const Mask inEye = canvas.mask(ball);
    const double size = face.mood == Mood::Angry ? 1.7 : 1.4;
    canvas.flat(ellipse(at + face.look * 1.4, size, size * 1.25), kPupil, {.clip = &inEye});
    canvas.flat(circle(at + face.look * 1.4 + Point{-0.8, -1}, 0.7), rgb(0xffffff));
    if (face.mood == Mood::Angry) drawAngryLid(canvas, at, inner);
}

void drawJaws(Canvas& canvas, const DogFace& face) {
    const double x = face.turn * 1.15;
    if (face.mood != Mood::Angry) {
        canvas.part(ellipse({x, 9.4}, 5.6, 4), material(0x5a2034, 0x32182e, 0x8a3448), {.bevel = 3, .line = 1});
        if (face.tongue) {
            canvas.part(limb({{{x + 1, 9.5}, 2.6}, {{x + 2.6, 14.2}, 2.7}}), kTongue,
                        {.bevel = 2.4, .line = 0.9, .shadow = 0.2F});
        }
    } else {
        canvas.part(ellipse({x, 8.6}, 7, 3.6), kMuzzle, {.bevel = 3, .line = 1});
    }
    // Two jowls under one bridge.
    canvas.part(loop({{x, 1.4},
                      {x + 4, -1.6},
                      {x + 9.4, 0},
                      {x + 9.6, 4.6},
                      {x + 9.6, 8.6},
                      {x + 3.4, 9.8},
                      {x, 6.6},
                      {x - 3.4, 9.8},
                      {x - 9.6, 8.6},
                      {x - 9.6, 4.6},
                      {x - 9.4, 0},
                      {x - 4, -1.6},
                      {x, 1.4}}),
                kMuzzle, {.bevel = 4.6, .line = 1.1});
    if (face.mood == Mood::Angry) {
        for (const double side : {-1.0, 1.0}) {
            const double at = x + side * 5.2;
            canvas.part(polygon({{at - 1.9, 9.8}, {at + side * 0.3, 4.2}, {at + 1.9, 9.8}}, 0.6), kEnamel,
                        {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
        }
    }
    canvas.flat(polyline({{x, 2}, {x, 6.4}}), kLips, {.stroke = 1});
    canvas.part(ellipse({x + face.turn * 0.2, 0}, 3.5, 2.5), kNose, {.bevel = 2.4, .line = 0.8, .shadow = 0.25F});
}

void drawSkull(Canvas& canvas) {
    canvas.part(loop({{-12.4, 2},
                      {-12.8, -5},
                      {-8.6, -10.6},
                      {0, -10.6},
                      {8.6, -10.6},
                      {12.8, -5},
                      {12.4, 2},
                      {12.2, 7.6},
                      {7, 10.4},
                      {0, 10.4},
                      {-7, 10.4},
                      {-12.2, 7.6},
                      {-12.4, 2}}),
                kFur, {.bevel = 9, .line = 1.3});
}

void drawSpike(Canvas& canvas, Point at, Point tip) {
    const Point across{-(tip - at).y * 0.45, (tip - at).x * 0.45};
    canvas.part(polygon({at + across, tip, at - across}, 0.6), kMetal, {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
}

/// The collar is what shows of it below the head.
void drawCollar(Canvas& canvas, double turn) {
    const double x = -turn * 0.6;
    canvas.part(ellipse({x, 8.4}, 11.4, 5.6), kCollar, {.bevel = 3, .line = 1.1});
    for (const double at : {-0.8, -0.28, 0.28, 0.8}) {
        const Point root{x + 10.6 * at, 8.2 + 5 * (1 - at * at)};
        drawSpike(canvas, root, root + Point{2.2 * at, 3.4});
    }
}

}  // namespace

void drawDogHead(Canvas& canvas, Point at, double angle, const DogFace& face) {
    const auto head = canvas.placed(at, angle);
    drawCollar(canvas, face.turn);
    drawEar(canvas, 1, face.ears, face.turn, kFarFur);
    drawEar(canvas, -1, face.ears, face.turn, face.turn > 1 ? kFur : kFarFur);
    drawSkull(canvas);
    drawJaws(canvas, face);
    drawEye(canvas, {5 + face.turn * 0.75, -3.4}, face, -1);
    drawEye(canvas, {-5 + face.turn * 0.9, -3.4}, face, 1);
}

void drawDogSide(Canvas& canvas, double tail) {
    canvas.part(limb({{{12, 33}, 3}, {{7.5, 28}, 2.3}, {{8 + tail, 23.5}, 1.7}}), kFur, {.bevel = 2.6, .line = 1.2});
    canvas.part(loop({{9.5, 39},
                      {9.5, 31},
                      {15, 28.6},
                      {22, 28.6},
                      {30, 28.6},
                      {36, 25},
                      {44, 25.6},
                      {51, 26},
                      {52, 36},
                      {51, 42},
                      {50, 50},
                      {42, 51.4},
                      {36, 50},
                      {30, 48.4},
                      {26, 47.4},
                      {21, 48.6},
                      {14, 50},
                      {9.5, 46},
                      {9.5, 39}}),
                kFur, {.bevel = 10, .line = 1.3});
}

void drawDogChest(Canvas& canvas) {
    canvas.part(loop({{15, 42},
                      {14, 31},
                      {22, 26},
                      {32, 26},
                      {42, 26},
                      {50, 31},
                      {49, 42},
                      {48.4, 50},
                      {42, 53},
                      {32, 53},
                      {22, 53},
                      {15.6, 50},
                      {15, 42}}),
                kFur, {.bevel = 10, .line = 1.3});
    canvas.part(ellipse({32, 45.4}, 10.4, 6.6), kPale, {.bevel = 5, .line = 0, .shadow = 0});
}

void drawDogBack(Canvas& canvas, double tail) {
    {
        const auto head = canvas.placed({32, 21});
        drawEar(canvas, 1, 0, 0, kFur);
        drawEar(canvas, -1, 0, 0, kFur);
        drawSkull(canvas);
    }
    canvas.part(ellipse({32, 31}, 11.6, 5.4), kCollar, {.bevel = 3, .line = 1.1});
    for (const double x : {-7.0, 0.0, 7.0}) drawSpike(canvas, {32 + x, 28.6}, {32 + x * 1.15, 24.6});
    canvas.part(loop({{18.6, 41},
                      {18, 33},
                      {24, 30.4},
                      {32, 30.4},
                      {40, 30.4},
                      {46, 33},
                      {45.4, 41},
                      {45.8, 48.6},
                      {40, 52},
                      {32, 52},
                      {24, 52},
                      {18.2, 48.6},
                      {18.6, 41}}),
                kFur, {.bevel = 10, .line = 1.3});
    canvas.part(limb({{{32, 45.6}, 3}, {{32 + tail * 0.4, 41}, 2.4}, {{32 + tail, 36.6}, 1.7}}), kFur,
                {.bevel = 2.6, .line = 1.2});
}

void drawDogLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side, double bend) {
    const Material& fur = side == Side::Near ? kFur : kFarFur;
    const Point ankle = sole + Point{-1, -4.6};
    const Point knee = jointOf(hip, ankle, 7, 7, bend);
    canvas.part(limb({{hip, 4.8}, {knee, 4}, {ankle, 3.2}}), fur, {.bevel = 3.8, .line = 1.2});
    const auto paw = canvas.placed(sole, angle);
    canvas.part(loop({{-4.6, -2.6},
                      {-4.6, -5.4},
                      {-2, -6},
                      {0.6, -5.8},
                      {3, -5.6},
                      {6, -4.6},
                      {6, -2.2},
                      {6, -0.6},
                      {5, 0},
                      {3.6, 0},
                      {0.6, 0},
                      {-1.4, 0},
                      {-3, 0},
                      {-4.2, 0},
                      {-4.6, -0.8},
                      {-4.6, -2.6}}),
                fur, {.bevel = 3.2, .line = 1.2, .shadow = 0.25F});
    if (side == Side::Far) return;
    for (const double x : {2.0, 4.2}) canvas.flat(polyline({{x, -2.2}, {x - 0.3, -0.2}}), kLips, {.stroke = 0.8});
}

void drawDogForeleg(Canvas& canvas, Point shoulder, Point paw, double bend, Side side) {
    const Material& fur = side == Side::Near ? kFur : kFarFur;
    const double bone = std::max(6.0, length(paw - shoulder) / 2 * 1.06);
    const Point elbow = jointOf(shoulder, paw, bone, bone, bend);
    canvas.part(limb({{shoulder, 4.6}, {elbow, 4}, {paw, 3.4}}), fur, {.bevel = 3.8, .line = 1.2});
    canvas.part(ellipse(paw, 4.8, 4.2), fur, {.bevel = 3.8, .line = 1.1, .shadow = 0.25F});
    for (const double x : {-1.4, 1.4})
        canvas.flat(polyline({{paw.x + x, paw.y + 1}, {paw.x + x, paw.y + 3.6}}), kLips, {.stroke = 0.8});
}

}  // namespace grub
