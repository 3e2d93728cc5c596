#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "page_source.h"
#include "pixel_image.h"

namespace grub {

/// Draws all frames of a picture below one another. `faults` takes a line for each place where words do not fit, and
/// for a JPEG that is not drawn on everywhere.
PixelImage drawPicture(const PagePicture& picture, std::vector<std::string>& faults);

/// The bytes of its file: BMP with alpha, or an opaque JPEG without a pixel of the colour that the game takes for a
/// hole. Empty, and a line in `faults`, when no such JPEG comes out.
std::vector<std::uint8_t> pictureFile(const PagePicture& picture, const PixelImage& image,
                                      std::vector<std::string>& faults);

}  // namespace grub
