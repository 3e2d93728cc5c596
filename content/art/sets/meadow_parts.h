#pragma once

#include <cstdint>

#include "canvas.h"

namespace grub {

// What meadows are made of. Lengths in pixels of the page.

inline constexpr Material kGrass = stony(rgb(0x6f9a4a), 1.4F, 0.12F, 0);
inline constexpr Material kFarGrass = stony(rgb(0x86a874), 0.8F, 0.06F, 0);

/// Three blades of grass that rise from `at`.
void drawTuft(Canvas& canvas, Point at, double height, Rgb colour);

/// A flower on its stalk, `at` the middle of its head.
void drawFlower(Canvas& canvas, Point at, double size, Rgb petals);

/// Tufts and flowers, larger towards the viewer: towards the lower edge of the area. Their places follow from `seed`.
void drawGrowth(Canvas& canvas, const Rect& area, int count, std::uint32_t seed);

/// A cloud three times as wide as `size`.
void drawCloud(Canvas& canvas, Point at, double size);

/// A tree that stands on `foot`.
void drawTree(Canvas& canvas, Point foot, double height, Rgb leaves);

/// The prison, tiny on its hill, with a thread of smoke: 66 pixels wide at scale 1. `foot`: the middle of its lowest
/// row.
void drawFarPrison(Canvas& canvas, Point foot, double scale, Rgb stone);

}  // namespace grub
