#pragma once

#include "canvas.h"
#include "expression.h"
#include "figure.h"
#include "pose.h"

namespace grub {

// The parts that drawGrub puts together, each where it is when he stands upright in the middle of his cell.

inline constexpr Material kGrubSkin = glossy(material(0xf6d7a2, 0xb8715a, 0xfff3cf), 0.25F);
inline constexpr Material kGrubFarSkin = glossy(material(0xd9a877, 0x8f5350, 0xf0cd98), 0.1F);

/// About which the head turns.
inline constexpr Point kGrubNeck{32, 34};

/// Head with helmet and face, moved and turned about the neck. Stars of dizziness are drawn apart, since they go around
/// all of the head.
void drawGrubHeadParts(Canvas& canvas, FigureView view, const HeadPose& head, const Expression& expression);
void drawGrubStars(Canvas& canvas, const HeadPose& head, double turn);

/// An arm without what lies over it: sleeve and bones from `shoulder` to the hand.
void drawGrubArm(Canvas& canvas, FigureView view, Point shoulder, const ArmPose& arm, Side side);

/// A leg with its boot, from the joint `hip` on.
void drawGrubLeg(Canvas& canvas, FigureView view, Point hip, const LegPose& leg, Side side);

}  // namespace grub
