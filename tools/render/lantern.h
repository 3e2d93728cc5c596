#pragma once

#include "canvas.h"

namespace grub {

/// A lit wall lantern in an iron cage, 26 px high around `centre`, without the light that it throws.
void drawLantern(Canvas& canvas, Point centre);

}  // namespace grub
