#include "meadow_parts.h"

#include <array>
#include <cmath>
#include <numbers>

#include "set_parts.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr Material kCloud = glossy(material(0xfdf6ea, 0xc9cfe6, 0xffffff), 0, 0);

}  // namespace

void drawTuft(Canvas& canvas, Point at, double height, Rgb colour) {
    for (const double lean : {-0.5, 0.0, 0.45}) {
        const Point tip = at + Point{lean * height, -height * (1 - 0.3 * std::abs(lean))};
        canvas.flat(limb({{at + Point{lean * 4, 0}, height * 0.13}, {mix(at, tip, 0.6), height * 0.1}, {tip, 0.4}}),
                    colour);
    }
}

void drawFlower(Canvas& canvas, Point at, double size, Rgb petals) {
    canvas.flat(polyline({at, at + Point{0, size * 2.6}}), rgb(0x4f7a38), {.stroke = size * 0.35});
    VectorPath head;
    for (int i = 0; i < 5; ++i) {
        const double angle = 2 * std::numbers::pi * i / 5 - 0.4;
        head.unite(circle(at + Point{std::cos(angle), std::sin(angle)} * (size * 0.7), size * 0.55));
    }
    canvas.part(head, material(petals), {.bevel = size * 0.4, .line = 0.8, .shadow = 0.2F});
    canvas.flat(circle(at, size * 0.42), rgb(0xf2c84a));
}

void drawGrowth(Canvas& canvas, const Rect& area, int count, std::uint32_t seed) {
    const auto all = static_cast<std::uint32_t>(count);
    for (std::uint32_t i = 0; i < all; ++i) {
        const double depth = (i + 0.5) / all;
        const Point at{area.x + area.width * randomShare(i, 1, seed), area.y + area.height * depth};
        const double size = 4 + 7 * depth;
        if (i % 3 == 0) {
            const Rgb petals = i % 2 == 0 ? rgb(0xfdf4f8) : rgb(0xd8b8ec);
            drawFlower(canvas, at - Point{0, size * 1.2}, size * 0.5, petals);
        }
        drawTuft(canvas, at, size * 1.5, randomShare(i, 2, seed) < 0.5 ? rgb(0x557f3a) : rgb(0x8ab45a));
    }
}

void drawCloud(Canvas& canvas, Point at, double size) {
    VectorPath puffs;
    for (const Joint& puff : {Joint{{-1.3, 0.1}, 0.42}, Joint{{-0.6, -0.25}, 0.6}, Joint{{0.2, -0.4}, 0.72},
                              Joint{{0.9, -0.1}, 0.55}, Joint{{1.5, 0.15}, 0.36}})
        puffs.unite(circle(at + puff.at * size, puff.radius * size));
    puffs.unite(rectangle(at.x - 1.4 * size, at.y, 3 * size, 0.45 * size, 0.22 * size));
    canvas.part(puffs, kCloud, {.bevel = size * 0.4, .line = 0, .shadow = 0, .alpha = 0.9F});
}

void drawTree(Canvas& canvas, Point foot, double height, Rgb leaves) {
    const auto grown = canvas.placed(foot, 0, height / 100, height / 100);
    canvas.part(limb({{{0, 0}, 8}, {{1, -22}, 5.5}, {{-1, -52}, 4}}), kWood, {.bevel = 5, .line = 1.2});
    const Material crown = stony(leaves, 1.6F, 0.14F, 0);
    for (const Joint& puff : {Joint{{-22, -48}, 19}, Joint{{22, -50}, 20}, Joint{{0, -44}, 18}, Joint{{-14, -70}, 20},
                              Joint{{14, -72}, 19}, Joint{{0, -84}, 16}})
        canvas.part(circle(puff.at, puff.radius), crown, {.bevel = 14, .line = 1.2, .shadow = 0.3F});
}

void drawFarPrison(Canvas& canvas, Point foot, double scale, Rgb stone) {
    const auto far = canvas.placed(foot, 0, scale, scale);
    const std::array smoke{Point{16, -40}, Point{10, -48}, Point{23, -54}, Point{14, -64},
                           Point{7, -73},  Point{21, -78}, Point{16, -90}};
    drawRibbon(canvas, smoke, 6, rgb(0xf4ecf0), 0.7F);
    const Material walls = glossy(material(stone), 0, 0.3F);
    const Material roofs = glossy(material(stone * 0.72F), 0, 0.3F);
    canvas.part(rectangle(12.5, -40, 6, 14), walls, {.bevel = 2, .line = 0.8});
    canvas.part(rectangle(-26, -20, 52, 20), walls, {.bevel = 3, .line = 0.8});
    for (const double x : {-25.0, 0.0, 25.0}) {
        const double top = x == 0 ? -32 : -26;
        canvas.part(rectangle(x - 6, top, 12, -top), walls, {.bevel = 4, .line = 0.8});
        canvas.part(polygon({{x - 8, top}, {x, top - 13}, {x + 8, top}}, 1), roofs, {.bevel = 4, .line = 0.8});
        canvas.flat(rectangle(x - 1.4, top + 7, 2.8, 5, 1.2), rgb(0xffd890));
    }
}

}  // namespace grub
