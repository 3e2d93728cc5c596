#include "lantern.h"

#include "shapes.h"

namespace grub {

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

}  // namespace grub
