#pragma once

#include <initializer_list>
#include <span>
#include <string_view>

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
VectorPath limb(std::initializer_list<Joint> joints);

/// Star with `tips` points, one straight up.
VectorPath star(Point centre, int tips, double outer, double inner, double radius = 0);

/// Size of a letter of the built-in alphabet, and from one letter or line to the next. Pixels.
inline constexpr int kLetterWidth = 5;
inline constexpr int kLetterHeight = 7;
inline constexpr int kLetterAdvance = 6;
inline constexpr int kLineAdvance = 9;

/// Text of small letters (drawn as capitals), digits, underline and slash, one square a pixel, its upper left corner at
/// `at`; other letters stay blank. An alphabet of its own, so that no installed font can change a picture.
VectorPath pixelText(Point at, std::string_view text);

}  // namespace grub
