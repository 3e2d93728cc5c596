#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "figure.h"
#include "lady.h"
#include "motion.h"

namespace grub {

namespace {

/// Share of a cycle that a shoe stays on the ground, or a hand on the pipe: one of the two always does.
constexpr double kDuty = 0.375;

constexpr FootRoll kShoeRoll{.toe = 7.6, .heel = 4.6, .heelUp = 0.62, .toeUp = 0.35, .lift = 2.2};

/// How far she walks behind the middle of the cell, to leave room for the rolling pin.
constexpr double kBehind = 3;

/// Hanging below a pipe, all of her must fit into the rest of the cell.
constexpr double kHangSize = 0.88;

/// Row of the shoulders while she stands.
constexpr double kShoulders = 30;

/// Where a point of the cell lies for a figure of another size.
constexpr Point atSize(double size, Point inCell) {
    constexpr Point kMiddle{32, 32};
    return kMiddle + (inCell - kMiddle) * (1 / size);
}

LegPose placedLeg(double phase) {
    const PlacedFoot foot = placedFoot(stride(phase, kCycle, kDuty), 32 - kBehind, kShoeRoll);
    return {.sole = foot.sole, .angle = foot.angle};
}

/// Arms seen from the front. The elbow points outwards, whether the hand is above it or below.
ArmPose leftArm(Point hand, Grip grip = Grip::Fist) {
    return {.hand = hand, .bend = hand.y < kShoulders ? -1.0 : 1.0, .grip = grip};
}
ArmPose rightArm(Point hand, Held held = {}, Grip grip = Grip::Fist) {
    return {.hand = hand, .bend = hand.y < kShoulders ? 1.0 : -1.0, .grip = grip, .held = held};
}

constexpr Held pin(double angle, double along = 0) { return {Prop::RollingPin, angle, along}; }

/// Arm seen from behind: nearly straight, so that no elbow sticks out beside a hand at the shoulder's height.
ArmPose climbingArm(Point hand, Point shoulder, double bend) {
    return {.hand = hand, .bend = bend, .bone = 0.4 + 0.54 * length(hand - shoulder)};
}

// ---- poses of pages

/// Leans in, the pin over her head, a finger out: "use the door".
Pose pinUp() {
    return {.lean = 0.12,
            .head = {.turn = 4, .tilt = 0.06},
            .nearArm = {.hand = {9.5, 13}, .bend = 1, .held = pin(-1.3, 1.9)},
            .farArm = {.hand = {55, 33}, .bend = -1, .grip = Grip::Pointing, .acrossBody = true},
            .nearLeg = {.sole = {26, kGround}},
            .farLeg = {.sole = {38, kGround}},
            .tail = {-1.5, 0}};
}

/// Creeps on the tips of her shoes, the pin ready behind her.
Pose tiptoe() {
    return {.hips = {0, 1},
            .lean = 0.2,
            .head = {.turn = 4, .tilt = -0.08},
            .nearArm = {.hand = {13, 21}, .bend = 1, .held = pin(-1.2)},
            .farArm = {.hand = {54, 34}, .bend = 1, .grip = Grip::Open},
            .nearLeg = {.sole = {24, kGround - 3.4}, .angle = 0.55},
            .farLeg = {.sole = {43, kGround - 4}, .angle = 0.5},
            .tail = {-2.5, 0}};
}

/// Bends over an edge at the cell's foot, which her hands grip; what lies below the edge is for others to hide.
Pose leanOver() {
    return {.view = FigureView::Front,
            .hips = {0, 24.6},
            .head = {.turn = 0, .shift = {0, 1}},
            .nearArm = {.hand = {11, 57}, .bend = 1, .bone = 7},
            .farArm = {.hand = {53, 57}, .bend = -1, .bone = 7},
            .nearLeg = {.sole = {27, 84}},
            .farLeg = {.sole = {37, 84}}};
}

/// The pie on an open hand, the pin at rest in the other.
Pose serve() {
    return {
        .head = {.turn = 3, .tilt = -0.04},
        .nearArm = {.hand = {19, 43}, .bend = 1, .held = pin(2.5)},
        .farArm =
            {.hand = {52, 39.6}, .bend = 1, .bone = 11, .grip = Grip::Open, .held = {Prop::Pie, 0}, .acrossBody = true},
        .nearLeg = {.sole = {29, kGround}},
        .farLeg = {.sole = {38, kGround}}};
}

/// The winner: the pin on her shoulder, a fist on her hip.
Pose pinOnShoulder() {
    return {.view = FigureView::Front,
            .hips = {-0.6, 0},
            .lean = -0.03,
            .head = {.turn = 2, .tilt = -0.05},
            .nearArm = leftArm({20, 41.6}),
            .farArm = rightArm({48, 40.6}, pin(-1.68)),
            .nearLeg = {.sole = {25.6, kGround}, .angle = 0.06},
            .farLeg = {.sole = {38, kGround}, .angle = -0.06},
            .tail = {0.8, 0}};
}

/// To the door with you.
Pose pointOut() {
    return {.lean = 0.04,
            .head = {.turn = 4, .tilt = -0.03},
            .nearArm = {.hand = {53, 30}, .bend = 1, .bone = 13.4, .grip = Grip::Pointing},
            .farArm = {.hand = {38, 45}, .bend = 1},
            .nearLeg = {.sole = {27, kGround}},
            .farLeg = {.sole = {37, kGround}},
            .tail = {-1, 0}};
}

}  // namespace

Pose ladyWalk(double phase) {
    const double bob = 0.8 * wave(2 * phase - 0.1);
    const double swing = std::cos(2 * std::numbers::pi * (phase - 0.06));
    const Point walking{-kBehind, bob};
    return {.hips = walking,
            .lean = 0.05 + 0.02 * wave(2 * phase),
            .head = {.turn = 4, .tilt = 0.03 * wave(2 * phase - 0.15)},
            .nearArm = {.hand = walking + Point{45.6 - 1.6 * swing, 36.6 + 1.6 * swing},
                        .bend = 1,
                        .bone = 11,
                        .held = pin(-0.95 - 0.22 * swing)},
            .farArm = {.hand = walking + Point{40.6 + 4 * swing, 40 - swing}, .bend = -1},
            .nearLeg = placedLeg(phase),
            .farLeg = placedLeg(phase + 0.5),
            .tail = {1.6 * wave(phase + 0.1), -1.4}};
}

Pose ladyClimb(double phase) {
    const double left = heldRow(phase, kCycle, kDuty, 8);
    const double right = heldRow(phase + 0.5, kCycle, kDuty, 8);
    // The hem hides how far a shoe goes up.
    const auto sole = [](double at) { return std::clamp(heldRow(at, kCycle, 0.25, 45.4), 57.0, kGround); };
    return {.view = FigureView::Back,
            .hips = {0, 1},
            .lean = 0.0026 * (left - right),
            .head = {.turn = 0},
            .nearArm = climbingArm({17.4, left}, {24, kShoulders}, -1),
            .farArm = climbingArm({46.6, right}, {40, kShoulders}, 1),
            .nearLeg = {.sole = {25.4, sole(phase + 0.375)}},
            .farLeg = {.sole = {38.6, sole(phase - 0.125)}},
            .tail = {1.8 * wave(phase + 0.1), 0}};
}

Pose ladyHang(double phase) {
    const double sway = 0.08 * wave(phase - 0.125);
    const auto handAt = [](double at) {
        const Step step = stride(at, kCycle, kDuty);
        return atSize(kHangSize, {32 + step.x, kPipeAxis - 0.6 + 3 * step.lift});
    };
    const double dangle = 2.2 * wave(phase + 0.1);
    // Her hips hang so far below the pipe that swaying moves them by the second number.
    const Point hips{48 * sway, 7};
    return {.hips = hips,
            .lean = -sway,
            .head = {.turn = 3, .tilt = sway * 0.5},
            .nearArm = {.hand = handAt(phase), .bend = -1, .shoulder = {1, 1.4}},
            .farArm = {.hand = handAt(phase + 0.5), .bend = 1, .shoulder = {-2, 2}},
            .nearLeg = {.sole = hips + Point{27 + dangle, 53.8}, .angle = 0.42, .hip = {-1, 0}},
            .farLeg = {.sole = hips + Point{35 - dangle, 53.6}, .angle = 0.35, .hip = {3, 0}},
            .tail = {-2.4 * wave(phase), -3},
            .size = kHangSize};
}

Pose ladyStand() {
    return {.view = FigureView::Front,
            .head = {.turn = 0},
            .nearArm = leftArm({20, 41}),
            .farArm = rightArm({44, 38}, pin(-1.2)),
            .nearLeg = {.sole = {27, kGround}},
            .farLeg = {.sole = {37, kGround}}};
}

Pose ladyFall(double phase) {
    const double flail = wave(phase * 2);
    return {.view = FigureView::Front,
            .lean = 0.016 * flail,
            .head = {.turn = 0, .tilt = 0.024 * flail},
            .nearArm = leftArm({12 - flail, 25 + 3 * flail}, Grip::Open),
            .farArm = rightArm({50 - flail, 27 - 2 * flail}, pin(-1.45 - 0.12 * flail)),
            .nearLeg = {.sole = {26 - flail, 57.8 - 1.5 * flail}, .angle = 0.2},
            .farLeg = {.sole = {38 - flail, 57.4 + 1.5 * flail}, .angle = -0.2},
            .tail = {0, -4 - flail}};
}

Pose ladyTrapped() {
    return {.view = FigureView::Front,
            .hips = {0, 3.6},
            .lean = 0.056,
            .head = {.turn = 0, .tilt = 0.09, .hatShift = {1.6, 0.6}},
            .nearArm = {.hand = {13, 52}, .bend = 1},
            .farArm = {.hand = {51, 52}, .bend = -1, .held = pin(2.95)},
            .nearLeg = {.sole = {23, kGround}, .angle = -0.1},
            .farLeg = {.sole = {41, kGround}, .angle = 0.1},
            .tail = {0, -3}};
}

Pose ladyEscape(int index) {
    constexpr int kClimbing = 6;
    constexpr double kReach = 32;
    const double turns = index / 4.0;
    const double out = eased((index - 4.5) / 2.5);
    const double left = heldRow(turns, kReach, 0.5, 12);
    const double right = heldRow(turns + 0.5, kReach, 0.5, 12);
    const bool climbing = index < kClimbing;
    const double kick = 1.8 * wave(turns) * (1 - out);
    const double tilt = 0.05 * (left - right) / 16 * (1 - out);
    const Grip grip = climbing ? Grip::Open : Grip::Fist;
    return {.view = FigureView::Front,
            .lean = 0.4 * tilt,
            .head = {.turn = 0, .tilt = 0.6 * tilt},
            .nearArm = leftArm(mix(Point{9, left}, {20, 41}, out), grip),
            .farArm = rightArm(mix(Point{55, right}, {44, 38}, out), climbing ? Held{} : pin(-1.2), grip),
            .nearLeg = {.sole = {27 - 2 * (1 - out), kGround - std::abs(kick) + kick}},
            .farLeg = {.sole = {37 + 2 * (1 - out), kGround - std::abs(kick) - kick}},
            .tail = {0, out - 1}};
}

const FigureDrawing& ladyFigure() {
    static const std::array kPoses{
        NamedPose{"stand", ladyStand()},    NamedPose{"walk", ladyWalk(0)},
        NamedPose{"climb", ladyClimb(0)},   NamedPose{"hang", ladyHang(0.375)},
        NamedPose{"fall", ladyFall(0)},     NamedPose{"trapped", ladyTrapped()},
        NamedPose{"escape", ladyEscape(0)}, NamedPose{"pin up", pinUp()},
        NamedPose{"tiptoe", tiptoe()},      NamedPose{"lean over", leanOver()},
        NamedPose{"serve", serve()},        NamedPose{"pin on shoulder", pinOnShoulder()},
        NamedPose{"point", pointOut()},
    };
    static const FigureDrawing kLady{"lady", drawLady, drawLadyHead, kPoses};
    return kLady;
}

}  // namespace grub
