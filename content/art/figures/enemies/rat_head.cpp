#include "rat_parts.h"

#include <algorithm>

#include "face.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kLid = glossy(material(0x8e94a8, 0x434763, 0xc6ccd8), 0.1F, 0.3F);

constexpr EyeStyle kEyes{
    .lid = kLid, .pupil = rgb(0x24141f), .shape = {0.96, 1.06}, .pupilShape = {0.5, 0.58}, .glower = 0.8, .slant = 1.7};
constexpr double kEyeRadius = 3.8;
constexpr BrowStyle kBrows{.colour = kRatFold, .half = 2.6, .thickness = 1.9, .arch = 0.5};
/// Height of a calm brow above its eye's middle.
constexpr double kBrowHeight = 5;

constexpr Rgb kWhisker = rgb(0xe9e3ee);
constexpr Rgb kMouth = rgb(0x4a1f34);
constexpr Rgb kTongue = rgb(0xe0707c);

bool isSad(const Expression& expression) { return expression.browTilt < -0.3; }

/// How far the ears are laid back, 0 to 1.
double earsBack(const Expression& expression) {
    if (expression.eyes == Eyes::Wide) return 0;
    if (expression.eyes == Eyes::Spiral) return 1;
    if (expression.browTilt > 0.2) return 0.6;
    return expression.lid > 0.9 ? 0.8 : 0.15;
}

/// Pixels that the tips of the whiskers hang lower.
double whiskersDown(const Expression& expression) {
    if (isSad(expression) || expression.lid > 0.9) return 3;
    return expression.browTilt > 0.2 ? -2 : 0;
}

/// Brows do not leave the head, however high they are raised.
void drawRatBrow(Canvas& canvas, Point eye, double nose, Expression expression, double highest) {
    expression.browHeight = std::min(expression.browHeight, highest);
    drawBrow(canvas, eye - Point{0, kBrowHeight}, nose, expression, kBrows);
}

/// `down` for one that hangs at the side of the head.
void drawEar(Canvas& canvas, Point at, double tilt, double back, const Material& fur, const Material& pink,
             bool down = false) {
    const Point half = down ? Point{3.8, 5.8} : Point{5.4 - 0.9 * back, 5.8};
    canvas.part(ellipse(at, half.x, half.y, tilt), fur, {.bevel = 2.6, .line = 1.4});
    canvas.part(ellipse(at + Point{0.4, 0.8}, half.x - 2 + 0.1 * back, half.y - 2, tilt), pink,
                {.bevel = 2, .line = 0.7, .shadow = 0.15F});
}

/// Two front teeth, each `wide`; `root` is the middle of their upper edge, which the lip covers.
void drawTeeth(Canvas& canvas, Point root, double wide, double length) {
    for (const double side : {1.0, -1.0}) {
        canvas.part(rectangle(root.x + side * 0.5 * wide - 0.5 * wide, root.y - 1.6, wide, length + 1.6, 0.7), kEnamel,
                    {.bevel = 1.1, .line = 0.8, .shadow = 0.15F});
    }
}

/// Bared teeth are seen to their roots.
double teethLength(Mouth mouth) { return mouth == Mouth::Grit ? 4 : 3; }

/// The mouth from the side, behind the teeth.
void drawMouthOfProfile(Canvas& canvas, Mouth mouth) {
    const FlatStyle line{.stroke = 1.2};
    switch (mouth) {
        case Mouth::Smile: return canvas.flat(curve({{12, 5.4}, {10.4, 7.4}, {6.4, 7}, {4.8, 3.6}}), kMouth, line);
        case Mouth::Frown: return canvas.flat(curve({{12, 5.2}, {9.8, 4.2}, {7, 5}, {6, 8}}), kMouth, line);
        case Mouth::Pout: return canvas.flat(curve({{12, 5.6}, {11, 6.2}, {9.8, 6.4}, {8.8, 6}}), kMouth, line);
        case Mouth::Open:
            canvas.flat(ellipse({9.6, 5.6}, 3.2, 2.6, -0.2), kMouth);
            canvas.flat(ellipse({9.2, 6.9}, 2, 1.1), kTongue);
            return;
        case Mouth::Grit:
            canvas.flat(loop({{13, 4},
                              {10.6, 3.4},
                              {7.6, 3.2},
                              {5, 5.4},
                              {5.6, 6.6},
                              {6, 7.2},
                              {6.6, 7.4},
                              {9, 6.2},
                              {11, 6.4},
                              {12.6, 6.8},
                              {13, 6},
                              {13, 5},
                              {13, 4}}),
                        kMouth);
            return;
    }
}

/// The mouth from the front: its corners lie outside the teeth.
void drawMouthOfFace(Canvas& canvas, Mouth mouth) {
    constexpr double kHalf = 5.2;
    const auto line = [&canvas](double corners, double middle) {
        canvas.flat(curve({{-kHalf, corners}, {-0.5 * kHalf, middle}, {0.5 * kHalf, middle}, {kHalf, corners}}), kMouth,
                    {.stroke = 1.2});
    };
    switch (mouth) {
        case Mouth::Smile: return line(5.8, 10);
        case Mouth::Frown: return line(9.6, 6);
        case Mouth::Open:
            canvas.flat(ellipse({0, 8.2}, 4, 2.6), kMouth);
            canvas.flat(ellipse({0, 9.7}, 2.4, 1), kTongue);
            return;
        case Mouth::Grit: return canvas.flat(rectangle(-kHalf, 6.4, 2 * kHalf, 3.4, 1.5), kMouth);
        case Mouth::Pout: return canvas.flat(curve({{-2.8, 8}, {-1, 8.6}, {1, 8.6}, {2.8, 8}}), kMouth, {.stroke = 1});
    }
}

/// One whisker, from its root to its tip.
void drawWhisker(Canvas& canvas, Point root, Point tip) {
    const Point rise{0, -0.5};
    canvas.flat(curve({root, mix(root, tip, 0.35) + rise, mix(root, tip, 0.7) + rise, tip}), kWhisker,
                {.alpha = 0.8F, .stroke = 0.7});
}

}  // namespace

VectorPath ratProfile() {
    return loop({{0, -9.8},   {4.6, -10},  {8.4, -7.4}, {11, -4.3},  {13.6, -1.8}, {17, -1},   {17, 1.6}, {17, 3.6},
                 {15.8, 4.4}, {14.2, 4.4}, {13.6, 6.4}, {10.6, 8.7}, {6, 8.8},     {4.6, 8.8}, {3, 8.8},  {1, 8.8},
                 {-6, 9},     {-10, 5},    {-10, 0},    {-10, -6},   {-6, -9.6},   {0, -9.8}});
}

void drawRatFarEar(Canvas& canvas, const Expression& expression) {
    const double back = earsBack(expression);
    if (isSad(expression)) return drawEar(canvas, {3.4, -8}, 1.1, 0, kRatFarFur, kRatFarPink, true);
    drawEar(canvas, {1.2, -8.2 + 0.8 * back}, -0.1 - 0.5 * back, back, kRatFarFur, kRatFarPink);
}

void drawRatProfile(Canvas& canvas, const Expression& expression, Prop inMouth) {
    const double back = earsBack(expression);
    if (isSad(expression)) {
        drawEar(canvas, {-8, -3}, 0.5, 0, kRatFur, kRatPink, true);
    } else {
        drawEar(canvas, {-5.6 - 2 * back, -7.6 + 0.6 * back}, -0.25 - 0.6 * back, back, kRatFur, kRatPink);
    }
    drawMouthOfProfile(canvas, expression.mouth);
    // A key lies across the mouth, its bow before the nose; what is round hangs lower.
    constexpr double kKeyAngle = 3;
    if (inMouth == Prop::Key) {
        drawProp(canvas, {13.4, 6.6}, {inMouth, kKeyAngle});
    } else {
        drawProp(canvas, {14.4, 8.6}, {inMouth});
    }
    drawTeeth(canvas, {13.6, 4.4}, 1.9, teethLength(expression.mouth));
    canvas.part(ellipse({13.2, 2.6}, 3.4, 2.3), kRatFur, {.bevel = 2.2, .line = 0.7, .shadow = 0.2F});
    const double down = whiskersDown(expression);
    for (const double dy : {-1.0, 0.0, 1.0})
        drawWhisker(canvas, {12, 2.4 + 0.7 * dy}, {3.6, 3.2 + 2.6 * dy + 0.8 * down});
    const Point eye{5.2, -2.6};
    drawEye(canvas, eye, kEyeRadius, 1, expression, kEyes);
    drawRatBrow(canvas, eye, 1, expression, 0);
    canvas.part(ellipse({15.8, 0.3}, 2.7, 2.3), kRatPink, {.bevel = 1.8, .line = 1.1});
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {0, -17}, 17, 4, expression.stars);
}

void drawRatFace(Canvas& canvas, double turn, const Expression& expression, Prop inMouth) {
    const double back = earsBack(expression);
    for (const double side : {-1.0, 1.0}) {
        const bool down = isSad(expression);
        const Point ear = down ? Point{12.4, -4} : Point{11 + back, -8 + 1.6 * back};
        drawEar(canvas, {side * ear.x - turn * 0.4, ear.y}, side * (down ? -0.5 : 0.4 + 0.5 * back), back, kRatFur,
                kRatPink, down);
    }
    canvas.part(loop({{-12, 1},
                      {-12, -7},
                      {-6, -11},
                      {0, -11},
                      {6, -11},
                      {12, -7},
                      {12, 1},
                      {12, 7},
                      {5, 11},
                      {0, 11},
                      {-5, 11},
                      {-12, 7},
                      {-12, 1}}),
                kRatFur, {.bevel = 8, .line = 1.4});
    const auto features = canvas.placed({turn * 1.2, -expression.chin * 0.6});
    drawMouthOfFace(canvas, expression.mouth);
    drawProp(canvas, {0, 9}, {inMouth});
    drawTeeth(canvas, {0, 6.6}, 2.1, teethLength(expression.mouth) - 0.2);
    // The muzzle, and whiskers on both sides.
    canvas.part(ellipse({0, 4.2}, 4.6, 2.7), kRatFur, {.bevel = 2.6, .line = 0.7, .shadow = 0.2F});
    const double down = whiskersDown(expression);
    for (const double side : {-1.0, 1.0}) {
        for (const double dy : {-1.0, 0.0, 1.0})
            drawWhisker(canvas, {side * 3.4, 4.8 + 0.6 * dy}, {side * 13.6, 5.4 + 2.6 * dy + down});
        const Point eye{5 * side, -2};
        drawEye(canvas, eye, kEyeRadius, -side, expression, kEyes);
        drawRatBrow(canvas, eye, -side, expression, 1);
    }
    canvas.part(ellipse({0, 2.6}, 2.9, 2.2), kRatPink, {.bevel = 2, .line = 1});
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {0, -17}, 17, 4, expression.stars);
}

}  // namespace grub
