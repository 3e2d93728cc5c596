#include "lady_parts.h"
#include "shapes.h"

namespace grub {

namespace {

/// Red is danger: she wears it while she hunts.
constexpr Material kAngryLips = glossy(material(0xd8263a, 0x6f1236, 0xff6f5e), 0.6F);
constexpr Material kLips = glossy(material(0xd0596f, 0x7e2a4e, 0xf5a09a), 0.6F);

constexpr Rgb kLipLine = rgb(0x6f1236);
constexpr Rgb kThroat = rgb(0x4a1028);

void drawSmile(Canvas& canvas) {
    canvas.part(loop({{-4.6, -1.8},
                      {-2.4, -0.3},
                      {-1, -0.8},
                      {0, -0.3},
                      {1, -0.8},
                      {2.4, -0.3},
                      {4.6, -1.8},
                      {3.3, 2.7},
                      {-3.3, 2.7},
                      {-4.6, -1.8}}),
                kLips, {.bevel = 1.2, .line = 0.6, .shadow = 0.15F});
    canvas.flat(curve({{-4.7, -1.8}, {-2.2, 1.3}, {2.2, 1.3}, {4.7, -1.8}}), kLipLine, {.stroke = 0.9});
    // Dimples.
    for (const double side : {-1.0, 1.0}) {
        canvas.flat(polyline({{side * 4.2, -2.5}, {side * 5.4, -1.5}}), kLipLine, {.stroke = 0.7});
    }
}

/// Lips drawn back from the teeth.
void drawGrit(Canvas& canvas) {
    canvas.part(loop({{-4.6, 1.6},
                      {-4, -2},
                      {-1.4, -2.8},
                      {0, -2},
                      {1.4, -2.8},
                      {4, -2},
                      {4.6, 1.6},
                      {3.2, 3},
                      {-3.2, 3},
                      {-4.6, 1.6}}),
                kAngryLips, {.bevel = 1.3, .line = 0.7, .shadow = 0.15F});
    const VectorPath gap = loop({{-2.9, 1}, {-1.8, -0.9}, {1.8, -0.9}, {2.9, 1}, {1.6, 1.2}, {-1.6, 1.2}, {-2.9, 1}});
    canvas.part(gap, kEnamel, {.bevel = 0.8, .line = 0.5, .shadow = 0});
    const Mask inGap = canvas.mask(gap);
    for (const double x : {-1.3, 0.0, 1.3}) {
        canvas.flat(polyline({{x * 0.9, -2}, {x, 2}}), kLipLine, {.alpha = 0.7F, .stroke = 0.35, .clip = &inGap});
    }
}

void drawFrown(Canvas& canvas) {
    canvas.part(loop({{-3.8, 1}, {-2.4, -1.9}, {2.4, -1.9}, {3.8, 1}, {2.4, 1.4}, {-2.4, 1.4}, {-3.8, 1}}), kLips,
                {.bevel = 1.2, .line = 0.7, .shadow = 0.15F});
    canvas.flat(curve({{-3.8, 1.1}, {-1.8, -1}, {1.8, -1}, {3.8, 1.1}}), kLipLine, {.stroke = 0.9});
}

/// Lips around an opening.
void drawCry(Canvas& canvas) {
    canvas.part(ellipse({}, 2.9, 2.6), kAngryLips, {.bevel = 1.4, .line = 0.7, .shadow = 0.15F});
    canvas.flat(ellipse({}, 1.7, 1.5), kThroat);
}

/// Shut lips whose corners turn up: she knows that she is right.
void drawSmirk(Canvas& canvas) {
    canvas.part(loop({{-4, -1.5},
                      {-2, -0.9},
                      {-1, -1.2},
                      {0, -0.7},
                      {1, -1.2},
                      {2, -0.9},
                      {4, -1.5},
                      {2.6, 2.1},
                      {-2.6, 2.1},
                      {-4, -1.5}}),
                kLips, {.bevel = 1.2, .line = 0.6, .shadow = 0.15F});
    canvas.flat(curve({{-4.9, -2}, {-2.6, 1}, {2.6, 1}, {4.9, -2}}), kLipLine, {.stroke = 0.9});
}

/// Lips that know no up and down.
void drawWavy(Canvas& canvas) {
    const VectorPath wave = curve({{-4, 0.2},
                                   {-3, -1.5},
                                   {-2.2, -1.5},
                                   {-1.2, 0},
                                   {-0.5, 1},
                                   {0.5, 1},
                                   {1.2, 0},
                                   {2.2, -1.5},
                                   {3, -1.5},
                                   {4, 0.2}});
    canvas.part(wave, kLips, {.bevel = 1.1, .line = 0.7, .shadow = 0.15F, .stroke = 1.9});
    canvas.flat(wave, kLipLine, {.stroke = 0.6});
}

/// Just open for a breath.
void drawBreath(Canvas& canvas) {
    canvas.flat(ellipse({}, 1.3, 1), kThroat);
    canvas.flat(curve({{-1.2, 1.9}, {-0.5, 2.3}, {0.5, 2.3}, {1.2, 1.9}}), kLipLine, {.alpha = 0.5F, .stroke = 0.6});
}

}  // namespace

void drawLadyMouth(Canvas& canvas, const Expression& expression) {
    constexpr double kHaughty = 0.3;
    if (expression.eyes == Eyes::Spiral) return drawWavy(canvas);
    switch (expression.mouth) {
        case Mouth::Smile: return expression.lid > kHaughty ? drawSmirk(canvas) : drawSmile(canvas);
        case Mouth::Open: return drawCry(canvas);
        case Mouth::Grit: return drawGrit(canvas);
        case Mouth::Frown: return drawFrown(canvas);
        case Mouth::Pout: return drawBreath(canvas);
    }
}

}  // namespace grub
