#pragma once

#include "pixel_image.h"
#include "win_path.h"

namespace grub {

/// A level's picture of 64 pixels a cell, made smaller, with the way of a win over it: a line from blue (early) to red
/// (late), a ring where it starts, a square where it ends, a cross in each cell that is dug, and the keys' numbers in
/// the order in which they are taken. A path without places draws nothing.
[[nodiscard]] PixelImage drawHall(const PixelImage& level, const WinPath& path, double scale);

}  // namespace grub
