#include "floor.h"

#include <algorithm>
#include <vector>

#include "motion.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// The row at which a floor's own bottom line begins, and how far an open end stands back from the cell's edge.
constexpr double kBottom = 63;
constexpr double kEnd = 1.6;

/// The outline of a floor cell from row `top` down; where it does not end it goes on beyond the cell.
VectorPath floorBody(FloorEnds ends, double top) {
    const double left = ends.left ? kEnd : -40;
    const double right = ends.right ? kCellSize - kEnd : kCellSize + 40;
    return rectangle(left, top, right - left, kBottom - top, 3);
}

/// Floors grow darker towards the foot, more so below another one.
void shadeFace(Canvas& canvas, Storey storey) {
    if (storey == Storey::Under) return canvas.shadeRows(0, 64, 0.86F, 0.66F);
    canvas.shadeRows(16, 64, 1.04F, 0.72F);
}

// ---- breaking: the hit lands while frame 0 is shown, then cap and bricks tip into the hole

constexpr double kGravity = 3.2;  // px a frame squared

/// How a stone leaves: the frame in which it comes loose, and its sideways speed and turn in each frame.
struct Loosening {
    double start;
    double drift;
    double turn;
};

Loosening looseningOf(const Stone& stone, std::size_t index, std::uint32_t seed) {
    const auto n = static_cast<std::uint32_t>(index);
    const double middle = stone.x + stone.width / 2 - kCellSize / 2;
    const double depth = stone.y / kCellSize;
    return {0.35 + 1.8 * depth + 0.7 * randomShare(n, 1, seed), -0.05 * middle + 2 * (randomShare(n, 2, seed) - 0.5),
            0.22 * (randomShare(n, 3, seed) - 0.5)};
}

/// Ragged rests in the walls of a hole, which crumble away while `time` goes from 0 to 1.
void drawRaggedWalls(Canvas& canvas, const FloorKind& kind, Storey storey, double time, std::uint32_t seed) {
    constexpr double kToothEvery = 6;
    const double top = storey == Storey::Top ? kCapTop + 0.6 : -4;
    const Material surface = stony(mix(kind.palette.floorMortar, kind.palette.floor[1], 0.4F), 0.6F, 0.1F);
    for (const double inward : {1.0, -1.0}) {
        const double wall = inward > 0 ? 0 : kCellSize;
        std::vector<Point> edge{{wall - 8 * inward, kBottom}, {wall - 8 * inward, top}};
        for (std::uint32_t tooth = 0; top + tooth * kToothEvery < kBottom; ++tooth) {
            const double length = 3.6 * (1 - time) * (0.4 + randomShare(tooth, inward > 0 ? 4 : 5, seed));
            edge.push_back({wall + length * inward, top + tooth * kToothEvery});
        }
        edge.push_back({wall, kBottom});
        canvas.part(polygon(edge, 0.6), surface, {.bevel = 1, .line = 0.5, .shadow = 0});
    }
}

/// The line and the shade at both sides of a hole: they end the floor beside it. Between two open holes, where nothing
/// is left to end, they hardly show against the wall behind.
void drawHoleSides(Canvas& canvas, Storey storey) {
    constexpr int kShades = 4;
    const double top = storey == Storey::Top ? kCapTop : 0;
    const auto side = [&](double width, float alpha) {
        for (const double left : {0.0, kCellSize - width})
            canvas.flat(rectangle(left, top, width, kBottom - top), kInk, {.alpha = alpha});
    };
    side(0.75, 0.5F);
    for (int i = 1; i <= kShades; ++i) side(1.3 * i, 0.09F);
}

/// Crumbs that fall out of the broken ends and through the hole, until the last frame.
void drawCrumbs(Canvas& canvas, const FloorKind& kind, double time, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 10; ++i) {
        const double age = time - 2.2 - 1.6 * randomShare(i, 7, seed);
        const double size = 2.6 - 0.35 * age + 0.6 * randomShare(i, 5, seed);
        const Point at{7 + 5.5 * i, 24 + 20 * randomShare(i, 6, seed) + 1.6 * age * age};
        if (age <= 0 || time > 6.5 || size < 0.9 || at.y > 60) continue;
        canvas.part(polygon({{at.x - size, at.y + size * 0.5},
                             {at.x - size * 0.3, at.y - size},
                             {at.x + size, at.y},
                             {at.x + size * 0.4, at.y + size * 0.8}},
                            1),
                    stony(kind.palette.floor[i % 3] * 0.9F, 0.3F, 0.1F), {.bevel = 1.6, .line = 0.9, .shadow = 0});
    }
}

/// Cracks that run from the point of the hit.
void drawHitCracks(Canvas& canvas) {
    drawCrack(canvas, {{30, 1}, {33, 6}, {29, 12}, {34, 19}, {31, 30}, {36, 38}, {33, 48}}, 1);
    drawCrack(canvas, {{33, 6}, {43, 9}, {48, 16}, {57, 20}}, 1);
    drawCrack(canvas, {{29, 12}, {19, 15}, {14, 23}, {6, 26}}, 1);
    drawCrack(canvas, {{31, 30}, {22, 36}, {20, 44}}, 0.9F);
}

void drawFallingStones(Canvas& canvas, const FloorKind& kind, Storey storey, double time, std::uint32_t seed) {
    const auto stones = canvas.group();
    for (std::size_t i = kind.stones.size(); i-- > 0;) {
        const Stone& stone = kind.stones[i];
        const Loosening way = looseningOf(stone, i, seed);
        const double t = std::max(0.0, time - way.start);
        const double drop = kGravity * t * t;
        const double size = std::max(0.0, 1 - 0.17 * t);
        if (stone.y + drop > 60 || size < 0.4) continue;
        const Point centre{stone.x + stone.width / 2, stone.y + stone.height / 2};
        const Point shift{way.drift * t, drop};
        const auto tipped = canvas.placed(centre + shift, way.turn * t, size, size);
        const auto back = canvas.placed(centre * -1);
        kind.drawStone(canvas, i, storey);
    }
    shadeFace(canvas, storey);
}

void drawDust(Canvas& canvas, double time, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double age = time - 1.7 - 0.5 * randomShare(i, 8, seed);
        if (age <= 0 || age > 4.5) continue;
        const Point at{8 + 8 * i + 3 * (randomShare(i, 9, seed) - 0.5), 44 + 14 * randomShare(i, 6, seed) - 4.5 * age};
        canvas.halo(at, 7 + 2.4 * age, rgb(0xe8cdb0), static_cast<float>(0.62 * (1 - age / 4.5)));
    }
}

// ---- growing again: courses rise from below in a warm seam; the last frame is the floor, still glowing

constexpr Rgb kSeam = rgb(0xffd27a);

constexpr int kEdgePoints = 9;

/// Row up to which the floor has grown in this frame; above the cell in the last one.
double grownRow(FrameOf frame) {
    return frame.index + 1 < frame.count ? 60 - 58 * eased((frame.index + 0.6) / (frame.count - 0.6)) : -8;
}

std::vector<Point> grownEdge(double row) {
    std::vector<Point> edge{{-40, row}};
    for (std::uint32_t i = 0; i < kEdgePoints; ++i) edge.push_back({8.0 * i, row + 5 * (randomShare(i, 1, 17) - 0.5)});
    edge.push_back({104, row});
    return edge;
}

/// The glowing line on top of what has grown, and crumbs that fly up to it.
void drawSeam(Canvas& canvas, const std::vector<Point>& edge, double row, std::uint32_t frame) {
    for (std::size_t i = 0; i + 1 < edge.size(); ++i) {
        canvas.flat(polyline({edge[i], edge[i + 1]}), kSeam, {.alpha = 0.9F, .stroke = 2.6});
        canvas.flat(polyline({edge[i], edge[i + 1]}), rgb(0xffffff), {.alpha = 0.8F, .stroke = 1});
    }
    for (std::uint32_t i = 0; i < 7; ++i) {
        const double height = 3 + 13 * randomShare(i, frame, 23);
        if (row - height > 3)
            canvas.flat(circle({5 + 8.5 * i, row - height}, 1.7 - height * 0.06), kSeam, {.alpha = 0.95F});
    }
}

}  // namespace

void drawFloor(Canvas& canvas, const FloorKind& kind, Storey storey, FloorVariant variant, FloorEnds ends) {
    const bool top = storey == Storey::Top;
    const VectorPath body = floorBody(ends, top ? kCapTop : -20);
    canvas.part(body, stony(kind.palette.floorMortar * (top ? 1 : 0.8F), 0, 0), {.bevel = 1, .line = 1.2, .shadow = 0});
    const Mask inside = canvas.mask(body);
    kind.drawFace(canvas, storey, variant, &inside);
    shadeFace(canvas, storey);
    if (!top) return;
    kind.drawCap(canvas, &inside);
    drawLip(canvas);
}

void drawBreaking(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey, std::uint32_t seed) {
    if (frame.index == 0) {
        drawFloor(canvas, kind, storey);
        drawHitCracks(canvas);
        return;
    }
    const double time = frame.index;
    {
        const auto ruin = canvas.group({.outline = 0.5});
        drawRaggedWalls(canvas, kind, storey, frame.progress(), seed);
        drawCrumbs(canvas, kind, time, seed);
        drawFallingStones(canvas, kind, storey, time, seed);
    }
    drawHoleSides(canvas, storey);
    drawDust(canvas, time, seed);
}

void drawGrowing(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey) {
    const double row = grownRow(frame);
    if (row < 0) {
        drawFloor(canvas, kind, storey);
        canvas.glow({32, 5}, 38, kSeam, 0.3F);
        return;
    }
    drawHoleSides(canvas, storey);
    const std::vector<Point> edge = grownEdge(row);
    std::vector<Point> grown = edge;
    grown.insert(grown.end(), {{104, 104}, {-40, 104}});
    const Mask risen = canvas.mask(polygon(grown));
    {
        const auto floor = canvas.group({.clip = &risen});
        drawFloor(canvas, kind, storey);
    }
    drawSeam(canvas, edge, row, static_cast<std::uint32_t>(frame.index));
    canvas.glow({32, row}, 34, kSeam, 0.5F);
}

}  // namespace grub
