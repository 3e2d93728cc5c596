#include "shapes.h"

#include <algorithm>
#include <numbers>

namespace grub {

namespace {

constexpr double kPi = std::numbers::pi;

/// Length of the handles that make a quarter circle of radius 1.
constexpr double kQuarter = 0.5522847498;

/// Share of a rounded corner's side that its handle reaches towards the corner.
constexpr double kCornerHandle = 0.6;

/// Clockwise (direction 1) or the other way round (-1).
void addEllipse(VectorPath& path, Point centre, double rx, double ry, double angle, double direction) {
    const Affine place = Affine{}.translated(centre).rotated(angle).scaled(rx, ry * direction);
    const auto at = [&place](double x, double y) { return place.apply({x, y}); };
    const double q = kQuarter;
    path.moveTo(at(1, 0));
    path.curveTo(at(1, q), at(q, 1), at(0, 1));
    path.curveTo(at(-q, 1), at(-1, q), at(-1, 0));
    path.curveTo(at(-1, -q), at(-q, -1), at(0, -1));
    path.curveTo(at(q, -1), at(1, -q), at(1, 0));
    path.close();
}

Point towards(Point from, Point to, double distance) {
    const double side = length(to - from);
    return side > 0 ? mix(from, to, std::min(distance / side, 0.5)) : from;
}

VectorPath bezier(std::initializer_list<Point> points) {
    VectorPath path;
    const Point* p = points.begin();
    path.moveTo(*p);
    for (const Point* end = points.end(); p + 3 < end; p += 3) path.curveTo(p[1], p[2], p[3]);
    return path;
}

/// The tapered bar between two joints, running the way ellipses do.
void addBar(VectorPath& path, const Joint& a, const Joint& b) {
    const Point along = b.at - a.at;
    const double distance = length(along);
    if (distance <= 0) return;
    const Point across{-along.y / distance, along.x / distance};
    path.moveTo(a.at + across * a.radius).lineTo(a.at - across * a.radius);
    path.lineTo(b.at - across * b.radius).lineTo(b.at + across * b.radius).close();
}

}  // namespace

VectorPath ellipse(Point centre, double rx, double ry, double angle) {
    VectorPath path;
    addEllipse(path, centre, rx, ry, angle, 1);
    return path;
}

VectorPath circle(Point centre, double radius) { return ellipse(centre, radius, radius); }

VectorPath ring(Point centre, double outer, double inner) {
    VectorPath path;
    addEllipse(path, centre, outer, outer, 0, 1);
    addEllipse(path, centre, inner, inner, 0, -1);
    return path;
}

VectorPath polygon(std::span<const Point> corners, double radius) {
    VectorPath path;
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Point corner = corners[i];
        const Point before = towards(corner, corners[(i + count - 1) % count], radius);
        const Point after = towards(corner, corners[(i + 1) % count], radius);
        i == 0 ? path.moveTo(before) : path.lineTo(before);
        if (radius > 0) path.curveTo(mix(before, corner, kCornerHandle), mix(after, corner, kCornerHandle), after);
    }
    return path.close();
}

VectorPath polygon(std::initializer_list<Point> corners, double radius) {
    return polygon(std::span(corners.begin(), corners.size()), radius);
}

VectorPath rectangle(double x, double y, double width, double height, double radius) {
    return polygon({{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}, radius);
}

VectorPath Rect::path(double radius) const { return rectangle(x, y, width, height, radius); }

VectorPath polyline(std::initializer_list<Point> points) {
    VectorPath path;
    bool first = true;
    for (const Point p : points) {
        first ? path.moveTo(p) : path.lineTo(p);
        first = false;
    }
    return path;
}

VectorPath curve(std::initializer_list<Point> points) { return bezier(points); }

VectorPath loop(std::initializer_list<Point> points) { return bezier(points).close(); }

VectorPath limb(std::span<const Joint> joints) {
    VectorPath path;
    const Joint* previous = nullptr;
    for (const Joint& joint : joints) {
        path.unite(circle(joint.at, joint.radius));
        if (previous != nullptr) addBar(path, *previous, joint);
        previous = &joint;
    }
    return path;
}

VectorPath limb(std::initializer_list<Joint> joints) { return limb(std::span(joints.begin(), joints.size())); }

VectorPath star(Point centre, int tips, double outer, double inner, double radius) {
    std::vector<Point> corners;
    for (int i = 0; i < 2 * tips; ++i) {
        const double angle = kPi * i / tips;
        const double reach = i % 2 == 0 ? outer : inner;
        corners.push_back(centre + Point{reach * std::sin(angle), -reach * std::cos(angle)});
    }
    return polygon(corners, radius);
}

}  // namespace grub
