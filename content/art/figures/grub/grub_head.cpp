#include "grub_parts.h"

#include <algorithm>
#include <cmath>

#include "face.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kHair = glossy(material(0x82492f, 0x4a2639, 0xbc8250), 0.3F);
constexpr Material kHelmet = glossy(material(0xf4622f, 0xa02440, 0xffb870), 0.15F, 0.5F);
constexpr Material kLamp = glossy(material(0xfff2b0, 0xe0a23a, 0xffffff), 1);
constexpr Material kDeadLamp = glossy(material(0x55546a, 0x2a2840, 0xa8a8bc), 0.7F);
constexpr Rgb kMouth = rgb(0x5a2632);
constexpr Rgb kTongue = rgb(0xd8636a);
constexpr Rgb kTeeth = rgb(0xffffff);
constexpr Rgb kBlush = rgb(0xf08f6c);

constexpr EyeStyle kEyes{.lid = kGrubSkin};
constexpr BrowStyle kBrows{.colour = rgb(0x43192a), .half = 3.2, .thickness = 1.7};

constexpr double kMiddle = 32;
/// Middle of the helmet's rim, about which it slips.
constexpr Point kHelmetSeat{32, 19};
/// The helmet's share of a raised chin and of raised brows, which push it up.
constexpr double kHelmetUp = 0.8;

VectorPath headShape() {
    return loop({{32, 9},
                 {41, 9},
                 {45, 17},
                 {45, 25},
                 {45.8, 33.8},
                 {41.4, 38},
                 {32, 38},
                 {22.6, 38},
                 {18.2, 33.8},
                 {19, 25},
                 {19, 17},
                 {23, 9},
                 {32, 9}});
}

/// The round of the head: a feature `away` pixels to the right of the middle of the face moves with the face's turn,
/// that on the side it turns to a little less.
double onFace(double away, double turn, double share) {
    const double foreshortened = 0.013 * away * std::abs(turn);
    return kMiddle + away + share * turn - foreshortened;
}

void drawMouth(Canvas& canvas, Mouth mouth, Point at) {
    const auto placed = canvas.placed(at);
    switch (mouth) {
        case Mouth::Smile:
            canvas.flat(curve({{-4.7, -1}, {-2.6, 2}, {2.6, 2.2}, {4.7, -1.4}}), kMouth, {.stroke = 1.15});
            for (const Point corner : {Point{-4.7, -1}, Point{4.7, -1.4}}) canvas.flat(circle(corner, 0.75), kMouth);
            return;
        case Mouth::Open: {
            const VectorPath hole = ellipse({0, 0.8}, 2.8, 2.8);
            canvas.flat(hole, kMouth);
            const Mask inside = canvas.mask(hole);
            canvas.flat(ellipse({0, 2.9}, 2.1, 1.6), kTongue, {.clip = &inside});
            return;
        }
        case Mouth::Grit:
            canvas.flat(rectangle(-4.2, -1.4, 8.4, 4, 1.6), kMouth);
            canvas.flat(rectangle(-3.3, -0.6, 6.6, 2.3, 0.8), kTeeth);
            for (const double x : {-1.2, 1.1}) canvas.flat(rectangle(x - 0.2, -0.6, 0.4, 2.3), kMouth, {.alpha = 0.5F});
            return;
        case Mouth::Frown:
            canvas.flat(curve({{-4, 2}, {-2.2, -0.8}, {2.2, -0.8}, {4, 2}}), kMouth, {.stroke = 1.2});
            return;
        case Mouth::Pout: canvas.flat(ellipse({0.4, 0.8}, 1.5, 1.7), kMouth); return;
    }
}

void drawFace(Canvas& canvas, const Expression& expression, double turn) {
    const double up = expression.chin;
    const Mask inHead = canvas.mask(headShape());
    for (const double side : {-1.0, 1.0})
        canvas.flat(ellipse({onFace(side * 9.1, turn, 0.98), 32.2 - up}, 2.7, 1.8), kBlush,
                    {.alpha = 0.5F, .clip = &inHead});
    drawMouth(canvas, expression.mouth, {onFace(0, turn, 1.37), 34 - up});
    // The far eye first.
    const double far = turn < 0 ? -1 : 1;
    for (const double side : {far, -far}) {
        const double radius = 4.85 - 0.08 * side * turn;
        drawEye(canvas, {onFace(side * 4.6, turn, 1.13), 26.8 - up}, radius, -side, expression, kEyes);
    }
    canvas.part(ellipse({onFace(0, turn, 1.87), 30.6 - up * 1.3}, 2.7, 2.3), kGrubSkin,
                {.bevel = 2.4, .line = 0.7, .shadow = 0.25F});
}

/// Between eyes and helmet.
void drawBrows(Canvas& canvas, const Expression& expression, double turn) {
    // The shade under the rim would swallow a brow that is only a little lowered.
    const double row = 21.2 - expression.chin - 1.2 * std::min(0.0, expression.browHeight);
    for (const double side : {-1.0, 1.0})
        drawBrow(canvas, {onFace(side * 4.9, turn, 1.06), row}, -side, expression, kBrows);
}

/// Hair at the back of the head below the helmet.
void drawHairBehind(Canvas& canvas) {
    const Mask inHead = canvas.mask(headShape());
    VectorPath hair = rectangle(14, 12, 36, 16, 3);
    for (int i = 0; i < 6; ++i) hair.unite(circle({20.5 + 4.6 * i, 27.6}, 2.9));
    canvas.part(hair, kHair, {.bevel = 3, .line = 0.9, .shadow = 0.25F, .clip = &inHead});
}

/// What shows of it behind the cheek; `turn` as in HeadPose.
void drawHairAtCheek(Canvas& canvas, double turn) {
    const Mask inHead = canvas.mask(headShape());
    const double side = turn > 0 ? -1 : 1;
    const double wide = std::clamp(std::abs(turn) - 3, 0.0, 2.0);
    canvas.part(limb({{{kMiddle + side * 13.4, 14}, 4 + wide}, {{kMiddle + side * 13.2, 24.5}, 3.4 + wide}}), kHair,
                {.bevel = 3, .line = 0.8, .shadow = 0.2F, .clip = &inHead});
}

void drawHelmetLamp(Canvas& canvas, double turn, bool out) {
    const Point at{kMiddle + turn * 1.6, 11.8};
    canvas.part(circle(at, 4.9), kMetal, {.bevel = 2.2});
    canvas.part(circle(at, 3.4), out ? kDeadLamp : kLamp, {.bevel = 2.5, .line = 0.5, .shadow = 0});
}

void drawHelmetRidge(Canvas& canvas, double turn) {
    const double x = kMiddle + turn;
    const double lean = turn * 0.2;
    canvas.part(loop({{x - 1.6, 4.6},
                      {x - 1, 3.2},
                      {x + 1, 3.2},
                      {x + 1.6, 4.6},
                      {x + 2.6 + lean, 9},
                      {x + 2.8 + lean, 12},
                      {x + 2.6 + lean, 15.2},
                      {x + 1, 15.8},
                      {x - 1, 15.8},
                      {x - 2.6 + lean, 15.2},
                      {x - 2.8 + lean, 12},
                      {x - 2.6, 9},
                      {x - 1.6, 4.6}}),
                kHelmet, {.bevel = 1.6, .line = 0.6, .shadow = 0.3F});
}

VectorPath domeShape(bool dented) {
    VectorPath dome;
    dome.moveTo({18.2, 20.6});
    if (dented) {
        dome.curveTo({17.4, 15.5}, {17.4, 12.5}, {19.4, 10.6}).curveTo({20.6, 9.5}, {21.4, 10.6}, {23.2, 9.8});
        dome.curveTo({25, 9}, {24.6, 6.6}, {27, 5.2}).curveTo({28.4, 4.4}, {30, 4.2}, {32, 4.2});
    } else {
        dome.curveTo({16.6, 8.4}, {24, 4.2}, {32, 4.2});
    }
    dome.curveTo({40, 4.2}, {47.4, 8.4}, {45.8, 20.6}).curveTo({38, 16}, {26, 16}, {18.2, 20.6}).close();
    return dome;
}

/// The hollow of a dent: dark under its edge, light where it comes out again.
void drawHollow(Canvas& canvas) {
    canvas.flat(loop({{20, 11.6}, {22.6, 13.6}, {27, 11}, {26.8, 6.4}, {25.4, 9}, {24.2, 10.8}, {20, 11.6}}),
                kHelmet.shadow, {.alpha = 0.75F});
    canvas.flat(curve({{20.2, 12.8}, {23.4, 15}, {28.2, 12.2}, {28, 7.4}}), kHelmet.light,
                {.alpha = 0.8F, .stroke = 0.9});
}

/// The same on either side of the ridge, whichever way he faces.
void drawGlints(Canvas& canvas, double turn) {
    const Mask dome = canvas.mask(domeShape(false));
    for (const double side : {-1.0, 1.0}) {
        const Point at{kMiddle + turn * 0.6 + side * 7.2, 9.4};
        for (const double size : {1.0, 0.72})
            canvas.flat(ellipse(at, 3.3 * size, 1.9 * size, side * 0.62), rgb(0xffffff),
                        {.alpha = 0.4F, .clip = &dome});
    }
}

void drawHelmet(Canvas& canvas, double turn, bool dented) {
    canvas.part(domeShape(dented), kHelmet, {.bevel = dented ? 5.0 : 9.0, .line = 1.2});
    drawGlints(canvas, turn);
    if (dented) drawHollow(canvas);
    const VectorPath brim = loop({{16, 20.6},
                                  {24, 14.4},
                                  {40, 14.4},
                                  {48, 20.6},
                                  {48.8, 23},
                                  {46.6, 23.8},
                                  {45.4, 23},
                                  {39, 17.6},
                                  {25, 17.6},
                                  {18.6, 23},
                                  {17.4, 23.8},
                                  {15.2, 23},
                                  {16, 20.6}});
    canvas.part(brim, kHelmet, {.bevel = 2.4, .line = 1, .shadow = 0.5F});
    drawHelmetRidge(canvas, turn);
}

}  // namespace

void drawGrubHeadParts(Canvas& canvas, FigureView view, const HeadPose& head, const Expression& expression) {
    const bool fromBehind = view == FigureView::Back;
    const double turn = fromBehind ? 0 : head.turn;
    const auto turned = canvas.bent(kGrubNeck, head.tilt, head.shift);
    canvas.part(headShape(), kGrubSkin, {.bevel = 6.5, .line = 1.1});
    if (fromBehind) {
        drawHairBehind(canvas);
    } else {
        if (std::abs(turn) > 1) drawHairAtCheek(canvas, turn);
        drawFace(canvas, expression, turn);
        drawBrows(canvas, expression, turn);
    }
    const double up = kHelmetUp * (std::max(0.0, expression.chin) + std::max(0.0, expression.browHeight));
    const auto slipped = canvas.bent(kHelmetSeat, head.hatTilt, head.hatShift - Point{0, up});
    drawHelmet(canvas, turn, head.hatDented);
    if (!fromBehind) drawHelmetLamp(canvas, turn, head.lampOut);
}

void drawGrubStars(Canvas& canvas, const HeadPose& head, double turn) {
    const auto turned = canvas.bent(kGrubNeck, head.tilt, head.shift);
    drawDizzyStars(canvas, {kMiddle, 1.5}, 22, 5, turn);
}

}  // namespace grub
