#include "rat_parts.h"

#include <algorithm>
#include <array>

#include "figure.h"
#include "shapes.h"

namespace grub {

VectorPath ratTrunk() {
    return loop({{8.6, 53},
                 {8.6, 44},
                 {17, 39.6},
                 {27, 39.6},
                 {36, 39.6},
                 {46, 42},
                 {46.4, 50},
                 {46.8, 56},
                 {40, 59},
                 {30, 59},
                 {24, 59},
                 {20, 59},
                 {17, 59},
                 {12, 59},
                 {8.6, 57},
                 {8.6, 53}});
}

void drawRatTufts(Canvas& canvas) {
    for (const Point tuft : {Point{19, 44.6}, Point{25, 43.4}, Point{29, 46.4}}) {
        canvas.flat(curve({tuft, tuft + Point{-0.8, 0.2}, tuft + Point{-1.8, 0.8}, tuft + Point{-2.4, 1.8}}), kRatFold,
                    {.alpha = 0.3F, .stroke = 0.7});
    }
}

void drawRatChest(Canvas& canvas) {
    canvas.part(loop({{14, 52},
                      {14, 43},
                      {23, 37},
                      {32, 37},
                      {41, 37},
                      {50, 43},
                      {50, 52},
                      {50, 57.4},
                      {42, 59.4},
                      {32, 59.4},
                      {22, 59.4},
                      {14, 57.4},
                      {14, 52}}),
                kRatFur, {.bevel = 9, .line = 1.5});
    canvas.part(ellipse({32, 54}, 9, 6.6), kRatBelly, {.bevel = 5, .line = 0, .shadow = 0});
}

namespace {

/// A tail along a curve, given as for `curve`, growing thinner.
void drawTailAlong(Canvas& canvas, const std::array<Point, 4>& bend) {
    constexpr int kJoints = 16;
    constexpr double kRoot = 1.9;
    constexpr double kTip = 1.1;
    std::array<Joint, kJoints> joints;
    for (int i = 0; i < kJoints; ++i) {
        const double t = i / (kJoints - 1.0);
        const Point early = mix(mix(bend[0], bend[1], t), mix(bend[1], bend[2], t), t);
        const Point late = mix(mix(bend[1], bend[2], t), mix(bend[2], bend[3], t), t);
        joints[static_cast<std::size_t>(i)] = {mix(early, late, t), kRoot + (kTip - kRoot) * t};
    }
    canvas.part(limb(joints), kRatPink, {.bevel = 1.6, .line = 1.4});
}

}  // namespace

void drawRatTail(Canvas& canvas, Point root, Point tip) {
    // It rises at its end if the tip lies high, and lies flat if it lies low.
    drawTailAlong(canvas, {root, root + Point{-7, 1}, tip + Point{2, 0.62 * (root.y - tip.y)}, tip});
}

void drawRatTailAround(Canvas& canvas, Point root, Point tip) {
    drawTailAlong(canvas, {root, root + Point{-9, 7.6}, tip + Point{-20, 1.4}, tip});
}

void drawRatLeg(Canvas& canvas, Point hip, double thigh, const LegPose& leg, const Material& fur,
                const Material& pink) {
    canvas.part(limb({{hip, thigh}, {leg.sole + Point{-0.6, -2.4}, 2.1}}), fur, {.bevel = 0.8 * thigh, .line = 1.3});
    const auto paw = canvas.placed(leg.sole, leg.angle);
    canvas.part(
        loop({{-3, -1.4}, {-2.6, -3}, {1, -3.4}, {4, -2}, {4.8, -1}, {4.6, 0}, {3, 0}, {1, 0}, {-1.6, 0}, {-3, -1.4}}),
        pink, {.bevel = 1.6, .line = 1.2});
    for (const double x : {1.2, 2.8}) {
        canvas.flat(polyline({{x, -1.4}, {x + 0.3, -0.1}}), pink.ink, {.alpha = 0.8F, .stroke = 0.6});
    }
}

void drawRatArm(Canvas& canvas, Point shoulder, const ArmPose& arm, const Material& fur, const Material& pink) {
    const Point hand = arm.hand;
    const double bone = arm.bone > 0 ? arm.bone : std::max(5.2, length(hand - shoulder) / 2 * 1.05);
    const Point elbow = jointOf(shoulder, hand, bone, bone, arm.bend);
    canvas.part(limb({{shoulder, 3.2}, {elbow, 2.7}, {hand, 2.1}}), fur, {.bevel = 2.4, .line = 1.3});
    const Point reach = hand - elbow;
    const double far = std::max(length(reach), 0.01);
    const Point along = reach * (1 / far);
    const Point across{-along.y, along.x};
    VectorPath paw = circle(hand, 2.3);
    for (const double spread : {-1.0, 0.0, 1.0}) {
        paw.unite(limb({{hand, 1.2}, {hand + along * (3.2 - 0.4 * spread * spread) + across * (1.9 * spread), 0.9}}));
    }
    canvas.part(paw, pink, {.bevel = 1.6, .line = 1.1, .shadow = 0.25F});
}

void drawRatFoot(Canvas& canvas, Point sole) {
    const Point middle = sole + Point{0, -2.6};
    VectorPath foot = ellipse(middle, 5, 2.4);
    for (const double x : {-3.2, 0.0, 3.2}) foot.unite(circle(middle + Point{x, 0.5}, 2));
    canvas.part(foot, kRatPink, {.bevel = 2, .line = 1.2});
    for (const double x : {-1.6, 1.6}) {
        canvas.flat(polyline({middle + Point{x, 0.4}, middle + Point{x, 2.2}}), kRatPink.ink,
                    {.alpha = 0.8F, .stroke = 0.6});
    }
}

}  // namespace grub
