#pragma once

#include <optional>

#include "affine.h"
#include "float_plane.h"
#include "vector_path.h"

namespace grub {

/// How much of each sample a shape covers, 0 to 1, known inside `box` and 0 outside.
struct Mask {
    Box box;
    FloatPlane coverage;

    /// Any sample of the picture, in the coordinates of `box`.
    float at(int x, int y) const {
        const bool inside = x >= box.x0 && x < box.x1 && y >= box.y0 && y < box.y1;
        return inside ? coverage.at(x - box.x0, y - box.y0) : 0.0F;
    }
};

/// Fills the path, or strokes it with round caps when a width (design pixels) is given. The box of the answer is what
/// the shape touches, grown by `margin` samples and cut to `limits`; it may be empty.
Mask rasterise(const VectorPath& path, const Affine& place, std::optional<double> strokeWidth, int margin,
               const Box& limits);

}  // namespace grub
