#pragma once

#include "canvas.h"
#include "expression.h"
#include "figure.h"
#include "pose.h"

namespace grub {

// The parts that drawLady puts together, each where it is when she stands upright in the middle of her cell.

inline constexpr Material kLadySkin = glossy(material(0xf2bb9c, 0xbd7878, 0xffe2c8), 0.2F);
inline constexpr Material kLadyApron = glossy(material(0xf4eaec, 0x9a8fb8, 0xffffff), 0.1F);
/// Light enough for the dark walls of the prison.
inline constexpr Material kLadyDress = glossy(material(0xc4489c, 0x6c2a86, 0xf79fd2), 0.2F, 0.5F);

/// The middle of her neck, about which her head turns.
inline constexpr Point kLadyNeck{32, 26};

/// Head with bun over kLadyNeck, stars included. `inMouth` is between her teeth.
void drawLadyHeadParts(Canvas& canvas, FigureView view, const HeadPose& head, const Expression& expression,
                       Prop inMouth);

/// Her mouth, its middle on the origin.
void drawLadyMouth(Canvas& canvas, const Expression& expression);

/// How the skirt hangs.
struct LadySkirt {
    /// Pixels that the hem swings to the right.
    double swing = 0;
    /// Pixels that the air below widens it on each side; it lifts the hem, too.
    double flare = 0;
    /// The rolling pin is stuck in the bow of the apron, for when she needs both hands.
    bool pinInBow = false;
};
/// Dress with apron, from neck to hem.
void drawLadyDress(Canvas& canvas, FigureView view, const LadySkirt& skirt);

/// A leg with its shoe, from the joint `hip` on.
void drawLadyLeg(Canvas& canvas, FigureView view, Point hip, const LegPose& leg, Side side);

/// A sleeved arm with its hand and what it holds: a fist closes around it, on an open hand it lies.
void drawLadyArm(Canvas& canvas, FigureView view, Point shoulder, const ArmPose& arm, Side side);

}  // namespace grub
