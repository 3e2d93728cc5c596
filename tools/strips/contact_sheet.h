#pragma once

#include <vector>

#include "strip.h"

namespace grub {

/// Each pixel as a square of `zoom` by `zoom`.
PixelImage enlarged(const PixelImage& image, int zoom);

/// The strips laid out for looking at: the frames of a strip side by side on a dark ground, `zoom` times as large,
/// wrapped.
PixelImage contactSheet(const std::vector<const StripDrawing*>& strips, int zoom);

}  // namespace grub
