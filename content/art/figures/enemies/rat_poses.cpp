#include <array>

#include "motion.h"
#include "rat.h"

namespace grub {

namespace {

/// Row of the middle of a forepaw that stands.
constexpr double kPawRow = kGround - 1.6;

// ---- running: two strides a cycle, the legs in crossed pairs

constexpr double kStride = kCycle / 2;
constexpr double kDuty = 0.5;
constexpr double kPawLift = 2.6;

Point runningSole(double phase, double column) {
    const Step step = stride(phase, kStride, kDuty);
    return {column + step.x, kGround - kPawLift * step.lift};
}

ArmPose runningForeleg(double phase, double column) {
    return {.hand = runningSole(phase, column) - Point{0, kGround - kPawRow}};
}

// ---- at rest

Pose proud() {
    Pose pose = ratStand();
    pose.hips = {0, -1};
    pose.lean = -0.42;
    pose.head = {.turn = 4, .tilt = -0.16, .shift = {3, 1}};
    pose.nearArm.hand = {41, kPawRow};
    pose.farArm.hand = {45.5, kPawRow};
    pose.tail = {1, -6};
    return pose;
}

Pose upright() {
    return {.hips = {6, -3},
            .lean = -1.15,
            .head = {.turn = 4, .tilt = -0.1, .shift = {4, 1}},
            .nearArm = {.hand = {32.5, 48}, .bend = 1, .bone = 10, .grip = Grip::Open},
            .farArm = {.hand = {47.5, 42}, .bend = 1, .grip = Grip::Open},
            .nearLeg = {.sole = {27, kGround}},
            .farLeg = {.sole = {33, kGround}},
            .tail = {-7, 3}};
}

Pose nibbling() {
    Pose pose = upright();
    pose.lean = -0.9;
    pose.head = {.turn = 4, .tilt = 0.1, .shift = {4, 2}};
    pose.nearArm.hand = {47.5, 46};
    pose.nearArm.bone = 0;
    pose.farArm.hand = {52.5, 45.4};
    pose.inMouth = Prop::Crumb;
    return pose;
}

Pose puzzled() {
    Pose pose = ratStand();
    pose.head = {.turn = 0, .tilt = -0.32, .shift = {4, -6}};
    return pose;
}

/// Asleep in a ring: nose and tip of the tail meet.
Pose curled() {
    return {.hips = {5, -1},
            .squash = -0.2,
            .head = {.turn = 4, .tilt = 0.24, .shift = {-1, 1.6}},
            .nearArm = {.hand = {37, kPawRow - 1}},
            .farArm = {.hand = {40, kPawRow - 1}},
            .nearLeg = {.sole = {25, kGround - 1}},
            .farLeg = {.sole = {28, kGround - 1}},
            .tail = {45, 18.2}};
}

Pose peeping() {
    Pose pose = ratSit();
    pose.head = {.turn = 0, .shift = {0, 5}};
    pose.nearArm.hand = {16, 55};
    pose.farArm.hand = {48, 55};
    return pose;
}

Pose carryingKeys() {
    Pose pose = ratRun(0.0625);
    pose.tail = {-1, -9};
    pose.onTail = Prop::Keys;
    return pose;
}

Pose carrying(Prop prop) {
    Pose pose = ratRun(0.0625);
    pose.head.tilt = -0.14;
    pose.inMouth = prop;
    return pose;
}

}  // namespace

Pose ratRun(double phase) {
    const double bounce = 0.7 + 0.7 * wave(4 * phase + 0.1);
    const double pitch = 0.025 * wave(2 * phase);
    return {.hips = {0, -bounce - 14 * pitch},
            .lean = pitch,
            .head = {.turn = 4, .tilt = pitch},
            .nearArm = runningForeleg(2 * phase + 0.5, 38.5),
            .farArm = runningForeleg(2 * phase, 42),
            .nearLeg = {.sole = runningSole(2 * phase, 17)},
            .farLeg = {.sole = runningSole(2 * phase + 0.5, 20)},
            .tail = {2 + wave(phase + 0.25), 1 + 3 * wave(phase)}};
}

Pose ratStand() {
    return {.head = {.turn = 4},
            .nearArm = {.hand = {38.5, kPawRow}},
            .farArm = {.hand = {44, kPawRow}},
            .nearLeg = {.sole = {16, kGround}},
            .farLeg = {.sole = {22, kGround}}};
}

Pose ratSit() {
    return {.view = FigureView::Front,
            .head = {.turn = 0},
            .nearArm = {.hand = {24.5, 53}, .bend = 1, .grip = Grip::Open},
            .farArm = {.hand = {39.5, 53}, .bend = -1, .grip = Grip::Open},
            .nearLeg = {.sole = {21, kGround}},
            .farLeg = {.sole = {43, kGround}}};
}

Pose ratFlight(Point middle, double turn, double size) {
    constexpr Point kCell{32, 32};
    constexpr Point kBody{32, 49};
    // The pose turns about the middle of the cell: what is drawn there must lie as far off as the turn moves it.
    const Point off = Affine{}.rotated(-turn).apply((middle - kCell) * (1 / size)) + kCell - kBody;
    Pose pose{.hips = off,
              .head = {.turn = 4},
              .nearArm = {.hand = Point{48, 60} + off},
              .farArm = {.hand = Point{52, 59} + off},
              .nearLeg = {.sole = Point{12, 60.6} + off},
              .farLeg = {.sole = Point{15, 60} + off},
              .tail = {1, 5}};
    pose.roll = turn;
    pose.size = size;
    return pose;
}

const FigureDrawing& ratFigure() {
    static const std::array kPoses{
        NamedPose{"stand", ratStand()},
        NamedPose{"run", ratRun(0.0625)},
        NamedPose{"sit", ratSit()},
        NamedPose{"fall", ratFlight({32, 32}, 1, 0.94)},
        NamedPose{"leap", ratFlight({32, 34}, -0.6, 0.96)},
        NamedPose{"keys", carryingKeys()},
        NamedPose{"key", carrying(Prop::Key)},
        NamedPose{"crumb", carrying(Prop::Crumb)},
        NamedPose{"nibble", nibbling()},
        NamedPose{"proud", proud()},
        NamedPose{"upright", upright()},
        NamedPose{"puzzled", puzzled()},
        NamedPose{"curled", curled()},
        NamedPose{"peep", peeping()},
    };
    static const FigureDrawing kRat{"rat", drawRat, drawRatHead, kPoses};
    return kRat;
}

}  // namespace grub
