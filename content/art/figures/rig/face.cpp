#include "face.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

/// Of pupils.
constexpr Rgb kGlint = rgb(0xfdf3e4);
/// Pale, since gold is kept for what can be taken.
constexpr Material kStar = glossy(material(0xfdf3e4, 0xb9a3c9, 0xffffff), 0.5F);

constexpr double kWideBall = 1.13;
constexpr double kWidePupil = 0.7;
/// From the ink of a lid to its shadow.
constexpr float kLidLine = 0.4F;

void drawPupil(Canvas& canvas, Point at, double radius, double size, const Mask& inEye, const EyeStyle& style) {
    const Point half = style.pupilShape * (radius * size);
    canvas.flat(ellipse(at, half.x, half.y), style.pupil, {.clip = &inEye});
    canvas.flat(ellipse(at + Point{0, half.y * 0.5}, half.x * 0.6, half.y * 0.34), mix(style.pupil, kGlint, 0.45F),
                {.alpha = 0.6F, .clip = &inEye});
    canvas.flat(circle(at + Point{-half.x * 0.36, -half.y * 0.42}, half.x * 0.38), rgb(0xffffff));
    canvas.flat(circle(at + Point{half.x * 0.42, half.y * 0.3}, half.x * 0.15), rgb(0xffffff), {.clip = &inEye});
}

/// The upper lid, its edge curved like the ball, with a line on it that is lighter than a brow.
void drawLid(Canvas& canvas, Point at, double radius, double nose, const Expression& expression, const Mask& inEye,
             const EyeStyle& style) {
    const double slant = std::tan(expression.browTilt) * style.slant * nose;
    // An open lid begins above the ball, a shut one ends below its middle.
    const double edge = at.y + radius * style.shape.y * (1.5 * expression.lid - 1);
    const double half = 1.6 * radius;
    const double bulge = radius * (0.5 * expression.lid - 0.05);
    const Point left{at.x - half, edge - slant * half - bulge * 0.5};
    const Point right{at.x + half, edge + slant * half - bulge * 0.5};
    const Point low{0, bulge};
    VectorPath lid;
    lid.moveTo(left).curveTo(mix(left, right, 0.3) + low, mix(left, right, 0.7) + low, right);
    VectorPath edgeLine = lid;
    lid.lineTo({right.x, at.y - 3 * radius}).lineTo({left.x, at.y - 3 * radius}).close();
    canvas.part(lid, style.lid, {.bevel = 2, .line = 0, .shadow = 0.2F, .clip = &inEye});
    canvas.flat(edgeLine, mix(style.lid.ink, style.lid.shadow, kLidLine), {.stroke = 0.2 * radius, .clip = &inEye});
}

/// A lid that covers all of the ball: a mound without a line of its own, over the arc where it meets the cheek.
void drawShutEye(Canvas& canvas, Point at, double radius, double nose, const EyeStyle& style) {
    constexpr double kArc = 1.2;
    const double half = radius * style.shape.x * 0.95;
    const Point left = at + Point{-half, radius * 0.16};
    const Point right = at + Point{half, radius * 0.16};
    const Point low{half * 0.5, radius * 0.66};
    const Point high{half * 0.2, -radius * style.shape.y * 1.3};
    const Point leftLow{left.x + low.x, left.y + low.y};
    const Point rightLow{right.x - low.x, right.y + low.y};
    VectorPath mound;
    mound.moveTo(left).curveTo(leftLow, rightLow, right);
    mound.curveTo({right.x - high.x, right.y + high.y}, {left.x + high.x, left.y + high.y}, left).close();
    canvas.part(mound, style.lid, {.bevel = radius * 0.9, .line = 0, .shadow = 0});
    canvas.flat(curve({left, leftLow, rightLow, right}), style.pupil, {.stroke = kArc});
    if (!style.lashes) return;
    for (const double place : {0.3, 0.85}) {
        const Point root = at + Point{-nose * half * place, radius * (0.16 + 0.5 * (1 - place * place))};
        canvas.flat(polyline({root, root + Point{-nose * radius * 0.3, radius * 0.34}}), style.pupil,
                    {.stroke = kArc * 0.75});
    }
}

/// The spiral of a dizzy eye.
void drawSpiral(Canvas& canvas, Point at, double radius, Rgb colour) {
    constexpr int kSteps = 26;
    constexpr double kTurns = 1.5;
    VectorPath path;
    for (int i = 0; i <= kSteps; ++i) {
        const double share = static_cast<double>(i) / kSteps;
        const double angle = 2 * std::numbers::pi * kTurns * share;
        const Point p = at + Point{std::cos(angle), std::sin(angle)} * (radius * share);
        i == 0 ? path.moveTo(p) : path.lineTo(p);
    }
    canvas.flat(path, colour, {.stroke = 1.3});
}

}  // namespace

void drawEye(Canvas& canvas, Point at, double radius, double nose, const Expression& expression,
             const EyeStyle& style) {
    constexpr double kShut = 0.9;
    if (expression.lid >= kShut) return drawShutEye(canvas, at, radius, nose, style);
    const bool wide = expression.eyes == Eyes::Wide;
    if (wide) radius *= kWideBall;
    const VectorPath ball = ellipse(at, radius * style.shape.x, radius * style.shape.y);
    if (expression.eyes == Eyes::Spiral) {
        canvas.part(ball, kEnamel, {.bevel = 2, .line = 0.8, .shadow = 0.2F});
        drawSpiral(canvas, at, radius * 0.88, style.pupil);
        return;
    }
    canvas.part(ball, style.ball, {.bevel = 2, .line = 0.8, .shadow = 0.2F});
    const Mask inEye = canvas.mask(ball);
    drawPupil(canvas, at + expression.look * (radius * style.reach), radius, wide ? kWidePupil : 1, inEye, style);
    Expression pressed = expression;
    pressed.lid = std::max(expression.lid, style.glower * expression.browTilt);
    if (pressed.lid > 0) drawLid(canvas, at, radius, nose, pressed, inEye, style);
}

void drawBrow(Canvas& canvas, Point at, double nose, const Expression& expression, const BrowStyle& style) {
    const auto turned = canvas.placed(at - Point{0, expression.browHeight}, expression.browTilt * nose, nose, 1);
    const double inner = style.half;
    const double outer = -style.half;
    const double thick = style.thickness;
    // A turned brow is straight: the arch belongs to a calm face.
    const double arch = style.arch * std::max(0.0, 1 - std::abs(expression.browTilt) * 2);
    VectorPath brow;
    brow.moveTo({outer, arch * 0.5})
        .curveTo({outer * 0.4, -arch - thick * 0.4}, {inner * 0.4, -arch - thick * 0.6}, {inner, -thick * 0.5})
        .curveTo({inner + thick * 0.5, -thick * 0.2}, {inner + thick * 0.4, thick * 0.5}, {inner, thick * 0.5})
        .curveTo({inner * 0.4, thick * 0.5 - arch}, {outer * 0.4, thick * 0.4 - arch}, {outer, arch * 0.5})
        .close();
    canvas.flat(brow, style.colour);
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
