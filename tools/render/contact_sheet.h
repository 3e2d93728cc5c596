#pragma once

#include <string>
#include <vector>

#include "picture_entry.h"
#include "pixel_image.h"

namespace grub {

/// The strips laid out for looking at: pictures of a strip side by side on a dark ground, `zoom` times as large,
/// wrapped.
PixelImage contactSheet(const std::vector<const PictureEntry*>& entries, int zoom);

/// Writes an opaque picture as PNG; false when that fails.
[[nodiscard]] bool writePng(const std::string& path, const PixelImage& image);

}  // namespace grub
