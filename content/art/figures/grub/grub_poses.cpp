#include "grub.h"

#include <array>
#include <cmath>
#include <numbers>

#include "figure.h"

namespace grub {

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

/// One hand on the hip, a finger up: he explains.
Pose pointing() {
    Pose pose = grubStand(0);
    pose.head.tilt = -0.06;
    pose.farArm = {.hand = {54, 27.5}, .bend = 1, .bone = 8, .grip = Grip::Pointing};
    return pose;
}

/// The same, at something above him.
Pose pointingUp() {
    Pose pose = pointing();
    pose.head.tilt = -0.12;
    pose.farArm = {.hand = {54, 15}, .bend = 1, .bone = 9, .grip = Grip::Pointing};
    return pose;
}

/// The spoon goes down into a hole before his boots.
Pose digging() {
    constexpr double kAngle = 0.95;
    const Point lower{43.4, 50};
    const Point upper = lower - Point{std::cos(kAngle), std::sin(kAngle)} * 6;
    Pose pose = grubDig(kGrubDigHit);
    pose.lean += 0.06;
    pose.nearArm = {.hand = upper, .bone = 7.6, .shoulder = {1, 3}};
    pose.farArm = {.hand = lower, .bone = 7, .held = {Prop::Spoon, kAngle}, .shoulder = {-1, 3}, .acrossBody = true};
    return pose;
}

Pose cheering() {
    Pose pose = grubFront(0);
    pose.hips.y -= 1;
    pose.head.tilt = -0.08;
    pose.nearArm = {.hand = {11, 19}, .bend = 1, .held = {Prop::Spoon, -1.75}};
    pose.farArm = {.hand = {53, 18}};
    return pose;
}

/// The spoon on his shoulder, the keys of a hall on it.
Pose strolling() {
    Pose pose = grubWalk(0);
    pose.nearArm = {.hand = {31.5, 43.5}, .bend = 1, .bone = 6.4, .held = {Prop::SpoonWithKeys, -2.58}};
    return pose;
}

/// On a ladder of his own size: a hand higher than the other, both boots on rungs.
Pose onLadder() {
    Pose pose = grubClimb(0);
    pose.hips.y -= 5;
    pose.nearLeg = {.sole = {24.6, 61}};
    pose.farLeg = {.sole = {39.4, 53.5}};
    return pose;
}

/// The nose follows a smell; the spoon rests.
Pose sniffing() {
    Pose pose = grubStand(0.5);
    pose.lean = 0.05;
    pose.head = {.turn = 3.6, .tilt = -0.36, .shift = {1.5, -1}, .hatShift = {-0.6, 0.4}, .hatTilt = -0.06};
    pose.nearArm = {.hand = {14.5, 42}, .bend = 1, .bone = 6.4, .held = {Prop::Spoon, -2.06}};
    pose.farArm = {.hand = {50.5, 42}, .bone = 6.4, .grip = Grip::Open};
    return pose;
}

/// A hand at a wall on the right, the face close to it: he listens.
Pose listening() {
    Pose pose = grubStand(0);
    pose.hips.x = 3;
    pose.lean = 0.16;
    pose.head = {.turn = 3, .tilt = 0.1, .shift = {2, 0.5}};
    pose.nearArm = {.hand = {18, 44}, .bend = 1, .bone = 6, .grip = Grip::Open};
    pose.farArm = {.hand = {59, 37}, .bone = 10, .grip = Grip::Open};
    pose.nearLeg.sole.x -= 2;
    pose.farLeg.sole.x += 3;
    return pose;
}

/// On his belly along the ground, the chin on it, the helmet over one eye. The head lies on the right.
Pose flattened() {
    return {
        .hips = {18.4, 1.5},
        .squash = -0.35,
        .head = {.turn = 0, .tilt = 0.12 - kQuarter, .shift = {6, -5}, .hatShift = {-1.4, 6}, .hatTilt = 0.2},
        .nearArm = {.hand = {55, 5.5}, .bend = -1, .grip = Grip::Open, .shoulder = {12, -2}},
        .farArm = {.hand = {52.4, 0.5}, .bend = -1, .grip = Grip::Open},
        .nearLeg = {.sole = {51.1, 65.5}, .angle = 1.1},
        .farLeg = {.sole = {44.5, 66.5}, .angle = 1.1},
        .roll = kQuarter,
    };
}

/// On his toes, knees together, fists at the chest.
Pose tiptoeing() {
    constexpr double kHeelUp = 0.48;
    constexpr double kSoleRow = 59.2;
    return {
        .hips = {0, -3.4},
        .squash = -0.03,
        .head = {.turn = 2, .hatShift = {0, -1.4}},
        .nearArm = {.hand = {29.4, 40}, .bend = 1, .bone = 8, .shoulder = {-2, 0}},
        .farArm = {.hand = {39, 39.4}, .bend = -1, .bone = 7, .acrossBody = true},
        .nearLeg = {.sole = {28, kSoleRow}, .angle = kHeelUp, .toes = -kHeelUp, .hip = {-3, 0}},
        .farLeg = {.sole = {33, kSoleRow}, .angle = kHeelUp, .toes = -kHeelUp, .hip = {3, 0}},
    };
}

/// In a hole that is too tight for him: chest and arms above it, the legs far below, and his lamp is out.
Pose stuck() {
    constexpr double kSoleRow = 65;
    Pose pose = grubFront(0);
    pose.hips.y = -13.5;
    pose.squash = 0.05;
    pose.head.lampOut = true;
    pose.nearArm = {.hand = {4.6, 33.6}, .bend = 1, .bone = 8, .grip = Grip::Open, .shoulder = {-2, 6}};
    pose.farArm = {.hand = {59.4, 33.6}, .bend = -1, .bone = 8, .grip = Grip::Open, .shoulder = {2, 6}};
    pose.nearLeg.sole.y = pose.farLeg.sole.y = kSoleRow;
    return pose;
}

/// Hanging with the boots drawn up, away from what is below.
Pose tucked() {
    Pose pose = grubHang(0.5, 0.92);
    pose.head.tilt = 0.1;
    pose.nearLeg = {.sole = {48, 67}, .angle = -0.3, .hip = {2, 0}};
    pose.farLeg = {.sole = {54, 64}, .angle = -0.4, .hip = {8, 0}};
    return pose;
}

/// Hands on two bars, the face between them.
Pose peeping() {
    Pose pose = grubFront(0);
    pose.head = {.turn = 0.6, .tilt = 0.16, .shift = {0, 0.6}};
    pose.nearArm = {.hand = {15.5, 33}, .bend = -1, .bone = 7};
    pose.farArm = {.hand = {48.5, 33}, .bend = 1, .bone = 7};
    return pose;
}

/// To the door: the spoon with all keys up, a look at the viewer.
Pose marching() {
    Pose pose = grubWalk(0);
    pose.lean = -0.02;
    pose.head.turn = 1;
    pose.head.tilt = -0.08;
    pose.farArm = {.hand = {58, 26.8}, .bend = 1, .bone = 9.6, .held = {Prop::SpoonWithKeys, -1.25}};
    return pose;
}

/// After a blow on the helmet.
Pose dazed() {
    Pose pose = grubStand(-1);
    pose.hips = {1, 1};
    pose.lean = -0.1;
    pose.squash = 0.03;
    pose.head = {
        .turn = 1.6, .tilt = 0.14, .shift = {1, 1}, .hatShift = {-0.6, 0.8}, .hatTilt = -0.12, .hatDented = true};
    pose.nearArm = {.hand = {15, 49}, .bend = 1, .bone = 6.2, .grip = Grip::Open, .shoulder = {-1, 1}};
    pose.farArm = {.hand = {47.5, 48.5}, .bone = 6, .grip = Grip::Open, .shoulder = {0, 1}};
    return pose;
}

/// Both arms straight up, for a hand to pull him out.
Pose reachingUp() {
    Pose pose = grubFront(1);
    pose.head.tilt = -0.05;
    pose.nearArm = {.hand = {12.5, 7}, .bend = 1, .grip = Grip::Open, .shoulder = {0, -1}};
    pose.farArm = {.hand = {51.5, 6}, .grip = Grip::Open, .shoulder = {0, -1}};
    return pose;
}

/// On the ground, tired, the legs before him.
Pose sitting() {
    constexpr double kToesUp = -1.25;
    return {
        .hips = {-5, 10},
        .lean = -0.08,
        .squash = 0.04,
        .head = {.turn = 2.4, .tilt = 0.2, .shift = {1, 1}},
        .nearArm = {.hand = {14, 57}, .bend = 1, .bone = 7},
        .farArm = {.hand = {42, 52}, .bone = 6, .acrossBody = true},
        .nearLeg = {.sole = {50, 55.2}, .angle = kToesUp, .hip = {4, -3}},
        .farLeg = {.sole = {53.5, 52.6}, .angle = kToesUp + 0.15, .hip = {8, -5}},
    };
}

}  // namespace

const FigureDrawing& grubFigure() {
    static const std::array kPoses{
        NamedPose{"stand", grubStand(0)},
        NamedPose{"front", grubFront(0)},
        NamedPose{"walk", grubWalk(0)},
        NamedPose{"climb", grubClimb(0)},
        NamedPose{"hang", grubHang(0.5)},
        NamedPose{"fall", grubFall(0)},
        NamedPose{"dig", grubDig(kGrubDigHit)},
        NamedPose{"dig deep", digging()},
        NamedPose{"point", pointing()},
        NamedPose{"point up", pointingUp()},
        NamedPose{"ladder", onLadder()},
        NamedPose{"cheer", cheering()},
        NamedPose{"stroll", strolling()},
        NamedPose{"sniff", sniffing()},
        NamedPose{"listen", listening()},
        NamedPose{"flat", flattened()},
        NamedPose{"tiptoe", tiptoeing()},
        NamedPose{"stuck", stuck()},
        NamedPose{"tucked", tucked()},
        NamedPose{"peep", peeping()},
        NamedPose{"march", marching()},
        NamedPose{"sit", sitting()},
        NamedPose{"dazed", dazed()},
        NamedPose{"reach", reachingUp()},
    };
    static const FigureDrawing kFigure{"grub", drawGrub, drawGrubHead, kPoses};
    return kFigure;
}

}  // namespace grub
