#pragma once

#include "canvas.h"
#include "expression.h"
#include "pose.h"

namespace grub {

// What the files of the lady share.

inline constexpr Material kLadySkin = glossy(material(0xf2bb9c, 0xbd7878, 0xffe2c8), 0.2F);
inline constexpr Material kLadyApron = glossy(material(0xf4eaec, 0x9a8fb8, 0xffffff), 0.1F);

/// The middle of her neck, about which her head turns.
inline constexpr Point kLadyNeck{32, 26};

/// Head with bun over kLadyNeck, stars included, without a group of its own. `inMouth` is between her teeth.
void drawLadyHeadParts(Canvas& canvas, View view, const HeadPose& head, const Expression& expression, Prop inMouth);

}  // namespace grub
