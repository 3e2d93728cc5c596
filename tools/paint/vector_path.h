#pragma once

#include <array>
#include <cmath>
#include <vector>

namespace grub {

/// A place on the drawing, in design pixels, y down.
struct Point {
    double x = 0;
    double y = 0;
};

/// Places also count as vectors from the origin. `mix` goes from `a` (t = 0) to `b` (t = 1), t not limited.
constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator*(Point a, double k) { return {a.x * k, a.y * k}; }
constexpr Point mix(Point a, Point b, double t) { return a + (b - a) * t; }
inline double length(Point a) { return std::hypot(a.x, a.y); }

/// x' = xx * x + xy * y + x0, y' = yx * x + yy * y + y0. Each operation acts before those already there, as a drawing
/// nests.
struct Affine {
    double xx = 1;
    double yx = 0;
    double xy = 0;
    double yy = 1;
    double x0 = 0;
    double y0 = 0;

    /// From the innermost drawing's pixels to samples.
    Point apply(Point p) const { return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0}; }
    Affine translated(Point by) const {
        const Point origin = apply(by);
        return {xx, yx, xy, yy, origin.x, origin.y};
    }
    /// Radians, clockwise as y points down.
    Affine rotated(double angle) const {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        return {xx * c + xy * s, yx * c + yy * s, xy * c - xx * s, yy * c - yx * s, x0, y0};
    }
    /// Negative factors mirror.
    Affine scaled(double sx, double sy) const { return {xx * sx, yx * sx, xy * sy, yy * sy, x0, y0}; }
    /// Samples a design pixel is long, averaged over directions.
    double magnification() const { return std::sqrt(std::abs(xx * yy - xy * yx)); }
};

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

/// A rectangle as a layout gives it: upper left corner and size, in design pixels.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    Point centre() const { return {x + width / 2, y + height / 2}; }
    /// Each side moved inwards; negative numbers move it outwards.
    Rect inset(double by) const { return inset(by, by); }
    Rect inset(double byX, double byY) const { return {x + byX, y + byY, width - 2 * byX, height - 2 * byY}; }
    Rect moved(Point by) const { return {x + by.x, y + by.y, width, height}; }
    /// Its outline, the corners rounded off.
    VectorPath path(double radius = 0) const;
};

}  // namespace grub
