#include "balloon.h"

#include <algorithm>
#include <cmath>

#include "board_looks.h"

namespace grub {

namespace {

/// Half the width of a tail where it leaves the balloon, at most.
constexpr double kTailHalf = 10;

/// Corners reach this far at most; a balloon of one line becomes a pill.
constexpr double kCorner = 24;

/// How far the long sides bulge.
constexpr double kBulge = 2;

/// A round-cornered shape whose sides bulge a little, clockwise.
VectorPath bodyOutline(const Rect& a) {
    const double r = std::min({kCorner, a.height / 2, a.width / 2});
    const double h = r * 0.42;  // from a corner to the handles of its curve: rounder than a circle
    const double left = a.x;
    const double right = a.right();
    const double top = a.y;
    const double bottom = a.bottom();
    const double b = std::min(kBulge, a.height / 20);
    VectorPath path;
    path.moveTo({left + r, top + b});
    path.curveTo({left + a.width * 0.35, top}, {left + a.width * 0.65, top}, {right - r, top + b});
    path.curveTo({right - h, top + b}, {right, top + b + h}, {right, top + r + b / 2});
    path.lineTo({right, bottom - r - b / 2});
    path.curveTo({right, bottom - b - h}, {right - h, bottom - b}, {right - r, bottom - b});
    path.curveTo({left + a.width * 0.65, bottom}, {left + a.width * 0.35, bottom}, {left + r, bottom - b});
    path.curveTo({left + h, bottom - b}, {left, bottom - b - h}, {left, bottom - r - b / 2});
    path.lineTo({left, top + r + b / 2});
    path.curveTo({left, top + b + h}, {left + h, top + b}, {left + r, top + b});
    return path.close();
}

/// Where a tail leaves the balloon: the middle of its root, the way out, and the way along the side (clockwise).
struct Root {
    Point at;
    Point out;
    Point along;
};

/// On the side towards the tip; away from the corners, and a little beside the straight way, so that the tail bends.
Root rootTowards(const Rect& a, Point tip) {
    const Point middle = a.centre();
    const Point away = tip - middle;
    const double corner = std::min({kCorner, a.height / 2, a.width / 2});
    const bool sideways = std::abs(away.x) / a.width > std::abs(away.y) / a.height && tip.y > a.y && tip.y < a.bottom();
    if (sideways) {
        const double room = std::max(0.0, a.height / 2 - corner * 0.6 - kTailHalf * 0.5);
        const double y = middle.y + std::clamp(away.y * 0.2, -room, room);
        const double way = away.x > 0 ? 1 : -1;
        return {{away.x > 0 ? a.right() : a.x, y}, {way, 0}, {0, way}};
    }
    const double room = std::max(0.0, a.width / 2 - corner - kTailHalf * 0.8);
    const double x = middle.x + std::clamp(away.x * 0.7, -room, room);
    const double way = away.y > 0 ? 1 : -1;
    return {{x, away.y > 0 ? a.bottom() : a.y}, {0, way}, {-way, 0}};
}

/// A horn that leaves the balloon straight and bends towards its tip, clockwise. Its end is blunt by a pixel, for a
/// line round it to hold together.
VectorPath tailOutline(const Root& root, Point tip, double half) {
    const Point way = tip - root.at;
    const double depth = way.x * root.out.x + way.y * root.out.y;
    const Point inner = root.at - root.out * 5;  // inside the balloon, whose outline it joins
    const Point first = inner - root.along * half;
    const Point last = inner + root.along * half;
    const Point straight = root.out * (depth * 0.4 + 5);
    const Point bend = mix(tip, root.at + root.out * (depth * 0.75), 0.45);
    const Point end = (tip - bend) * (1 / length(tip - bend));
    const Point blunt = Point{-end.y, end.x} * 0.6;
    VectorPath path;
    path.moveTo(first);
    path.curveTo(first + straight, bend - root.along * (half * 0.35), tip - blunt);
    path.lineTo(tip + blunt);
    path.curveTo(bend + root.along * (half * 0.35), last + straight, last);
    return path.close();
}

}  // namespace

void drawBalloon(Canvas& canvas, const Rect& area, std::optional<Point> speaker) {
    const Rect body = area.inset(1.5);
    VectorPath outline = bodyOutline(body);
    const bool outside = speaker && (speaker->x < area.x || speaker->x > area.right() || speaker->y < area.y ||
                                     speaker->y > area.bottom());
    if (outside) {
        const double half = std::min(kTailHalf, body.height * 0.24);
        outline.unite(tailOutline(rootTowards(body, *speaker), *speaker, half));
    }
    canvas.part(outline, kBalloonSkin, {.bevel = 6, .line = 1.6, .shadow = 0.45F});
}

}  // namespace grub
