#include "shapes.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

VectorPath limb(std::initializer_list<Joint> joints) {
    VectorPath path;
    const Joint* previous = nullptr;
    for (const Joint& joint : joints) {
        path.unite(circle(joint.at, joint.radius));
        if (previous != nullptr) addBar(path, *previous, joint);
        previous = &joint;
    }
    return path;
}

VectorPath star(Point centre, int tips, double outer, double inner, double radius) {
    std::vector<Point> corners;
    for (int i = 0; i < 2 * tips; ++i) {
        const double angle = kPi * i / tips;
        const double reach = i % 2 == 0 ? outer : inner;
        corners.push_back(centre + Point{reach * std::sin(angle), -reach * std::cos(angle)});
    }
    return polygon(corners, radius);
}

namespace {

/// Rows from the top; the highest of five bits is the left pixel.
struct Letter {
    char letter;
    std::array<std::uint8_t, kLetterHeight> rows;
};

constexpr std::array kLetters{
    Letter{'a', {0b01110, 0b10001, 0b10001, 0b11111, 0b10001, 0b10001, 0b10001}},
    Letter{'b', {0b11110, 0b10001, 0b10001, 0b11110, 0b10001, 0b10001, 0b11110}},
    Letter{'c', {0b01110, 0b10001, 0b10000, 0b10000, 0b10000, 0b10001, 0b01110}},
    Letter{'d', {0b11110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b11110}},
    Letter{'e', {0b11111, 0b10000, 0b10000, 0b11110, 0b10000, 0b10000, 0b11111}},
    Letter{'f', {0b11111, 0b10000, 0b10000, 0b11110, 0b10000, 0b10000, 0b10000}},
    Letter{'g', {0b01110, 0b10001, 0b10000, 0b10111, 0b10001, 0b10001, 0b01110}},
    Letter{'h', {0b10001, 0b10001, 0b10001, 0b11111, 0b10001, 0b10001, 0b10001}},
    Letter{'i', {0b01110, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110}},
    Letter{'j', {0b00111, 0b00010, 0b00010, 0b00010, 0b00010, 0b10010, 0b01100}},
    Letter{'k', {0b10001, 0b10010, 0b10100, 0b11000, 0b10100, 0b10010, 0b10001}},
    Letter{'l', {0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b11111}},
    Letter{'m', {0b10001, 0b11011, 0b10101, 0b10101, 0b10001, 0b10001, 0b10001}},
    Letter{'n', {0b10001, 0b11001, 0b10101, 0b10011, 0b10001, 0b10001, 0b10001}},
    Letter{'o', {0b01110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110}},
    Letter{'p', {0b11110, 0b10001, 0b10001, 0b11110, 0b10000, 0b10000, 0b10000}},
    Letter{'q', {0b01110, 0b10001, 0b10001, 0b10001, 0b10101, 0b10010, 0b01101}},
    Letter{'r', {0b11110, 0b10001, 0b10001, 0b11110, 0b10100, 0b10010, 0b10001}},
    Letter{'s', {0b01111, 0b10000, 0b10000, 0b01110, 0b00001, 0b00001, 0b11110}},
    Letter{'t', {0b11111, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100}},
    Letter{'u', {0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110}},
    Letter{'v', {0b10001, 0b10001, 0b10001, 0b10001, 0b01010, 0b01010, 0b00100}},
    Letter{'w', {0b10001, 0b10001, 0b10001, 0b10101, 0b10101, 0b11011, 0b10001}},
    Letter{'x', {0b10001, 0b01010, 0b00100, 0b00100, 0b00100, 0b01010, 0b10001}},
    Letter{'y', {0b10001, 0b10001, 0b01010, 0b00100, 0b00100, 0b00100, 0b00100}},
    Letter{'z', {0b11111, 0b00001, 0b00010, 0b00100, 0b01000, 0b10000, 0b11111}},
    Letter{'0', {0b01110, 0b10001, 0b10011, 0b10101, 0b11001, 0b10001, 0b01110}},
    Letter{'1', {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110}},
    Letter{'2', {0b01110, 0b10001, 0b00001, 0b00110, 0b01000, 0b10000, 0b11111}},
    Letter{'3', {0b11110, 0b00001, 0b00001, 0b01110, 0b00001, 0b00001, 0b11110}},
    Letter{'4', {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010}},
    Letter{'5', {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110}},
    Letter{'6', {0b01110, 0b10000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110}},
    Letter{'7', {0b11111, 0b00001, 0b00010, 0b00100, 0b01000, 0b01000, 0b01000}},
    Letter{'8', {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110}},
    Letter{'9', {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00001, 0b01110}},
    Letter{'_', {0b00000, 0b00000, 0b00000, 0b00000, 0b00000, 0b00000, 0b11111}},
    Letter{'-', {0b00000, 0b00000, 0b00000, 0b11111, 0b00000, 0b00000, 0b00000}},
    Letter{'/', {0b00001, 0b00001, 0b00010, 0b00100, 0b01000, 0b10000, 0b10000}},
};

void addLetter(VectorPath& path, Point at, const Letter& letter) {
    for (int y = 0; y < kLetterHeight; ++y) {
        for (int x = 0; x < kLetterWidth; ++x) {
            const bool set = (letter.rows[static_cast<std::size_t>(y)] >> (kLetterWidth - 1 - x) & 1) != 0;
            if (set) path.unite(rectangle(at.x + x, at.y + y, 1, 1));
        }
    }
}

}  // namespace

VectorPath pixelText(Point at, std::string_view text) {
    VectorPath path;
    for (const char c : text) {
        const auto* found =
            std::find_if(kLetters.begin(), kLetters.end(), [c](const Letter& l) { return l.letter == c; });
        if (found != kLetters.end()) addLetter(path, at, *found);
        at.x += kLetterAdvance;
    }
    return path;
}

}  // namespace grub
