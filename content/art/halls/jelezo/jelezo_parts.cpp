#include "jelezo_parts.h"

#include "shapes.h"

namespace grub {

void drawBulkheadLamp(Canvas& canvas, Point centre) {
    const auto hung = canvas.placed(centre);
    canvas.part(rectangle(-12, -16, 24, 7, 2.4), kMachineCasing, {.bevel = 2.6, .line = 1.1});
    canvas.part(rectangle(-9, -10, 18, 21, 8), glossy(material(0xffc46a, 0xe0702c, 0xfff4c8), 0.9F),
                {.bevel = 8, .line = 1.1});
    canvas.flat(ellipse({0, -1}, 4, 6.4), rgb(0xfffbe0), {.alpha = 0.85F});
    for (const double x : {-8.6, 0.0, 8.6})
        canvas.part(polyline({{x, -10}, {x * 0.86, 11}}), kMachineSteel, {.bevel = 0.8, .line = 0.6, .stroke = 1.5});
    canvas.part(rectangle(-10.4, -0.6, 20.8, 2.4, 1.2), kMachineSteel, {.bevel = 1, .line = 0.6});
}

}  // namespace grub
