#pragma once

#include "canvas.h"
#include "expression.h"
#include "pose.h"

namespace grub {

// What the rat's own files share.

/// A rat is small: its ink is nearly that of the darkest lines, so that it is seen as well as the others. No hard edge
/// of a shadow runs along its flat sides.
constexpr Material ratMaterial(Material m) {
    m.ink = mix(m.ink, kInk, 0.6F);
    m.softness = 0.9F;
    return m;
}
inline constexpr Material kRatFur = ratMaterial(glossy(material(0xa3a8ba, 0x4c5270, 0xe6eaf2), 0.15F, 0.55F));
inline constexpr Material kRatFarFur = ratMaterial(glossy(material(0x747a92, 0x3a3f5c, 0x9aa0b4), 0.05F, 0.2F));
inline constexpr Material kRatBelly = glossy(material(0xd6d3dc, 0x8a86a4, 0xf6f3f6), 0.05F, 0.2F);
inline constexpr Material kRatPink = ratMaterial(glossy(material(0xf0a3ae, 0x9a566f, 0xffd6d6), 0.3F));
inline constexpr Material kRatFarPink = ratMaterial(glossy(material(0xbd7d8e, 0x6f4262, 0xd79aa6), 0.1F));
inline constexpr Rgb kRatFold = rgb(0x2c2a44);

// Heads. The origin is the middle of the skull.

/// From the side: the shape, which the drawing unites with the body; the ear beyond it; and all that lies on it.
VectorPath ratProfile();
void drawRatFarEar(Canvas& canvas, const Expression& expression);
/// The teeth bite what is in the mouth.
void drawRatProfile(Canvas& canvas, const Expression& expression, Prop inMouth);
/// From the front, ears and skull too; `turn` moves the features.
void drawRatFace(Canvas& canvas, double turn, const Expression& expression, Prop inMouth);

// Bodies. The origin is that of the cell.

/// The trunk from the side, and the tufts on its back.
VectorPath ratTrunk();
void drawRatTufts(Canvas& canvas);
/// The trunk from the front, on its haunches.
void drawRatChest(Canvas& canvas);

/// From the root to the tip of the tail.
void drawRatTail(Canvas& canvas, Point root, Point tip);
/// The tail as it lies round the body, along the ground before it.
void drawRatTailAround(Canvas& canvas, Point root, Point tip);

// Legs and paws.

/// A leg from the side with a paw on its sole; `thigh` is the radius of its upper end, in pixels.
void drawRatLeg(Canvas& canvas, Point hip, double thigh, const LegPose& leg, const Material& fur, const Material& pink);
/// A short arm with a hand of three fingers.
void drawRatArm(Canvas& canvas, Point shoulder, const ArmPose& arm, const Material& fur, const Material& pink);
/// A hind paw from the front, its toes towards the viewer; `sole` is the middle of its underside.
void drawRatFoot(Canvas& canvas, Point sole);

}  // namespace grub
