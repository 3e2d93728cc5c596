#pragma once

#include <array>
#include <vector>

#include "affine.h"

namespace grub {

/// An outline of lines and Bezier curves. Filled by the non-zero rule, so overlapping outlines that run the same way
/// unite.
class VectorPath {
public:
    /// What a step does from the point where the last one ended.
    enum class Verb { Move, Line, Curve, Close };

    /// One step; a curve uses all three points (two handles, then the end), the others the first.
    struct Segment {
        Verb verb;
        std::array<Point, 3> points;
    };

    /// Each appends one step, in design pixels; Move begins another outline, Close ends it at its start.
    VectorPath& moveTo(Point p) { return add({Verb::Move, {p, {}, {}}}); }
    VectorPath& lineTo(Point p) { return add({Verb::Line, {p, {}, {}}}); }
    VectorPath& curveTo(Point handle1, Point handle2, Point end) { return add({Verb::Curve, {handle1, handle2, end}}); }
    VectorPath& close() { return add({Verb::Close, {}}); }
    /// Appends the other's outlines.
    VectorPath& unite(const VectorPath& other) {
        segments_.insert(segments_.end(), other.segments_.begin(), other.segments_.end());
        return *this;
    }

    /// In drawing order; valid until the next step is added.
    const std::vector<Segment>& segments() const { return segments_; }

private:
    VectorPath& add(Segment segment) {
        segments_.push_back(segment);
        return *this;
    }

    std::vector<Segment> segments_;
};

}  // namespace grub
