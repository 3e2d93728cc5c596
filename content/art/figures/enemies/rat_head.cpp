#include "rat_parts.h"

#include "face.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kLid = glossy(material(0x8e94a8, 0x434763, 0xc6ccd8), 0.1F, 0.3F);

constexpr EyeStyle kEyes{
    .lid = kLid, .pupil = rgb(0x24141f), .shape = {0.96, 1.06}, .pupilShape = {0.5, 0.58}, .glower = 1};
constexpr double kEyeRadius = 3.8;
constexpr BrowStyle kBrows{.colour = kRatFold, .half = 2.5, .thickness = 1.9, .arch = 0.5};
/// Height of a calm brow above its eye's middle.
constexpr double kBrowHeight = 4.5;

constexpr Rgb kWhisker = rgb(0xe9e3ee);
constexpr Rgb kMouth = rgb(0x4a1f34);
constexpr Rgb kTongue = rgb(0xe0707c);

/// How far the ears are laid back, 0 to 1.
double earsBack(const Expression& expression) {
    if (expression.eyes == Eyes::Wide) return 0;
    if (expression.eyes == Eyes::Spiral || expression.browTilt < -0.2) return 1;
    if (expression.browTilt > 0.2) return 0.5;
    return expression.lid > 0.9 ? 0.8 : 0.15;
}

void drawEar(Canvas& canvas, Point at, double tilt, double back, const Material& fur, const Material& pink) {
    canvas.part(ellipse(at, 5.4 - 0.9 * back, 5.8, tilt), fur, {.bevel = 2.6, .line = 1.4});
    canvas.part(ellipse(at + Point{0.4, 0.8}, 3.3 - 0.8 * back, 3.8, tilt), pink,
                {.bevel = 2, .line = 0.7, .shadow = 0.15F});
}

/// Two front teeth; `root` is the middle of their upper edge.
void drawTeeth(Canvas& canvas, Point root, double length) {
    for (const double side : {-1.0, 1.0}) {
        canvas.part(rectangle(root.x + side * 1.05 - 1.05, root.y - 0.6, 2.1, length + 0.6, 0.7), kEnamel,
                    {.bevel = 1.1, .line = 0.8, .shadow = 0.15F});
    }
}

/// The mouth as a line or hole around `at`; `half` is half its width.
void drawMouth(Canvas& canvas, Point at, double half, Mouth mouth) {
    const auto line = [&](double ends, double middle) {
        canvas.flat(curve({at + Point{-half, ends}, at + Point{-0.5 * half, middle}, at + Point{0.5 * half, middle},
                           at + Point{half, ends}}),
                    kMouth, {.stroke = 1.2});
    };
    switch (mouth) {
        case Mouth::Smile: return line(-1.8, 2.2);
        case Mouth::Frown: return line(1.8, -1.6);
        case Mouth::Open:
            canvas.flat(ellipse(at + Point{0, 0.6}, half * 0.9, 2.7), kMouth);
            canvas.flat(ellipse(at + Point{0, 1.9}, half * 0.55, 1.1), kTongue);
            return;
        case Mouth::Grit:
            canvas.flat(rectangle(at.x - half, at.y - 1.6, 2 * half, 3.6, 1.4), kMouth);
            canvas.flat(rectangle(at.x - half + 0.8, at.y - 0.9, 2 * half - 1.6, 2.2, 0.8), rgb(0xffffff));
            for (const double x : {-0.5, 0.0, 0.5}) {
                canvas.flat(polyline({at + Point{x * half, -0.9}, at + Point{x * half, 1.3}}), kMouth, {.stroke = 0.6});
            }
            return;
        case Mouth::Pout: canvas.flat(ellipse(at, 1.3, 1.1), kMouth); return;
    }
}

}  // namespace

VectorPath ratProfile() {
    return loop({{0, -9.8},
                 {4.6, -10},
                 {8.4, -7.4},
                 {11, -4.3},
                 {13.6, -1.8},
                 {17, -0.6},
                 {17, 2.5},
                 {17, 6.1},
                 {9, 8.3},
                 {1, 8.7},
                 {-6, 9},
                 {-10, 5},
                 {-10, 0},
                 {-10, -6},
                 {-6, -9.6},
                 {0, -9.8}});
}

void drawRatFarEar(Canvas& canvas, const Expression& expression) {
    const double back = earsBack(expression);
    drawEar(canvas, {1.2, -8.2 + 0.8 * back}, -0.1 - 0.5 * back, back, kRatFarFur, kRatFarPink);
}

void drawRatProfile(Canvas& canvas, const Expression& expression) {
    const double back = earsBack(expression);
    drawEar(canvas, {-5.6 - 2 * back, -7.6 + 0.6 * back}, -0.25 - 0.6 * back, back, kRatFur, kRatPink);
    drawMouth(canvas, {8.4, 5}, 2.7, expression.mouth);
    drawTeeth(canvas, {12.4, 6}, 3);
    for (const double dy : {-1.6, 0.4, 2.4}) {
        canvas.flat(curve({{12, 1.4 + dy * 0.4}, {9.6, 0.8 + dy * 0.7}, {7.4, 0.8 + dy}, {4.8, 1.4 + dy * 1.5}}),
                    kWhisker, {.alpha = 0.8F, .stroke = 0.7});
    }
    const Point eye{5.2, -2.6};
    drawEye(canvas, eye, kEyeRadius, 1, expression, kEyes);
    drawBrow(canvas, eye - Point{0, kBrowHeight}, 1, expression, kBrows);
    canvas.part(ellipse({15.6, 0.9}, 2.7, 2.3), kRatPink, {.bevel = 1.8, .line = 1.1});
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {0, -17}, 17, 4, expression.stars);
}

void drawRatFace(Canvas& canvas, double turn, const Expression& expression) {
    const double back = earsBack(expression);
    for (const double side : {-1.0, 1.0}) {
        drawEar(canvas, {side * (11 + back) - turn * 0.4, -8 + 1.6 * back}, side * (0.4 + 0.5 * back), back, kRatFur,
                kRatPink);
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
    drawMouth(canvas, {0, 8}, 3.6, expression.mouth);
    drawTeeth(canvas, {0, 6.4}, 3);
    // The muzzle, and whiskers on both sides.
    canvas.part(ellipse({0, 4.2}, 4.6, 2.7), kRatFur, {.bevel = 2.6, .line = 0.7, .shadow = 0.2F});
    for (const double side : {-1.0, 1.0}) {
        for (const double dy : {-1.0, 0.6, 2.2}) {
            canvas.flat(curve({{side * 3.4, 4.6 + dy * 0.4},
                               {side * 6.6, 3.8 + dy * 0.8},
                               {side * 10, 3.8 + dy * 1.2},
                               {side * 13.6, 4.6 + dy * 1.7}}),
                        kWhisker, {.alpha = 0.8F, .stroke = 0.7});
        }
        const Point eye{5 * side, -2};
        drawEye(canvas, eye, kEyeRadius, -side, expression, kEyes);
        drawBrow(canvas, eye - Point{0, kBrowHeight}, -side, expression, kBrows);
    }
    canvas.part(ellipse({0, 2.6}, 2.9, 2.2), kRatPink, {.bevel = 2, .line = 1});
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {0, -17}, 17, 4, expression.stars);
}

}  // namespace grub
