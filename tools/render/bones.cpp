#include "bones.h"

#include "shapes.h"

namespace grub {

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

}  // namespace grub
