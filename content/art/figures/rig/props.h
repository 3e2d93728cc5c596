#pragma once

#include "canvas.h"
#include "pose.h"

namespace grub {

/// Draws what a hand, teeth, a tail or a neck holds, at the size that fits the figures; nothing for Prop::None. `grip`
/// is the place that is held: the lower third of the spoon's handle, the pin's handle, the stem of the key, the ring of
/// the keys, the middle of the crumb, of the pie's underside, of the napkin's upper edge. Sticks and the key point
/// along `held.angle`; keys and napkin hang down and the pie stands at angle 0, which turns them.
void drawProp(Canvas& canvas, Point grip, const Held& held);

/// A key of 38 pixels, lying along its own x axis: bow on the left, bit on the right. A trefoil bow marks the ornate
/// one.
void drawKeyShape(Canvas& canvas, const Material& metal, bool trefoil);

/// Steam that rises 16 pixels from `at`, the middle of a pie's crust. To be drawn outside a figure's group, which would
/// put its line around the steam. `turn`: share of its cycle.
void drawSteam(Canvas& canvas, Point at, double turn = 0);

}  // namespace grub
