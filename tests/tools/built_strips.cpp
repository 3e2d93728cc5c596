#include "built_strips.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "all_strips.h"
#include "image_decoder.h"
#include "resource_package.h"

namespace grub {
namespace {

PixelImage decoded(std::string_view name) {
    static ResourcePackage package(GRUB_DATA_DIR "/data64.pak");
    const std::string path = "data\\gif\\" + std::string(name) + ".bmp";
    const auto decoder = createImageDecoder(package.load(path.c_str()));
    SharedBuffer colours;
    SharedBuffer alpha;
    if (decoder == nullptr || !decoder->decode(colours, alpha)) {
        ADD_FAILURE() << path << " is not there or no picture";
        return {};
    }
    PixelImage image(decoder->width(), decoder->height());
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const auto rgb = colours.bytes().subspan(3 * i, 3);
        const auto a = alpha.empty() ? std::uint8_t{255} : alpha.bytes()[i];
        image.pixels[i] = {rgb[0], rgb[1], rgb[2], a};
    }
    return image;
}

std::vector<PixelImage> framesIn(const PixelImage& strip, int frameHeight) {
    std::vector<PixelImage> frames;
    for (int y = 0; y + frameHeight <= strip.height; y += frameHeight) {
        PixelImage& frame = frames.emplace_back(strip.width, frameHeight);
        std::copy(strip.row(y), strip.row(y + frameHeight), frame.pixels.begin());
    }
    return frames;
}

/// Light that a pixel gives off, 0 to 1.
double luminance(const Pixel& p) {
    const auto linear = [](std::uint8_t v) {
        const double c = v / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(p.r) + 0.7152 * linear(p.g) + 0.0722 * linear(p.b);
}

double meanOver(const PixelImage& image, int from, int to, double (*value)(const Pixel&)) {
    double sum = 0;
    double count = 0;
    for (const Pixel* p = image.row(from); p != image.row(to); ++p) {
        if (!isVisible(*p)) continue;
        sum += value(*p);
        ++count;
    }
    return sum / count;
}

}  // namespace

const std::vector<PixelImage>& builtStrip(std::string_view name) {
    static std::map<std::string, std::vector<PixelImage>, std::less<>> strips;
    const auto known = strips.find(name);
    if (known != strips.end()) return known->second;
    const StripDrawing* strip = findStrip(name);
    EXPECT_NE(strip, nullptr) << name;
    auto frames = framesIn(decoded(name), strip != nullptr ? strip->frameHeight : 64);
    if (frames.empty()) frames.emplace_back(64, 64);
    return strips.emplace(name, std::move(frames)).first->second;
}

const PixelImage& builtFrame(std::string_view name, int frame) {
    const auto& strip = builtStrip(name);
    EXPECT_LT(static_cast<std::size_t>(frame), strip.size()) << name;
    return strip.at(static_cast<std::size_t>(frame));
}

int visiblePixels(const PixelImage& image) {
    return static_cast<int>(std::count_if(image.pixels.begin(), image.pixels.end(), isVisible));
}

int visibleOnBorder(const PixelImage& image) {
    int count = 0;
    for (int y = 0; y < image.height; ++y) {
        const int step = y == 0 || y == image.height - 1 ? 1 : image.width - 1;
        for (int x = 0; x < image.width; x += step) count += isVisible(image.at(x, y)) ? 1 : 0;
    }
    return count;
}

int lowestRow(const PixelImage& image) {
    int y = image.height - 1;
    while (y >= 0 && std::none_of(image.row(y), image.row(y + 1), isVisible)) --y;
    return y;
}

int highestRow(const PixelImage& image, int from, int to) {
    int y = 0;
    while (y < image.height && std::none_of(image.row(y) + from, image.row(y) + to, isVisible)) ++y;
    return y;
}

std::pair<double, double> middleOf(const PixelImage& image, int from, int to) {
    double weight = 0;
    double across = 0;
    double down = 0;
    for (int y = from; y < to; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const double alpha = image.at(x, y).a;
            weight += alpha;
            across += alpha * (x + 0.5);
            down += alpha * (y + 0.5);
        }
    }
    return {across / weight, down / weight};
}

std::vector<std::pair<int, int>> runsIn(const PixelImage& image, int row) {
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < image.width; ++x) {
        if (!isVisible(image.at(x, row))) continue;
        if (runs.empty() || runs.back().second != x) runs.emplace_back(x, x);
        runs.back().second = x + 1;
    }
    return runs;
}

double difference(const Pixel& a, const Pixel& b) {
    return std::abs(a.r - b.r) + std::abs(a.g - b.g) + std::abs(a.b - b.b);
}

double difference(const PixelImage& a, const PixelImage& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        sum += difference(a.pixels[i], b.pixels[i]) + std::abs(a.pixels[i].a - b.pixels[i].a);
    return sum;
}

double differenceWhereOpaque(const PixelImage& a, const PixelImage& b) {
    double sum = 0;
    double count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        if (a.pixels[i].a != 255) continue;
        sum += difference(a.pixels[i], b.pixels[i]);
        ++count;
    }
    return sum / count;
}

double jumpAtTheEnd(const std::vector<PixelImage>& frames) {
    double largest = 0;
    for (std::size_t i = 0; i + 1 < frames.size(); ++i)
        largest = std::max(largest, difference(frames[i], frames[i + 1]));
    return difference(frames.back(), frames.front()) / largest;
}

double lightness(const Pixel& p) {
    const double y = luminance(p);
    return y > 0.008856 ? 116 * std::cbrt(y) - 16 : 903.3 * y;
}

double lightnessOf(const PixelImage& image, int from, int to) { return meanOver(image, from, to, lightness); }

double contrast(const PixelImage& image, const PixelImage& ground) {
    return (meanOver(image, 0, image.height, luminance) + 0.05) /
           (meanOver(ground, 0, ground.height, luminance) + 0.05);
}

}  // namespace grub
