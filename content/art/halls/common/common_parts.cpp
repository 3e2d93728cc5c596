#include "common_parts.h"

#include <array>

#include "shapes.h"
#include "surface.h"

namespace grub {

Rgb varied(Rgb colour, std::uint32_t number, float spread) {
    return colour * (1 + (randomShare(number, 11, 29) - 0.5F) * 2 * spread);
}

void drawLip(Canvas& canvas) { canvas.shadeRows(kCapTop + 0.5, kCapTop + 3, 0.48F, 1); }

void drawCrack(Canvas& canvas, std::initializer_list<Point> points, float strength, const Mask* clip) {
    {
        const auto lower = canvas.placed({0.5, 0.9});
        canvas.flat(polyline(points), rgb(0xffffff), {.alpha = 0.16F * strength, .stroke = 0.9, .clip = clip});
    }
    canvas.flat(polyline(points), kInk, {.alpha = 0.75F * strength, .stroke = 1.3, .clip = clip});
}

void drawRubble(Canvas& canvas, const WorldPalette& world, float dim) {
    constexpr std::array kStones{Stone{0, 1, 37, 30, 1}, Stone{37, 0, 27, 33, 2}, Stone{0, 31, 25, 33, 3},
                                 Stone{25, 33, 39, 30, 4}};
    canvas.flat(rectangle(-40, -40, 144, 144), mix(world.backdropMortar, rgb(0x3a3844), 0.5F));
    for (const Stone& s : kStones) {
        canvas.part(rectangle(s.x + 0.8, s.y + 0.8, s.width - 1.6, s.height - 1.6, 8),
                    stony(varied(world.solid[s.number % 2] * dim, s.number, 0.06F), 1.4F, 0.13F),
                    {.bevel = 7, .line = 0, .shadow = 0});
    }
}

namespace {

constexpr Material kBone = glossy(material(0xe8dcc4, 0x8a6f80, 0xfffaec), 0.3F);

}  // namespace

void drawBone(Canvas& canvas, Point from, Point to, double thickness) {
    const Point along = (to - from) * (1 / length(to - from));
    const Point across{-along.y, along.x};
    VectorPath bone = limb({{from, thickness}, {to, thickness}});
    for (const Point end : {from, to}) {
        for (const double side : {-1.0, 1.0})
            bone.unite(circle(end + across * (side * thickness * 0.95), thickness * 1.15));
    }
    canvas.part(bone, kBone, {.bevel = thickness * 1.1, .line = 1.1});
}

void drawSkull(Canvas& canvas, Point at, double angle) {
    const auto laid = canvas.placed(at, angle);
    canvas.part(loop({{-10, -2},  {-10, -10}, {-5, -13}, {0, -13},    {5, -13},   {10, -10}, {10, -2}, {10, 2},
                      {7.5, 3.5}, {6.5, 5},   {6.2, 7},  {6, 9},      {5.6, 9.6}, {3, 10},   {-3, 10}, {-5.6, 9.6},
                      {-6, 9},    {-6.2, 7},  {-6.5, 5}, {-7.5, 3.5}, {-10, 2},   {-10, -2}}),
                kBone, {.bevel = 7, .line = 1.2});
    for (const double x : {-4.2, 4.2}) canvas.flat(ellipse({x, -1}, 2.9, 3.2), rgb(0x3a2436));
    canvas.flat(polygon({{0, 2}, {1.5, 4.8}, {-1.5, 4.8}}, 0.5), rgb(0x3a2436));
    for (const double x : {-2.6, 0.0, 2.6})
        canvas.flat(polyline({{x, 6.8}, {x, 9.4}}), rgb(0x3a2436), {.alpha = 0.8F, .stroke = 0.9});
}

namespace {

constexpr Material kGlass = glossy(material(0xffc964, 0xe8782c, 0xfff6c8), 0.9F);

}  // namespace

void drawLantern(Canvas& canvas, Point centre) {
    const auto hung = canvas.placed(centre);
    canvas.part(polyline({{0, -17}, {0, -11}}), kDarkMetal, {.bevel = 1, .line = 1, .stroke = 2.4});
    canvas.part(loop({{-7, -7}, {-8, 4}, {-6, 9}, {0, 9}, {6, 9}, {8, 4}, {7, -7}, {3, -8}, {-3, -8}, {-7, -7}}),
                kGlass, {.bevel = 6, .line = 1.2});
    canvas.flat(loop({{0, -4},
                      {2.4, -1},
                      {3.2, 1},
                      {3.2, 3.4},
                      {3.2, 5.6},
                      {1.6, 6.6},
                      {0, 6.6},
                      {-1.6, 6.6},
                      {-3.2, 5.6},
                      {-3.2, 3.4},
                      {-3.2, 1},
                      {-1, 0},
                      {0, -4}}),
                rgb(0xfffbe0), {.alpha = 0.9F});
    for (const double side : {-1.0, 1.0}) {
        canvas.part(curve({{side * 3, -8}, {side * 5.4, -3}, {side * 5.4, 4}, {side * 3.4, 9}}), kDarkMetal,
                    {.bevel = 0.7, .line = 0.5, .shadow = 0.2F, .stroke = 1.3});
    }
    canvas.part(polygon({{-9, -6.5}, {-4, -12.5}, {4, -12.5}, {9, -6.5}}, 1.6), kDarkMetal,
                {.bevel = 2.6, .line = 1.2});
    canvas.part(rectangle(-7, 8, 14, 4.4, 1.8), kDarkMetal, {.bevel = 2, .line = 1.2});
}

void drawSparkle(Canvas& canvas, Point at, double size) {
    canvas.halo(at, size * 1.3, rgb(0xfff6d0), 0.55F);
    canvas.flat(star(at, 4, size, size * 0.2), rgb(0xffffff));
}

}  // namespace grub
