#include "masonry.h"

#include "noise.h"
#include "shapes.h"

namespace grub {

Rgb varied(Rgb colour, std::uint32_t number, float spread) {
    return colour * (1 + (randomShare(number, 11, 29) - 0.5F) * 2 * spread);
}

void drawCrack(Canvas& canvas, std::initializer_list<Point> points, float strength, const Mask* clip) {
    {
        const auto lower = canvas.placed({0.5, 0.9});
        canvas.flat(polyline(points), rgb(0xffffff), {.alpha = 0.16F * strength, .stroke = 0.9, .clip = clip});
    }
    canvas.flat(polyline(points), kInk, {.alpha = 0.75F * strength, .stroke = 1.3, .clip = clip});
}

}  // namespace grub
