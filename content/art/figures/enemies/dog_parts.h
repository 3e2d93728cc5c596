#pragma once

#include "canvas.h"
#include "expression.h"
#include "pose.h"

namespace grub {

// What the dog's own files share.

inline constexpr Material kDogFur = glossy(material(0xa99cbb, 0x5e4c7c, 0xe2d9e9), 0.2F, 0.5F);
inline constexpr Material kDogFarFur = glossy(material(0x7f7298, 0x44325e, 0xab9ebc), 0.05F, 0.2F);
inline constexpr Material kDogPale = glossy(material(0xc0b4cc, 0x7a6894, 0xe9e1ed), 0.1F, 0.3F);
inline constexpr Material kDogSkin = glossy(material(0xc98a9c, 0x7a4668, 0xf0bcc2), 0.2F, 0.3F);
/// Folds of the skin, toes, the line of the spine.
inline constexpr Rgb kDogFold = rgb(0x32182e);

/// A part of fur that belongs to what lies below it: neither line nor shadow sets it off.
inline constexpr PartStyle kDogPatch{.bevel = 5, .line = 0, .shadow = 0};

// The origin is the middle of the head.

/// What shows of the collar below the head.
void drawDogCollar(Canvas& canvas, double turn);
void drawDogFace(Canvas& canvas, double turn, const Expression& expression);
/// Under jaw, jowls and nose; part of the face.
void drawDogMuzzle(Canvas& canvas, double turn, const Expression& expression);
/// The head from behind, its collar over it.
void drawDogNape(Canvas& canvas, const Expression& expression);

// Legs, with their paws.

/// From the side a paw stands on its sole; towards the viewer it is round.
enum class PawView { Side, Round };
/// `hip` is where the leg leaves the body.
void drawDogHindLeg(Canvas& canvas, Point hip, const LegPose& leg, PawView view, const Material& fur);
/// `shoulder` is where it leaves the body. A round paw shows its pads with an open grip.
void drawDogForeleg(Canvas& canvas, Point shoulder, const ArmPose& leg, PawView view, const Material& fur);
/// A hind leg from behind, with the pads of its paw; it lies below the back.
void drawDogHaunch(Canvas& canvas, Point hip, const LegPose& leg);

// Bodies. The origin is that of the cell; shoulders, hips and neck are those of the pose at rest.

/// Tail and trunk from the right side.
void drawDogSide(Canvas& canvas, Point tail);
/// What swells below the collar of a sitting dog, seen from the side; `neck` is the middle of the head.
void drawDogBreast(Canvas& canvas, Point neck);
void drawDogChest(Canvas& canvas);
void drawDogBack(Canvas& canvas);
/// The tail as it stands up on the rump, seen from behind.
void drawDogTailBehind(Canvas& canvas, Point tail);

}  // namespace grub
