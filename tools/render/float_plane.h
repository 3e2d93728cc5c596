#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

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
    /// The common part; `empty` when there is none, even with sides the wrong way round.
    Box within(const Box& other) const {
        return {std::max(x0, other.x0), std::max(y0, other.y0), std::min(x1, other.x1), std::min(y1, other.y1)};
    }
};

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

}  // namespace grub
