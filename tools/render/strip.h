#pragma once

#include <span>

#include "picture_entry.h"
#include "pixel_image.h"

namespace grub {

/// One picture of a strip.
PixelImage renderFrame(const PictureEntry& entry, int frame);

/// All pictures of a strip below one another. Clear pixels carry the colour of the nearest coloured one of their
/// picture, so that scaling or filtering never pulls in a foreign colour.
PixelImage renderStrip(const PictureEntry& entry);

/// Gives clear pixels the colour of the nearest pixel that is not clear; alpha stays.
void spreadColours(PixelImage& image);

}  // namespace grub
