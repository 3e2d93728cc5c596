#include <algorithm>
#include <cmath>

#include "figure.h"
#include "hand.h"
#include "lady_parts.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kFarDress = glossy(material(0x8f3379, 0x4f1f66, 0xc05fa8), 0.1F, 0.2F);
constexpr Material kFarSkin = glossy(material(0xcf917e, 0x7d4560, 0xe8b49c), 0.1F);
constexpr Material kFarCuff = glossy(material(0xbfb2c6, 0x6f6592, 0xd8cfe0), 0.1F);
constexpr Material kStocking = glossy(material(0xd9c3cf, 0x7b6790, 0xf6e9f0), 0.1F);
constexpr Material kFarStocking = glossy(material(0xa08aa2, 0x58466e, 0xc0aabf), 0.05F);
constexpr Material kShoe = glossy(material(0x6a5488, 0x2c2044, 0xb09ccb), 0.8F);
constexpr Material kFarShoe = glossy(material(0x5d4d7a, 0x2c2244, 0x8f7cae), 0.5F);

/// Radius of a fist.
constexpr double kFist = 3.6;

// Shoes, their soles on the origin.

void drawShoeFromSide(Canvas& canvas, const Material& leather) {
    canvas.part(loop({{-4.6, -3},
                      {-4.4, -5.6},
                      {-1.6, -6.2},
                      {0.6, -5.4},
                      {2.6, -4.4},
                      {7.4, -4.4},
                      {7.6, -1.4},
                      {7.6, -0.4},
                      {7, 0},
                      {6, 0},
                      {3, 0},
                      {-3, 0},
                      {-4, 0},
                      {-4.6, 0},
                      {-4.6, -1},
                      {-4.6, -3}}),
                leather, {.bevel = 2.8, .line = 1.2});
    canvas.flat(curve({{-4.4, -0.9}, {-1, -0.9}, {3, -0.8}, {7.2, -0.9}}), leather.ink, {.alpha = 0.6F, .stroke = 0.6});
}

void drawShoeFromFront(Canvas& canvas) {
    canvas.part(rectangle(-3.4, -6.4, 6.8, 5, 2.4), kShoe, {.bevel = 2.6, .line = 1.1});
    const VectorPath toe = loop({{-4.2, 0},
                                 {-5, -2},
                                 {-3.6, -4.6},
                                 {0, -4.6},
                                 {3.6, -4.6},
                                 {5, -2},
                                 {4.2, 0},
                                 {2, 0.02},
                                 {-2, 0.02},
                                 {-4.2, 0}});
    canvas.part(toe, kShoe, {.bevel = 2.4, .line = 1});
}

void drawShoeFromBehind(Canvas& canvas) {
    canvas.part(rectangle(-4, -5.8, 8, 5.8, 2.8), kShoe, {.bevel = 2.8, .line = 1.2});
    canvas.flat(polyline({{0, -4.8}, {0, -1.4}}), kShoe.ink, {.alpha = 0.5F, .stroke = 0.5});
    canvas.flat(curve({{-3.6, -1.2}, {-1.4, -0.8}, {1.4, -0.8}, {3.6, -1.2}}), kShoe.ink,
                {.alpha = 0.6F, .stroke = 0.6});
}

}  // namespace

void drawLadyLeg(Canvas& canvas, FigureView view, Point hip, const LegPose& leg, Side side) {
    const bool dark = view == FigureView::Side && side == Side::Far;
    const Material& stocking = dark ? kFarStocking : kStocking;
    const Material& leather = dark ? kFarShoe : kShoe;
    if (view != FigureView::Side) {
        canvas.part(limb({{hip, 3}, {leg.sole + Point{0, -4}, 2.5}}), stocking, {.bevel = 2.4, .line = 1.1});
        const auto foot = canvas.placed(leg.sole, leg.angle);
        return view == FigureView::Front ? drawShoeFromFront(canvas) : drawShoeFromBehind(canvas);
    }
    const Point ankle = leg.sole + Affine{}.rotated(leg.angle).apply({-1.4, -4});
    const Point knee = jointOf(hip, ankle, 6.4, 6.4, leg.bend);
    canvas.part(limb({{hip, 3}, {knee, 2.8}, {ankle, 2.4}}), stocking, {.bevel = 2.4, .line = 1.1});
    const auto foot = canvas.placed(leg.sole, leg.angle);
    drawShoeFromSide(canvas, leather);
}

void drawLadyArm(Canvas& canvas, FigureView view, Point shoulder, const ArmPose& arm, Side side) {
    const bool dark = view == FigureView::Side && side == Side::Far && !arm.acrossBody;
    const Material& skin = dark ? kFarSkin : kLadySkin;
    const double bone = arm.bone > 0 ? arm.bone : std::max(6.6, length(arm.hand - shoulder) / 2 * 1.05);
    const Point elbow = jointOf(shoulder, arm.hand, bone, bone, arm.bend);
    const Point wrist = mix(elbow, arm.hand, 0.3);
    const Point forearm = arm.hand - elbow;
    const double along = std::atan2(forearm.y, forearm.x);
    canvas.part(limb({{elbow, 2.6}, {arm.hand, 2.3}}), skin, {.bevel = 2.4});
    canvas.part(limb({{shoulder, 4.6}, {elbow, 3.6}, {wrist, 3.2}}), dark ? kFarDress : kLadyDress,
                {.bevel = 3.6, .line = 1.1, .shadow = 0.3F});
    {
        const auto cuff = canvas.placed(wrist, along);
        canvas.part(rectangle(1, -3.7, 3, 7.4, 1.4), dark ? kFarCuff : kLadyApron,
                    {.bevel = 1.8, .line = 0.8, .shadow = 0.25F});
    }
    const auto drawOwnHand = [&] {
        drawHand(canvas, arm.hand, along, thumbOf(view, side == Side::Near), arm.grip, kFist, skin);
    };
    if (arm.grip != Grip::Open) {
        drawProp(canvas, arm.hand, arm.held);
        return drawOwnHand();
    }
    drawOwnHand();
    drawProp(canvas, arm.hand + Point{0.4, -0.6} * kFist, arm.held);
}

}  // namespace grub
