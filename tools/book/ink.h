#pragma once

#include <optional>
#include <string>

#include "font.h"
#include "pixel_image.h"
#include "vector_path.h"

namespace grub {

/// Draws an outline on an opaque picture, filled, or as a line of `stroke` pixels with round ends.
void ink(PixelImage& image, const VectorPath& path, Pixel colour, std::optional<double> stroke = std::nullopt);

/// Writes a line of text, `size` pixels high, whose place on the baseline is `at`.
void write(PixelImage& image, const std::string& text, Point at, double size, Pixel colour, Align align = Align::Left);

/// A smaller picture: each pixel is the mean of those that it stands for. `scale` is above 0, at most 1.
[[nodiscard]] PixelImage shrunk(const PixelImage& image, double scale);

}  // namespace grub
