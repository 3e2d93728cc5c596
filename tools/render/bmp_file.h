#pragma once

#include <cstdint>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// The picture as a BMP file: 40-byte header, 32 bits a pixel, uncompressed, bottom-up, pixels from byte 54, straight
/// alpha.
std::vector<std::uint8_t> bmpBytes(const PixelImage& image);

}  // namespace grub
