#include <algorithm>
#include <array>
#include <cmath>

#include "dog.h"
#include "motion.h"

namespace grub {

namespace {

/// Row of the middle of a paw that stands, seen from the side, and of a round one.
constexpr double kPawRow = kGround - 3;
constexpr double kRoundPawRow = 56.6;

/// Row of the sole under a round paw whose middle is on row 0.
constexpr double kRoundSole = 4.4;

/// A leg under a round paw.
LegPose roundPaw(Point middle, double bend) { return {.sole = middle + Point{0, kRoundSole}, .bend = bend}; }

// ---- trotting: two strides a cycle, the legs in crossed pairs, so that those of one side never meet

constexpr double kStride = kCycle / 2;
constexpr double kDuty = 0.56;
constexpr FootRoll kPawRoll{.toe = 6, .heel = 4.6, .heelUp = 0.75, .toeUp = 0.25, .lift = 2.6};
constexpr double kHindColumn = 18.8;
constexpr double kFrontColumn = 44;

PlacedFoot pawAt(double phase, double column) { return placedFoot(stride(phase, kStride, kDuty), column, kPawRoll); }

LegPose trottingLeg(double phase, double column) {
    const PlacedFoot paw = pawAt(phase, column);
    return {.sole = paw.sole, .angle = paw.angle, .bend = 1};
}

ArmPose trottingForeleg(double phase, double column) {
    const PlacedFoot paw = pawAt(phase, column);
    const double rise = kGround - kPawRow;
    return {.hand = paw.sole + Point{std::sin(paw.angle), -std::cos(paw.angle)} * rise, .bend = -1, .paw = paw.angle};
}

// ---- at rest

Pose sittingSide() {
    return {.hips = {3, 5},
            .lean = -0.72,
            .head = {.turn = 4, .shift = {3, 4}},
            .nearArm = {.hand = {39.5, kPawRow}, .bend = 1, .shoulder = {-3.8, -0.8}},
            .farArm = {.hand = {45, kPawRow}, .bend = 1, .shoulder = {-2, 0}},
            .nearLeg = {.sole = {27, kGround}, .bend = -1},
            .farLeg = {.sole = {31, kGround}, .bend = -1},
            .tail = {1.5, -3}};
}

Pose enthroned() {
    Pose pose = sittingSide();
    pose.lean = -0.95;
    pose.head.tilt = -0.1;
    pose.head.shift = {4.4, 1};
    pose.nearArm = {.hand = {34, kPawRow}, .bend = 1, .shoulder = {-5.2, -2.4}};
    pose.farArm = {.hand = {40, kPawRow}, .bend = 1, .shoulder = {-3.4, -1}};
    pose.tail = {-1, -12};
    return pose;
}

Pose lying() {
    return {.hips = {-4, 8.6},
            .lean = -0.06,
            .squash = 0.1,
            .head = {.turn = 4, .tilt = 0.05, .shift = {-1, 4}},
            .nearArm = {.hand = {53, kPawRow}, .bend = 1},
            .farArm = {.hand = {57, kPawRow - 0.6}, .bend = 1},
            .nearLeg = {.sole = {29, kGround}, .bend = -1},
            .farLeg = {.sole = {32, kGround}, .bend = -1},
            .tail = {-0.6, 1}};
}

/// Over an edge at the foot of the cell, the paws on it; what lies below the edge is for others to hide.
Pose leaningOver() {
    return {.view = FigureView::Front,
            .hips = {0, 15},
            .head = {.turn = 0, .shift = {0, -1}},
            .nearArm = {.hand = {12, kRoundPawRow}, .bend = 1},
            .farArm = {.hand = {52, kRoundPawRow}, .bend = -1},
            .nearLeg = roundPaw({26, 78}, 1),
            .farLeg = roundPaw({38, 78}, -1)};
}

Pose begging() {
    return {.view = FigureView::Front,
            .hips = {0, 3},
            .head = {.turn = 0, .tilt = 0.06, .shift = {0, -4}},
            .nearArm = {.hand = {18, 46.6}, .bend = 1, .shoulder = {-2, -2}},
            .farArm = {.hand = {46, 46.6}, .bend = -1, .shoulder = {2, -2}},
            .nearLeg = roundPaw({21, kRoundPawRow}, 1),
            .farLeg = roundPaw({43, kRoundPawRow}, -1),
            .atNeck = Prop::Napkin};
}

Pose dining() {
    Pose pose = sittingSide();
    pose.atNeck = Prop::Napkin;
    return pose;
}

Pose barking() {
    Pose pose = dogStand();
    pose.lean = -0.1;
    pose.head = {.turn = 4, .tilt = -0.24, .shift = {0, -1}, .mouthOpen = true};
    pose.nearArm.hand.x += 3;
    pose.farArm.hand.x += 3;
    pose.tail = {1, -1};
    return pose;
}

}  // namespace

Pose dogStand() {
    return {.head = {.turn = 4},
            .nearArm = {.hand = {42.5, kPawRow}},
            .farArm = {.hand = {47.5, kPawRow}},
            .nearLeg = {.sole = {17.5, kGround}, .bend = 1},
            .farLeg = {.sole = {24, kGround}, .bend = 1}};
}

Pose dogWalk(double phase) {
    const double bob = 0.8 * wave(4 * phase + 0.1);
    const double pitch = 0.02 * wave(2 * phase + 0.2);
    return {.hips = {0, bob},
            .lean = pitch,
            .head = {.turn = 4, .tilt = 0.04 * wave(phase + 0.1), .shift = {0, -0.5 * wave(4 * phase + 0.3)}},
            .nearArm = trottingForeleg(2 * phase + 0.5, kFrontColumn - 1),
            .farArm = trottingForeleg(2 * phase, kFrontColumn + 1),
            .nearLeg = trottingLeg(2 * phase, kHindColumn),
            .farLeg = trottingLeg(2 * phase + 0.5, kHindColumn + 2.5),
            .tail = {1.2 * wave(2 * phase), 0}};
}

Pose dogHang(double phase) {
    // The legs of a side go together, so that they never cross.
    const double sway = 0.8 * wave(2 * phase);
    const auto paw = [](double column, double at) {
        const Step step = stride(at, kStride, kDuty);
        return Point{column + step.x, kPipeAxis - 0.5 + 4 * step.lift};
    };
    return {.hips = {sway, -16},
            .bellyUp = true,
            .head = {.turn = 4, .tilt = 0.06 * wave(phase), .shift = {0, -1.5}},
            .nearArm = {.hand = paw(42, 2 * phase), .bend = 1},
            .farArm = {.hand = paw(45, 2 * phase + 0.5), .bend = 1},
            .nearLeg = roundPaw(paw(18, 2 * phase), -1),
            .farLeg = roundPaw(paw(22, 2 * phase + 0.5), -1)};
}

Pose dogClimb(double phase) {
    // Two strides a cycle, the paws in crossed pairs: one of each pair always holds.
    const auto held = [phase](double share, double top) { return heldRow(2 * phase + share, kStride, 0.5, top); };
    const double left = held(0, 8.5);
    const double right = held(0.5, 8.5);
    return {.view = FigureView::Back,
            .hips = {0, 0.6 * wave(4 * phase)},
            .lean = 0.004 * (left - right),
            .nearArm = {.hand = {14, left}, .bend = -1},
            .farArm = {.hand = {50, right}, .bend = 1},
            .nearLeg = roundPaw({14.5, held(0.5, 40)}, 1),
            .farLeg = roundPaw({49.5, held(0, 40)}, -1),
            .tail = {1.6 * wave(2 * phase), 0}};
}

Pose dogFall(double phase) {
    const double flail = 3 * wave(phase * 2);
    return {.view = FigureView::Front,
            .head = {.turn = 0, .shift = {0, -1}},
            .nearArm = {.hand = {15 - flail * 0.4, 46 + flail}, .bend = 1, .grip = Grip::Open},
            .farArm = {.hand = {49 - flail * 0.4, 46 - flail}, .bend = -1, .grip = Grip::Open},
            .nearLeg = roundPaw({22, 55 - flail * 0.4}, 1),
            .farLeg = roundPaw({42, 55 + flail * 0.4}, -1)};
}

Pose dogPlunge(double phase) {
    const double flail = 4 * wave(phase * 2);
    return {.view = FigureView::Front,
            .head = {.turn = 0, .tilt = 0.0125 * flail, .shift = {0, -1}},
            .nearArm = {.hand = {10, 23 + flail}, .bend = 1, .grip = Grip::Open},
            .farArm = {.hand = {54, 23 - flail}, .bend = -1, .grip = Grip::Open},
            .nearLeg = roundPaw({21, 54.6 - flail * 0.5}, 1),
            .farLeg = roundPaw({43, 54.6 + flail * 0.5}, -1)};
}

Pose dogEscape(double phase, double out) {
    const double left = heldRow(phase, kCycle / 2, 0.5, 12);
    const double right = heldRow(phase + 0.5, kCycle / 2, 0.5, 12);
    const double kick = 3 * wave(phase) * (1 - out);
    const double row = kRoundPawRow - std::abs(kick);
    return {.view = FigureView::Front,
            .head = {.turn = 0, .tilt = 0.05 * (left - right) / 16 * (1 - out), .shift = {0, out - 1}},
            .nearArm = {.hand = mix(Point{10, left}, Point{17, kRoundPawRow}, out), .bend = 1},
            .farArm = {.hand = mix(Point{54, right}, Point{47, kRoundPawRow}, out), .bend = -1},
            .nearLeg = roundPaw({26 - 7 * (1 - out), row + kick - 1.4 * out}, 1),
            .farLeg = roundPaw({38 + 7 * (1 - out), row - kick - 1.4 * out}, -1)};
}

Pose dogGuard() {
    return {.view = FigureView::Front,
            .head = {.turn = 0},
            .nearArm = {.hand = {17, kRoundPawRow}, .bend = 1, .bone = 9.6},
            .farArm = {.hand = {47, kRoundPawRow}, .bend = -1, .bone = 9.6},
            .nearLeg = roundPaw({26.4, kRoundPawRow - 1.4}, 1),
            .farLeg = roundPaw({37.6, kRoundPawRow - 1.4}, -1)};
}

Pose dogTrapped() {
    return {.view = FigureView::Front,
            .hips = {0, 3},
            .head = {.turn = 0, .tilt = 0.14},
            .nearArm = {.hand = {26.4, kRoundPawRow - 0.4}, .bend = 1, .shoulder = {2, 0}},
            .farArm = {.hand = {37.6, kRoundPawRow - 0.4}, .bend = -1, .shoulder = {-2, 0}},
            .nearLeg = roundPaw({14, kRoundPawRow}, 1),
            .farLeg = roundPaw({50, kRoundPawRow}, -1)};
}

const FigureDrawing& dogFigure() {
    static const std::array kPoses{
        NamedPose{"stand", dogStand()},        NamedPose{"walk", dogWalk(0)},
        NamedPose{"climb", dogClimb(0)},       NamedPose{"hang", dogHang(0)},
        NamedPose{"fall", dogFall(0.125)},     NamedPose{"plunge", dogPlunge(0.125)},
        NamedPose{"trapped", dogTrapped()},    NamedPose{"escape", dogEscape(0, 0)},
        NamedPose{"guard", dogGuard()},        NamedPose{"sit", sittingSide()},
        NamedPose{"enthroned", enthroned()},   NamedPose{"lie", lying()},
        NamedPose{"lean over", leaningOver()}, NamedPose{"beg", begging()},
        NamedPose{"dine", dining()},           NamedPose{"bark", barking()},
    };
    static const FigureDrawing kDog{"dog", drawDog, drawDogHead, kPoses};
    return kDog;
}

}  // namespace grub
