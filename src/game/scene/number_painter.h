#pragma once

#include "frame_strip.h"
#include "renderer.h"

namespace grub {

/// How far apart digits stand.
enum class DigitSpacing : int {
    Narrow = 10,  ///< pixels, as on the panel
    Wide = 14     ///< as of points that rise
};

/// Draws a number of 0 or more in decimal, at most its five lowest digits, so that the last one ends at `x`. `font` has
/// the digits 0 to 9 as its frames. Pixels on the screen; nothing is drawn for a place off the screen.
void drawNumber(Renderer& renderer, int x, int y, int value, FrameStrip& font, DigitSpacing spacing);

}  // namespace grub
