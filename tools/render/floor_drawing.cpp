#include "floor_drawing.h"

#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr double kCapTop = 0.9;
constexpr double kCapHeight = 12.6;
constexpr double kCourse = 17;
constexpr double kFirstCourse = 13;
constexpr double kBrick = 32;
constexpr double kJoint = 1.6;

/// The row at which the floor's own bottom line begins.
constexpr double kBottom = 63;

Rgb brickColour(std::uint32_t number) { return varied(kTurma.floor[number % 3], number, 0.05F); }

Material capMaterial(std::uint32_t number) { return stony(varied(kTurma.cap, number, 0.035F), 0.5F, 0.08F, 0.15F); }
Material brickMaterial(std::uint32_t number) { return stony(brickColour(number), 1.1F, 0.12F); }

void drawBrick(Canvas& canvas, double x, double y, double width, std::uint32_t number, const Mask* clip) {
    canvas.part(rectangle(x + kJoint / 2, y + kJoint / 2, width - kJoint, kCourse - kJoint, 3), brickMaterial(number),
                {.bevel = 3.5, .line = 0, .shadow = 0, .clip = clip});
}

/// The courses over the cell and its neighbours; only bricks inside the cell differ from wear to wear.
void drawCourses(Canvas& canvas, FloorWear wear, const Mask* clip) {
    for (std::uint32_t course = 0; course < 3; ++course) {
        const double offset = course % 2 == 1 ? kBrick / 2 : 0;
        for (int i = -1; i < 4; ++i) {
            const double x = i * kBrick - offset;
            const auto inCell = static_cast<std::uint32_t>((i + 2) % 2);
            const bool crossing = x < 0 || x + kBrick > kCellSize;
            const std::uint32_t own = crossing ? 0 : 10 * static_cast<std::uint32_t>(wear);
            drawBrick(canvas, x, kFirstCourse + course * kCourse, kBrick, 31 + course * 2 + inCell + own, clip);
        }
    }
}

void drawCap(Canvas& canvas, const Mask* clip) {
    canvas.flat(rectangle(-40, kCapTop + kCapHeight - 1, 144, 5), rgb(0x1a1020), {.alpha = 0.4F, .clip = clip});
    for (int i = -1; i < 3; ++i) {
        const auto number = static_cast<std::uint32_t>(20 + (i + 2) % 2);
        canvas.part(rectangle(i * kBrick + 0.5, kCapTop, kBrick - 1, kCapHeight, 2.6), capMaterial(number),
                    {.bevel = 3.4, .line = 0, .shadow = 0, .clip = clip});
    }
}

void drawWear(Canvas& canvas, FloorWear wear, const Mask* clip) {
    switch (wear) {
        case FloorWear::New: return;
        case FloorWear::Chipped:
            drawCrack(canvas, {{21, 1.5}, {23, 5}, {21.5, 8}, {25, 12}, {24, 17}, {28, 23}, {26, 29}}, 0.9F, clip);
            drawCrack(canvas, {{24, 17}, {19, 21}, {18, 25}}, 0.7F, clip);
            drawCrack(canvas, {{50, 52}, {45, 56}, {46, 61}}, 0.7F, clip);
            return;
        case FloorWear::Mossy: {
            const Material moss = stony(rgb(0x5c8a5a), 0.9F, 0.15F);
            VectorPath tufts;
            for (const Joint& drop :
                 {Joint{{38, 10}, 3.2}, {{42, 12}, 4}, {{47, 11}, 3.6}, {{51, 10}, 2.6}, {{43, 17}, 2.2}}) {
                tufts.unite(circle(drop.at, drop.radius));
            }
            canvas.part(tufts, moss, {.bevel = 2.4, .line = 0.7, .shadow = 0.3F, .clip = clip});
            return;
        }
    }
}

}  // namespace

void drawFloor(Canvas& canvas, FloorEnds ends, FloorWear wear) {
    const double left = ends.left ? 1.6 : -40;
    const double right = ends.right ? kCellSize - 1.6 : kCellSize + 40;
    const VectorPath whole = rectangle(left, kCapTop, right - left, kBottom - kCapTop, 2);
    canvas.part(whole, stony(kTurma.floorMortar, 0, 0), {.bevel = 1, .line = 1.2, .shadow = 0});
    const Mask inside = canvas.mask(whole);
    drawCourses(canvas, wear, &inside);
    canvas.shadeRows(16, 64, 1.04F, 0.72F);
    drawCap(canvas, &inside);
    drawWear(canvas, wear, &inside);
}

void drawFloorStone(Canvas& canvas, std::size_t index) {
    const Stone& stone = kFloorStones[index];
    const bool cap = index < kCapStones;
    const double gap = cap ? 1.0 : kJoint;
    canvas.part(rectangle(stone.x + gap / 2, stone.y + gap / 2, stone.width - gap, stone.height - gap, 3),
                cap ? capMaterial(stone.number) : brickMaterial(stone.number),
                {.bevel = 3.4, .line = 0.9, .shadow = 0.2F});
}

}  // namespace grub
