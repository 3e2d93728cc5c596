#pragma once

#include "canvas.h"

namespace grub {

/// A four-pointed glint that reaches `size` pixels, in a little light of its own.
void drawSparkle(Canvas& canvas, Point at, double size);

}  // namespace grub
