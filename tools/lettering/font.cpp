#include "font.h"

#include <algorithm>
#include <cmath>

#include "shapes.h"

namespace grub {

namespace {

/// Baseline to baseline, in ems.
constexpr double kPitch = 1.3;

/// Round letters pass the baseline by less than this, in ems.
constexpr double kOvershoot = 0.03;

/// Straight pieces that stand for one curve where letters are grown: at 110 pixels the error is below a tenth.
constexpr int kPiecesPerCurve = 8;

/// `outline` at `size`, with its pen at `pen`.
void append(VectorPath& path, const VectorPath& outline, Point pen, double size) {
    const auto at = [&](Point p) { return pen + p * size; };
    for (const VectorPath::Segment& segment : outline.segments()) {
        const auto& p = segment.points;
        switch (segment.verb) {
            case VectorPath::Verb::Move: path.moveTo(at(p[0])); break;
            case VectorPath::Verb::Line: path.lineTo(at(p[0])); break;
            case VectorPath::Verb::Curve: path.curveTo(at(p[0]), at(p[1]), at(p[2])); break;
            case VectorPath::Verb::Close: path.close(); break;
        }
    }
}

Point onCurve(Point from, const std::array<Point, 3>& p, double t) {
    const Point a = mix(mix(from, p[0], t), mix(p[0], p[1], t), t);
    const Point b = mix(mix(p[0], p[1], t), mix(p[1], p[2], t), t);
    return mix(a, b, t);
}

/// The corners of a closed outline.
using Corners = std::vector<Point>;

/// The outlines of a path, curves cut into straight pieces.
std::vector<Corners> polygonsOf(const VectorPath& path) {
    std::vector<Corners> polygons;
    for (const VectorPath::Segment& segment : path.segments()) {
        if (segment.verb == VectorPath::Verb::Move) polygons.push_back({segment.points[0]});
        if (segment.verb == VectorPath::Verb::Line) polygons.back().push_back(segment.points[0]);
        if (segment.verb != VectorPath::Verb::Curve) continue;
        const Point from = polygons.back().back();
        for (int i = 1; i <= kPiecesPerCurve; ++i) {
            polygons.back().push_back(onCurve(from, segment.points, static_cast<double>(i) / kPiecesPerCurve));
        }
    }
    return polygons;
}

/// Positive when the outline runs clockwise on the screen.
double areaOf(const Corners& corners) {
    double twice = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i];
        const Point b = corners[(i + 1) % corners.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

}  // namespace

double Font::pitch() const { return std::ceil(kPitch * size_); }

double Font::width(std::string_view line) const {
    double pen = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const GlyphOutline* glyph = typeface_->glyph(line[i]);
        if (i > 0) pen += typeface_->kerning(line[i - 1], line[i]);
        if (glyph != nullptr) pen += glyph->advance;
    }
    return pen * size_;
}

double Font::depth(std::string_view line) const {
    double deepest = 0;
    for (const char code : line) {
        const GlyphOutline* glyph = typeface_->glyph(code);
        // Round letters reach a little below the line and still stand on it.
        if (glyph != nullptr && glyph->bottom > kOvershoot) deepest = std::max(deepest, glyph->bottom);
    }
    return deepest * size_;
}

std::string Font::missing(std::string_view text) const {
    std::string codes;
    for (const char code : text) {
        const bool lacking = code != '\n' && typeface_->glyph(code) == nullptr;
        if (lacking && codes.find(code) == std::string::npos) codes += code;
    }
    return codes;
}

std::vector<std::string> Font::wrapped(std::string_view text, double width) const {
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        const std::string word(text.substr(0, end));
        std::string& line = lines.back();
        const std::string longer = line.empty() ? word : line + ' ' + word;
        line.empty() || this->width(longer) <= width ? line = longer : lines.emplace_back(word);
        if (end < text.size() && text[end] == '\n') lines.emplace_back();
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

VectorPath Font::line(std::string_view line, Point at, Align align) const {
    VectorPath path;
    Point pen = at - Point{width(line) * shareBefore(align), 0};
    for (std::size_t i = 0; i < line.size(); ++i) {
        const GlyphOutline* glyph = typeface_->glyph(line[i]);
        if (i > 0) pen.x += typeface_->kerning(line[i - 1], line[i]) * size_;
        if (glyph == nullptr) continue;
        append(path, glyph->outline, pen, size_);
        pen.x += glyph->advance * size_;
    }
    return path;
}

VectorPath Font::lines(const std::vector<std::string>& lines, Point at, Align align, double pitch) const {
    VectorPath path;
    for (const std::string& text : lines) {
        path.unite(line(text, at, align));
        at.y += pitch;
    }
    return path;
}

double shareBefore(Align align) {
    switch (align) {
        case Align::Left: return 0;
        case Align::Centre: return 0.5;
        case Align::Right: return 1;
    }
    return 0;
}

VectorPath plump(const VectorPath& letters, double by) {
    std::vector<Corners> polygons = polygonsOf(letters);
    double area = 0;
    for (const Corners& corners : polygons) area += areaOf(corners);
    VectorPath path;
    for (Corners& corners : polygons) {
        // The limbs run clockwise: outlines that ran against them would cut holes where the two overlap.
        if (area < 0) std::ranges::reverse(corners);
        path.unite(polygon(corners));
        std::vector<Joint> joints;
        for (const Point corner : corners) joints.push_back({corner, by});
        joints.push_back(joints.front());
        path.unite(limb(joints));
    }
    return path;
}

}  // namespace grub
