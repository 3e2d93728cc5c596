#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <vector>

#include "vector_path.h"

namespace grub {

/// A rectangle of samples: columns [x0, x1), rows [y0, y1).
struct Box {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;

    /// Negative for sides the wrong way round; such a box is empty.
    int width() const { return x1 - x0; }
    int height() const { return y1 - y0; }
    bool empty() const { return x1 <= x0 || y1 <= y0; }
    /// Moves every side outwards.
    Box grown(int by) const { return {x0 - by, y0 - by, x1 + by, y1 + by}; }
    /// The smallest box that holds both; neither may be empty.
    Box around(const Box& other) const {
        return {std::min(x0, other.x0), std::min(y0, other.y0), std::max(x1, other.x1), std::max(y1, other.y1)};
    }
    /// The common part; `empty` when the boxes do not touch, even with sides the wrong way round.
    Box within(const Box& other) const {
        return {std::max(x0, other.x0), std::max(y0, other.y0), std::min(x1, other.x1), std::min(y1, other.y1)};
    }
};

/// The smallest box that holds all the points, given in samples.
Box boxAround(std::initializer_list<Point> points);

/// A rectangle of numbers, rows top-down.
class FloatPlane {
public:
    FloatPlane() = default;
    FloatPlane(int width, int height, float value = 0)
        : width_(width),
          height_(height),
          values_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value) {}

    /// In samples; both 0 for a default plane.
    int width() const { return width_; }
    int height() const { return height_; }
    /// First number of a row; the row's numbers lie side by side.
    float* row(int y) { return values_.data() + static_cast<std::ptrdiff_t>(y) * width_; }
    const float* row(int y) const { return values_.data() + static_cast<std::ptrdiff_t>(y) * width_; }
    float& at(int x, int y) { return row(y)[x]; }
    float at(int x, int y) const { return row(y)[x]; }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<float> values_;
};

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

/// The same mask in the smallest box that holds every covered sample and its neighbours, or an empty one.
Mask trimmed(const Mask& mask);

/// The same mask in a box grown by `by` samples and cut to `limits`.
Mask widened(const Mask& mask, int by, const Box& limits);

/// Longer than any distance in a picture, in samples.
inline constexpr float kAnyDistance = 2000;

/// Which samples the distances are measured from.
enum class DistanceFrom { Inside, Outside };

/// For every sample that is covered by more than half (Inside) or by less (Outside): the distance, in samples, to the
/// nearest sample of the other kind, and the share of that one which is on this side of the edge; 0 for the others.
/// Distances above `limit`, and those in a plane without samples of the other kind, come out as some number above
/// `limit`; a small limit saves time.
FloatPlane distanceField(const FloatPlane& coverage, DistanceFrom from, float limit = kAnyDistance);

/// Gaussian of `sigma` samples as three box filters; beyond the edge lies 0. Below half a sample nothing changes.
FloatPlane blurred(FloatPlane plane, double sigma);

}  // namespace grub
