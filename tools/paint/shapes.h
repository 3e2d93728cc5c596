#pragma once

#include <initializer_list>
#include <span>

#include "vector_path.h"

namespace grub {

/// Ellipse turned by `angle` radians.
VectorPath ellipse(Point centre, double rx, double ry, double angle = 0);
VectorPath circle(Point centre, double radius);

/// Annulus: the inner outline runs the other way round.
VectorPath ring(Point centre, double outer, double inner);

/// Closed polygon whose corners are rounded off over `radius` pixels of each side (at most half a side).
VectorPath polygon(std::span<const Point> corners, double radius = 0);
VectorPath polygon(std::initializer_list<Point> corners, double radius = 0);
VectorPath rectangle(double x, double y, double width, double height, double radius = 0);

/// Open line through the points, for strokes.
VectorPath polyline(std::initializer_list<Point> points);

/// Open curve: a start, then triples of handle, handle, end.
VectorPath curve(std::initializer_list<Point> points);
/// Closed shape of Bezier curves: a start, then triples of handle, handle, end.
VectorPath loop(std::initializer_list<Point> points);

/// A chain of joints with a radius at each: arms, legs, sticks.
struct Joint {
    Point at;
    double radius;
};
VectorPath limb(std::span<const Joint> joints);
VectorPath limb(std::initializer_list<Joint> joints);

/// Star with `tips` points, one straight up.
VectorPath star(Point centre, int tips, double outer, double inner, double radius = 0);

}  // namespace grub
