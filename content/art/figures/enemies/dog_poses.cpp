#include <algorithm>
#include <array>
#include <cmath>

#include "dog.h"
#include "motion.h"

namespace grub {

namespace {

/// Row of the middle of a paw that stands, seen from the side, and of a round one.
constexpr double kPawRow = kGround - 3;
constexpr double kRoundPawRow = 56.1;

/// Row of the sole under a round paw whose middle is on row 0.
constexpr double kRoundSole = 4.4;

/// A leg under a round paw.
LegPose roundPaw(Point middle, double bend) { return {.sole = middle + Point{0, kRoundSole}, .bend = bend}; }

// ---- trotting: two strides a cycle, the legs in crossed pairs, so that those of one side never meet

constexpr double kStride = kCycle / 2;
constexpr double kDuty = 0.56;
constexpr FootRoll kPawRoll{.toe = 6, .heel = 4.6, .heelUp = 0.75, .toeUp = 0.25, .lift = 2.6};
constexpr double kHindColumn = 19.6;
constexpr double kFrontColumn = 43;

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

constexpr double kClimbDuty = 0.375;

// ---- at rest

Pose sittingSide() {
    return {.hips = {3, 5},
            .lean = -0.72,
            .head = {.turn = 4, .shift = {3, 4}},
            .nearArm = {.hand = {39.5, kPawRow}, .bend = 1, .shoulder = {-3.8, -0.8}},
            .farArm = {.hand = {44, kPawRow}, .bend = 1, .shoulder = {-2, 0}},
            .nearLeg = {.sole = {27, kGround}, .bend = -1},
            .farLeg = {.sole = {31, kGround}, .bend = -1},
            .tail = {4, -6}};
}

Pose enthroned() {
    Pose pose = sittingSide();
    pose.lean = -0.95;
    pose.head.tilt = -0.16;
    pose.head.shift = {4, 3};
    pose.nearArm = {.hand = {37, kPawRow}, .bend = 1, .shoulder = {-5.2, -2.4}};
    pose.farArm = {.hand = {42, kPawRow}, .bend = 1, .shoulder = {-3.4, -1}};
    pose.tail = {8, -15};
    return pose;
}

Pose lying() {
    return {.hips = {-4, 9.5},
            .lean = 0.02,
            .squash = 0.05,
            .head = {.turn = 4, .tilt = 0.05, .shift = {0, 4}},
            .nearArm = {.hand = {53, kPawRow}, .bend = 1},
            .farArm = {.hand = {57, kPawRow - 0.6}, .bend = 1},
            .nearLeg = {.sole = {29, kGround}, .bend = -1},
            .farLeg = {.sole = {32, kGround}, .bend = -1},
            .tail = {-4, 9}};
}

Pose leaning() {
    return {.view = View::Front,
            .hips = {0, 1},
            .head = {.turn = 0, .shift = {0, 9}},
            .nearArm = {.hand = {14, 51}, .bend = 1, .shoulder = {-2, 0}},
            .farArm = {.hand = {50, 51}, .bend = -1, .shoulder = {2, 2}},
            .nearLeg = roundPaw({19, kRoundPawRow}, 1),
            .farLeg = roundPaw({45, kRoundPawRow}, -1)};
}

Pose begging() {
    return {.view = View::Front,
            .hips = {0, 3},
            .head = {.turn = 0, .tilt = 0.06, .shift = {0, -4}},
            .nearArm = {.hand = {24, 45}, .bend = 1},
            .farArm = {.hand = {40, 45}, .bend = -1},
            .nearLeg = roundPaw({17, kRoundPawRow}, 1),
            .farLeg = roundPaw({47, kRoundPawRow}, -1),
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
    pose.head = {.turn = 4, .tilt = -0.24, .shift = {0, -1}};
    pose.nearArm.hand.x += 3;
    pose.farArm.hand.x += 3;
    pose.tail = {-2, -4};
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
            .farArm = trottingForeleg(2 * phase, kFrontColumn + 1.5),
            .nearLeg = trottingLeg(2 * phase, kHindColumn),
            .farLeg = trottingLeg(2 * phase + 0.5, kHindColumn + 2.5),
            .tail = {1.6 * wave(2 * phase), 0}};
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
            .head = {.turn = 4, .tilt = 0.06 * wave(phase), .shift = {1, -1.5}},
            .nearArm = {.hand = paw(42, 2 * phase), .bend = 1},
            .farArm = {.hand = paw(45, 2 * phase + 0.5), .bend = 1},
            .nearLeg = roundPaw(paw(18, 2 * phase), -1),
            .farLeg = roundPaw(paw(22, 2 * phase + 0.5), -1)};
}

Pose dogClimb(double phase) {
    const double left = heldRow(phase, kCycle, kClimbDuty, 10);
    const double right = heldRow(phase + 0.5, kCycle, kClimbDuty, 10);
    const auto pawRow = [](double at) { return std::min(heldRow(at, kCycle, 0.25, 45), 56.5); };
    return {.view = View::Back,
            .hips = {0, 0.6 * wave(2 * phase)},
            .lean = 0.003 * (left - right),
            .nearArm = {.hand = {17.5, left}, .bend = -1},
            .farArm = {.hand = {46.5, right}, .bend = 1},
            .nearLeg = roundPaw({16.5, pawRow(phase + 0.375)}, 1),
            .farLeg = roundPaw({47.5, pawRow(phase - 0.125)}, -1),
            .tail = {2.4 * wave(2 * phase), 0}};
}

Pose dogFall(double phase) {
    const double flail = 3 * wave(phase * 2);
    return {.view = View::Front,
            .head = {.turn = 0, .shift = {0, -1}},
            .nearArm = {.hand = {15 - flail * 0.4, 46 + flail}, .bend = 1, .grip = Grip::Open},
            .farArm = {.hand = {49 - flail * 0.4, 46 - flail}, .bend = -1, .grip = Grip::Open},
            .nearLeg = roundPaw({18, 55 - flail * 0.5}, 1),
            .farLeg = roundPaw({46, 55 + flail * 0.5}, -1)};
}

Pose dogPlunge(double phase) {
    const double flail = 4 * wave(phase * 2);
    return {.view = View::Front,
            .head = {.turn = 0, .tilt = 0.0125 * flail, .shift = {0, -1}},
            .nearArm = {.hand = {10, 23 + flail}, .bend = 1, .grip = Grip::Open},
            .farArm = {.hand = {54, 23 - flail}, .bend = -1, .grip = Grip::Open},
            .nearLeg = roundPaw({17, 55 - flail * 0.6}, 1),
            .farLeg = roundPaw({47, 55 + flail * 0.6}, -1)};
}

Pose dogEscape(double phase, double out) {
    const double left = heldRow(phase, kCycle / 2, 0.5, 12);
    const double right = heldRow(phase + 0.5, kCycle / 2, 0.5, 12);
    const double kick = 3 * wave(phase) * (1 - out);
    const double row = kRoundPawRow - std::abs(kick);
    return {.view = View::Front,
            .head = {.turn = 0, .tilt = 0.05 * (left - right) / 16 * (1 - out), .shift = {0, out - 1}},
            .nearArm = {.hand = mix(Point{10, left}, Point{23, kRoundPawRow}, out), .bend = 1},
            .farArm = {.hand = mix(Point{54, right}, Point{41, kRoundPawRow}, out), .bend = -1},
            .nearLeg = roundPaw({18 - 4 * (1 - out), row + kick}, 1),
            .farLeg = roundPaw({46 + 4 * (1 - out), row - kick}, -1)};
}

Pose dogGuard() {
    return {.view = View::Front,
            .head = {.turn = 0},
            .nearArm = {.hand = {21.6, kRoundPawRow}, .bend = 1, .shoulder = {-2.4, 0}},
            .farArm = {.hand = {42.4, kRoundPawRow}, .bend = -1, .shoulder = {2.4, 0}},
            .nearLeg = roundPaw({15.6, kRoundPawRow - 1.4}, 1),
            .farLeg = roundPaw({48.4, kRoundPawRow - 1.4}, -1)};
}

Pose dogTrapped() {
    return {.view = View::Front,
            .hips = {0, 3},
            .head = {.turn = 0, .tilt = 0.14},
            .nearArm = {.hand = {25, kRoundPawRow}, .bend = 1},
            .farArm = {.hand = {39, kRoundPawRow}, .bend = -1},
            .nearLeg = roundPaw({13, kRoundPawRow}, 1),
            .farLeg = roundPaw({51, kRoundPawRow}, -1)};
}

const FigureDrawing& dogFigure() {
    static const std::array kPoses{
        NamedPose{"stand", dogStand()},     NamedPose{"walk", dogWalk(0)},        NamedPose{"climb", dogClimb(0)},
        NamedPose{"hang", dogHang(0)},      NamedPose{"fall", dogFall(0.125)},    NamedPose{"plunge", dogPlunge(0.125)},
        NamedPose{"trapped", dogTrapped()}, NamedPose{"escape", dogEscape(0, 0)}, NamedPose{"guard", dogGuard()},
        NamedPose{"sit", sittingSide()},    NamedPose{"enthroned", enthroned()},  NamedPose{"lie", lying()},
        NamedPose{"lean over", leaning()},  NamedPose{"beg", begging()},          NamedPose{"dine", dining()},
        NamedPose{"bark", barking()},
    };
    static const FigureDrawing kDog{"dog", drawDog, drawDogHead, kPoses};
    return kDog;
}

}  // namespace grub
