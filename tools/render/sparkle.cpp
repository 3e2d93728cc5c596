#include "sparkle.h"

#include "shapes.h"

namespace grub {

void drawSparkle(Canvas& canvas, Point at, double size) {
    canvas.halo(at, size * 1.3, rgb(0xfff6d0), 0.55F);
    canvas.flat(star(at, 4, size, size * 0.2), rgb(0xffffff));
}

}  // namespace grub
