#pragma once

#include "pixel_image.h"

namespace grub {

/// A page of 800 x 600 with all figures and all that words stand on, in front of a hall: to look at, and to measure
/// what a page costs. `wordsFit` says whether all words fit what they stand on.
PixelImage samplePage(bool& wordsFit);

}  // namespace grub
