#include "grub.h"

#include <array>
#include <cmath>
#include <numbers>

#include "figure.h"
#include "motion.h"

namespace grub {

namespace {

constexpr double kMiddle = 32;

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// Share of a cycle that a boot stays on the ground.
constexpr double kWalkDuty = 0.25;
constexpr FootRoll kBootRoll{.toe = 8.8, .heel = 5.4, .heelUp = 0.95, .toeUp = 0.4, .lift = 2.5};

double walkBob(double phase) { return 0.9 * wave(2 * phase); }

LegPose walkLeg(double phase) {
    const PlacedFoot foot = placedFoot(stride(phase, kCycle, kWalkDuty), kMiddle - 1, kBootRoll);
    return {.sole = foot.sole, .angle = foot.angle};
}

/// A place in the cell as a figure of that size sees it.
constexpr Point atSize(double size, Point cell) {
    const Point middle{kMiddle, kMiddle};
    return middle + (cell - middle) * (1 / size);
}

/// `side` is -1 for the near arm, 1 for the far one: each hand keeps to its side of the other as they pass.
ArmPose hangArm(double phase, double side, double size) {
    constexpr double kApart = 3.4;
    constexpr double kReach = 16;
    const Step step = stride(phase, kCycle, 0.5);
    const Point hand{kMiddle + step.x + side * kApart, kPipeAxis - 0.6 + 3.4 * step.lift};
    // Towards the other side an arm goes around the helmet, the elbow out.
    const double across = (kReach - side * step.x) / (2 * kReach);
    return {.hand = atSize(size, hand),
            .bend = side,
            .bone = (17 + 7 * across * across) / size,
            .shoulder = {side * 4, -1.6},
            .acrossHead = side < 0};
}

struct DigStep {
    double angle;  // of the spoon, degrees
    Point grip;
    double lean;
    double squash;
    double nod;  // of the head, radians
};

constexpr std::array<DigStep, kGrubDigFrames> kDig{{
    //  spoon  grip       lean    squash  nod
    {22, {38, 46}, 0.00, 0.00, 0.00},
    {-30, {39, 44.5}, -0.06, 0.01, 0.00},
    {-72, {42, 41}, -0.09, -0.01, -0.03},
    {-86, {42, 39}, -0.11, -0.02, -0.05},
    {36, {41, 45.2}, 0.07, 0.02, 0.00},
    {37, {41, 45}, 0.10, 0.05, 0.00},
    {26, {39.6, 47}, 0.09, 0.03, 0.00},
    {-24, {38.6, 45}, -0.05, -0.02, -0.05},
    {4, {37.6, 45.6}, -0.02, -0.01, -0.02},
    {16, {38, 46}, 0.00, 0.00, 0.00},
}};

}  // namespace

Pose grubWalk(double phase) {
    const double bob = walkBob(phase);
    const double swing = std::cos(2 * std::numbers::pi * (phase - 0.06));
    return {
        .hips = {0, bob},
        .lean = 0.06 + 0.02 * wave(2 * phase + 0.1),
        .squash = 0.02 * wave(2 * phase),
        .head = {.hatShift = {0, 0.5 * (walkBob(phase - 0.125) - bob)}},
        .nearArm = {.hand = {25 - 9 * swing, 44 + bob + 2 * swing}, .bone = 5.8, .shoulder = {0.8, 0}},
        .farArm = {.hand = {43.5 + 6.5 * swing, 43 + bob - 2.6 * swing}, .bone = 5.6},
        .nearLeg = walkLeg(phase),
        .farLeg = walkLeg(phase + 0.5),
    };
}

Pose grubClimb(double phase) {
    // A sole comes to rest a frame after its hand, on the upper side of a rung.
    constexpr double kTopStep = 45.4;
    constexpr double kTopRung = 8;
    // Hands go up the rails, beside the helmet.
    constexpr double kReach = 18;
    const auto soleRow = [](double at) { return std::min(heldRow(at, kCycle, 0.25, kTopStep), kGround); };
    const double left = heldRow(phase, kCycle, 0.375, kTopRung);
    const double right = heldRow(phase + 0.5, kCycle, 0.375, kTopRung);
    return {
        .view = FigureView::Back,
        .hips = {0, 1},
        .lean = 0.0022 * (left - right),
        .head = {.hatShift = {0, 0.3 * wave(2 * phase)}},
        .nearArm = {.hand = {kMiddle - kReach, left}, .bend = -1},
        .farArm = {.hand = {kMiddle + kReach, right}, .bend = 1},
        .nearLeg = {.sole = {25.4, soleRow(phase + 0.375)}},
        .farLeg = {.sole = {38.6, soleRow(phase - 0.125)}},
    };
}

Pose grubHang(double phase, double size) {
    constexpr double kHelmetTop = 4.2;
    constexpr double kBelowPipe = 4.5;
    const double sway = 0.10 * wave(phase - 0.125);
    const double dangle = 3 * wave(phase + 0.1);
    // Body and legs swing about the pipe.
    const Point pivot = atSize(size, {kMiddle, kPipeAxis});
    const double drop = atSize(size, {kMiddle, kPipeAxis + kBelowPipe}).y - kHelmetTop;
    const Affine hung = Affine{}.translated(pivot).rotated(-sway).translated(pivot * -1).translated({0, drop});
    const Point hips{kMiddle, 50};
    return {
        .hips = hung.apply(hips) - hips,
        .lean = -sway,
        .nearArm = hangArm(phase, -1, size),
        .farArm = hangArm(phase + 0.5, 1, size),
        .nearLeg = {.sole = hung.apply({28 + dangle, 56}), .angle = 0.38 - sway, .hip = {-4.5, 0}},
        .farLeg = {.sole = hung.apply({36 - dangle, 55.4}), .angle = 0.3 - sway, .hip = {4, 0}},
        .size = size,
    };
}

Pose grubFall(double phase) {
    const double flail = wave(phase);
    const double sideways = 1.5 * flail;
    return {
        .view = FigureView::Front,
        .hips = {0, 2},
        .lean = 0.04 * flail,
        .squash = -0.02,
        .head = {.turn = 0, .hatShift = {0, -0.8 - 0.4 * wave(2 * phase)}},
        .nearArm = {.hand = {10.8 - sideways, 28 + 5 * flail}, .bend = 1, .bone = 7.4, .grip = Grip::Open},
        .farArm = {.hand = {53.2 - sideways, 28 - 5 * flail}, .bend = -1, .bone = 7.4, .grip = Grip::Open},
        .nearLeg = {.sole = {24 - sideways, 57 + 1.6 * flail}, .angle = 0.3 + 0.2 * flail},
        .farLeg = {.sole = {40 - sideways, 57 - 1.6 * flail}, .angle = -0.3 + 0.2 * flail},
    };
}

Pose grubStand(double breath) {
    const double up = -0.6 * breath;
    return {
        .hips = {0, 0.2 - 0.4 * breath},
        .squash = -0.012 * breath,
        .head = {.hatShift = {0, 0.25 * breath}},
        .nearArm = {.hand = {18.6, 45.6}, .bend = 1, .bone = 4.7, .shoulder = {-2, -0.6 + up}},
        .farArm = {.hand = {45.8, 45}, .bone = 4.7, .shoulder = {0.5, -0.6 + up}},
        .nearLeg = {.sole = {25, kGround}, .hip = {-6, 0}},
        .farLeg = {.sole = {38.4, kGround}, .hip = {6, 0}},
    };
}

Pose grubFront(double breath) {
    Pose pose = grubStand(breath);
    pose.view = FigureView::Front;
    pose.head.turn = 0;
    pose.nearArm.shoulder = pose.farArm.shoulder = {0, -0.6 * breath};
    pose.nearArm.hand = {17.4, 45.4};
    pose.farArm.hand = {46.6, 45.4};
    pose.nearLeg = {.sole = {25.4, kGround}};
    pose.farLeg = {.sole = {38.6, kGround}};
    return pose;
}

Pose grubDig(int frame) {
    const DigStep& step = kDig[static_cast<std::size_t>(frame)];
    const double angle = radians(step.angle);
    // The upper hand holds the handle this far from the lower one.
    constexpr double kBetweenHands = 6;
    const Point along{std::cos(angle), std::sin(angle)};
    const double jolt = 0.3 * (frame == kGrubDigHit) - 0.8 * (frame == kGrubDigHit + 2);
    return {
        .hips = {-6, 0},
        .lean = step.lean,
        .squash = step.squash,
        .head = {.tilt = step.nod, .hatShift = {0, jolt}},
        .nearArm = {.hand = step.grip - along * kBetweenHands, .bone = 7.4, .shoulder = {1, 3}},
        .farArm =
            {.hand = step.grip, .bone = 6.4, .held = {Prop::Spoon, angle}, .shoulder = {-1, 3}, .acrossBody = true},
        .nearLeg = {.sole = {30.5, kGround}, .hip = {2, 0}},
        .farLeg = {.sole = {18, kGround}, .hip = {-2.5, 0}},
    };
}

}  // namespace grub
