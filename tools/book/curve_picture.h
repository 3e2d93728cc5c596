#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// A level's place on a curve.
struct CurvePoint {
    std::size_t index;  ///< in the level list
    double difficulty;
};

/// A bar for each level, and a line through the smoothed values. All curves that end at the same `top` can be compared.
[[nodiscard]] PixelImage drawCurve(const std::string& title, const std::vector<CurvePoint>& points, double top);

}  // namespace grub
