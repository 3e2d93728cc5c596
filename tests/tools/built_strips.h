#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "image_decoder.h"
#include "pixel_image.h"
#include "resource_package.h"
#include "rooms.h"

namespace grub {

/// The frames of a strip.
using Frames = std::vector<PixelImage>;

/// The frames of a strip as the game reads them from the packages of this build; decoded once for all tests. A failure
/// is reported to the test, which then gets one clear frame.
[[nodiscard]] inline const Frames& builtStrip(std::string_view name) {
    static ResourcePackage package(GRUB_DATA_DIR "/data64.pak");
    static std::map<std::string, Frames, std::less<>> strips;
    if (const auto known = strips.find(name); known != strips.end()) return known->second;
    Frames& frames = strips[std::string(name)];
    const StripDrawing* strip = findStrip(name);
    const std::string path = "data\\gif\\" + std::string(name) + ".bmp";
    const auto decoder = createImageDecoder(package.load(path.c_str()));
    SharedBuffer colours;
    SharedBuffer alpha;
    if (strip == nullptr || decoder == nullptr || !decoder->decode(colours, alpha)) {
        ADD_FAILURE() << name << " is not there or no picture";
        return frames = {PixelImage(64, 64)};
    }
    const std::size_t frameSize = PixelImage(decoder->width(), strip->frameHeight).pixels.size();
    frames.assign(colours.size() / 3 / frameSize, PixelImage(decoder->width(), strip->frameHeight));
    for (std::size_t i = 0; i < frames.size() * frameSize; ++i) {
        const auto rgb = colours.bytes().subspan(3 * i, 3);
        const auto a = alpha.empty() ? std::uint8_t{255} : alpha.bytes()[i];
        frames[i / frameSize].pixels[i % frameSize] = {rgb[0], rgb[1], rgb[2], a};
    }
    return frames;
}
[[nodiscard]] inline const PixelImage& builtFrame(std::string_view name, int frame = 0) {
    return builtStrip(name).at(static_cast<std::size_t>(frame));
}

// ---- what tests measure on frames

/// Whether a pixel counts as part of what is shown: more than half opaque.
[[nodiscard]] inline bool isVisible(const Pixel& p) { return p.a > 127; }
[[nodiscard]] inline auto visiblePixels(const PixelImage& image) {
    return std::ranges::count_if(image.pixels, isVisible);
}

/// Lowest row with something visible, -1 if there is nothing.
[[nodiscard]] inline int lowestRow(const PixelImage& image) {
    int y = image.height - 1;
    while (y >= 0 && std::none_of(image.row(y), image.row(y + 1), isVisible)) --y;
    return y;
}
/// Highest row with something visible in the columns [from, to); the height of the frame if there is nothing.
[[nodiscard]] inline int highestRow(const PixelImage& image, int from = 0, int to = 64) {
    int y = 0;
    while (y < image.height && std::none_of(image.row(y) + from, image.row(y) + to, isVisible)) ++y;
    return y;
}

/// The stretches of visible pixels of a row, from the first column up to, not including, the second.
[[nodiscard]] inline std::vector<std::pair<int, int>> runsIn(const PixelImage& image, int row) {
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < image.width; ++x) {
        if (!isVisible(image.at(x, row))) continue;
        if (runs.empty() || runs.back().second != x) runs.emplace_back(x, x);
        runs.back().second = x + 1;
    }
    return runs;
}

/// The frame with rows and columns exchanged.
[[nodiscard]] inline PixelImage turned(const PixelImage& image) {
    PixelImage result(image.height, image.width);
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) result.at(y, x) = image.at(x, y);
    }
    return result;
}

/// Whether something visible lies on the edge of the frame.
[[nodiscard]] inline bool touchesEdge(const PixelImage& image) {
    const PixelImage side = turned(image);
    return highestRow(image, 0, image.width) == 0 || lowestRow(image) == image.height - 1 ||
           highestRow(side, 0, side.width) == 0 || lowestRow(side) == side.height - 1;
}

/// Mean column and row of what is shown, weighed by alpha.
[[nodiscard]] inline std::pair<double, double> middleOf(const PixelImage& image) {
    double weight = 0;
    std::pair<double, double> middle;
    for (int i = 0; i < image.width * image.height; ++i) {
        const double alpha = image.row(0)[i].a;
        weight += alpha;
        const auto [row, column] = std::div(i, image.width);
        middle.first += alpha * (column + 0.5);
        middle.second += alpha * (row + 0.5);
    }
    return {middle.first / weight, middle.second / weight};
}

/// Sum over red, green and blue.
[[nodiscard]] inline int difference(const Pixel& a, const Pixel& b) {
    return std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
}
/// Mean over the pixels, or over those that `a` covers fully, of the sum over all four values.
[[nodiscard]] inline double difference(const PixelImage& a, const PixelImage& b, bool whereOpaque = false) {
    double sum = 0;
    double count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        if (whereOpaque && a.pixels[i].a != 255) continue;
        sum += difference(a.pixels[i], b.pixels[i]) + std::abs(a.pixels[i].a - b.pixels[i].a);
        ++count;
    }
    return sum / count;
}

/// Whether the last frame leads on to the first: by a step not much larger than the largest step before it.
[[nodiscard]] inline bool isCycle(const Frames& frames) {
    double largest = 0;
    for (std::size_t i = 1; i < frames.size(); ++i) largest = std::max(largest, difference(frames[i - 1], frames[i]));
    const double last = difference(frames.back(), frames.front());
    return last > 0 && last <= 1.3 * largest;
}

}  // namespace grub
