#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "pixel_image.h"

namespace grub {

/// The frames of a strip as the game reads them from the packages of this build; decoded once for all tests. A failure
/// is reported to the test.
[[nodiscard]] const std::vector<PixelImage>& builtStrip(std::string_view name);
[[nodiscard]] const PixelImage& builtFrame(std::string_view name, int frame = 0);

// ---- what tests measure on frames

/// Whether a pixel counts as part of what is shown: more than half opaque.
[[nodiscard]] inline bool isVisible(const Pixel& p) { return p.a > 127; }
[[nodiscard]] int visiblePixels(const PixelImage& image);
/// Those of them that lie on the edge of the frame.
[[nodiscard]] int visibleOnBorder(const PixelImage& image);

/// Lowest row with something visible, -1 if there is nothing.
[[nodiscard]] int lowestRow(const PixelImage& image);
/// Highest row with something visible in the columns [from, to); the height of the frame if there is nothing.
[[nodiscard]] int highestRow(const PixelImage& image, int from = 0, int to = 64);

/// Mean column and row of what lies in the rows [from, to), weighed by alpha.
[[nodiscard]] std::pair<double, double> middleOf(const PixelImage& image, int from = 0, int to = 64);

/// The stretches of visible pixels of a row, from the first column up to, not including, the second.
[[nodiscard]] std::vector<std::pair<int, int>> runsIn(const PixelImage& image, int row);

/// Sum over red, green and blue.
[[nodiscard]] double difference(const Pixel& a, const Pixel& b);
/// Sum over all pixels and their four values.
[[nodiscard]] double difference(const PixelImage& a, const PixelImage& b);
/// Mean difference of the pixels that `a` covers fully.
[[nodiscard]] double differenceWhereOpaque(const PixelImage& a, const PixelImage& b);
/// The step from the last frame back to the first, as a multiple of the largest step inside the loop.
[[nodiscard]] double jumpAtTheEnd(const std::vector<PixelImage>& frames);

/// CIE lightness, 0 to 100.
[[nodiscard]] double lightness(const Pixel& p);
/// Its mean over the visible pixels of the rows [from, to).
[[nodiscard]] double lightnessOf(const PixelImage& image, int from = 0, int to = 64);
/// Mean light that the visible pixels give off, over that of `ground`; 1 is the same.
[[nodiscard]] double contrast(const PixelImage& image, const PixelImage& ground);

}  // namespace grub
