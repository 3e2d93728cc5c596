#include "hall_picture.h"

#include <algorithm>
#include <cmath>

#include "ink.h"

namespace grub {

namespace {

constexpr Pixel kDark{20, 16, 24, 255};
constexpr Pixel kStart{120, 220, 255, 255};
constexpr Pixel kEnd{255, 90, 80, 255};
constexpr Pixel kDig{255, 255, 255, 255};
constexpr Pixel kKey{255, 220, 60, 255};

/// Pieces of the line that have one colour each.
constexpr std::size_t kPieces = 24;

VectorPath circle(Point at, double radius) {
    return Rect{at.x - radius, at.y - radius, 2 * radius, 2 * radius}.path(radius);
}

VectorPath cross(Point at, double reach) {
    VectorPath path;
    path.moveTo(at + Point{-reach, -reach}).lineTo(at + Point{reach, reach});
    return path.moveTo(at + Point{reach, -reach}).lineTo(at + Point{-reach, reach});
}

/// Draws the marks of one hall; `scale` is that of the picture.
class Marker {
public:
    Marker(PixelImage& image, double scale) : image_(image), scale_(scale), line_(std::clamp(4 * scale, 1.0, 2.5)) {}

    void draw(const WinPath& path) {
        if (path.places.empty()) return;
        drawLine(path.places);
        for (const Point& dig : path.digs) stroke(cross(dig * scale_, 9 * scale_), kDig);
        stroke(circle(path.places.front() * scale_, 14 * scale_), kStart);
        const Point end = path.places.back() * scale_;
        const double reach = 14 * scale_;
        stroke(Rect{end.x - reach, end.y - reach, 2 * reach, 2 * reach}.path(), kEnd);
        for (std::size_t i = 0; i < path.keys.size(); ++i) drawNumber(path.keys[i] * scale_, i + 1);
    }

private:
    void stroke(const VectorPath& path, Pixel colour) {
        ink(image_, path, kDark, line_ + 2);
        ink(image_, path, colour, line_);
    }

    void drawLine(const std::vector<Point>& places) {
        ink(image_, through(places, 0, places.size() - 1), kDark, line_ + 2);
        for (std::size_t piece = 0; piece < kPieces; ++piece) {
            const std::size_t last = places.size() - 1;
            const auto share = static_cast<double>(piece) / (kPieces - 1);
            ink(image_, through(places, last * piece / kPieces, last * (piece + 1) / kPieces), colourAt(share), line_);
        }
    }

    /// The line from place `first` to place `last`; a hero who waits adds nothing.
    [[nodiscard]] VectorPath through(const std::vector<Point>& places, std::size_t first, std::size_t last) const {
        VectorPath path;
        path.moveTo(places[first] * scale_);
        for (std::size_t i = first + 1; i <= last; ++i)
            if (length(places[i] - places[i - 1]) > 0) path.lineTo(places[i] * scale_);
        return path;
    }

    /// Blue, green, yellow, red.
    static Pixel colourAt(double share) {
        const auto bump = [share](double middle, double reach) {
            return static_cast<std::uint8_t>(255 * std::clamp(1.5 - std::abs(share - middle) / reach, 0.0, 1.0));
        };
        return {bump(1.0, 0.4), bump(0.4, 0.3), bump(0.0, 0.25), 255};
    }

    void drawNumber(Point at, std::size_t number) {
        const double size = std::max(9.0, 26 * scale_);
        ink(image_, circle(at, 0.62 * size), kDark);
        write(image_, std::to_string(number), at + Point{0, 0.35 * size}, size, kKey, Align::Centre);
    }

    PixelImage& image_;
    double scale_;
    double line_;
};

}  // namespace

PixelImage drawHall(const PixelImage& level, const WinPath& path, double scale) {
    PixelImage hall = shrunk(level, scale);
    Marker(hall, scale).draw(path);
    return hall;
}

}  // namespace grub
