#pragma once

#include <cstdint>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// Pixels of this colour are holes in a picture without alpha.
inline constexpr Pixel kHoleColour{80, 54, 25, 255};

/// The picture as a JPEG file of quality 93, colours at full resolution. Where it would decode to `forbidden`, the
/// picture is made a little bluer; empty when that does not help.
std::vector<std::uint8_t> jpegWithout(PixelImage image, Pixel forbidden);

}  // namespace grub
