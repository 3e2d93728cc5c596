#pragma once

#include <string_view>
#include <vector>

#include "picture_entry.h"
#include "pixel_image.h"

namespace grub {

/// The pictures of a strip as the game reads them from the packages of this build; decoded once for all tests. A
/// failure is reported to the test.
[[nodiscard]] const std::vector<PixelImage>& builtStrip(std::string_view name);
[[nodiscard]] const PixelImage& builtFrame(std::string_view name, int frame = 0);

}  // namespace grub
