#include "board_sheet.h"

#include <algorithm>
#include <cmath>

#include "board_looks.h"
#include "contact_sheet.h"

namespace grub {

namespace {

constexpr int kSheetWidth = 1320;
constexpr int kGap = 14;

/// Stones of the wall behind the samples.
constexpr int kStoneWidth = 64;
constexpr int kStoneHeight = 32;

std::uint8_t byteOf(float share) { return static_cast<std::uint8_t>(std::lround(clamp01(share) * 255)); }
Pixel pixelOf(Rgb c) { return {byteOf(c.r), byteOf(c.g), byteOf(c.b), 255}; }

PixelImage wall(int width, int height) {
    PixelImage image(width, height);
    const Rgb stone = groundOf(BoardKind::Wall);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int shift = y / kStoneHeight % 2 * kStoneWidth / 2;
            const bool mortar = y % kStoneHeight < 2 || (x + shift) % kStoneWidth < 2;
            image.at(x, y) = pixelOf(mortar ? rgb(0x20274a) : stone);
        }
    }
    return image;
}

/// Where each sample lies: rows from left to right, as high as their highest sample. The last entry is the end.
std::vector<std::pair<int, int>> placesOf(std::span<const BoardSample> samples) {
    std::vector<std::pair<int, int>> places;
    int x = kGap;
    int y = kGap;
    int rowHeight = 0;
    for (const BoardSample& sample : samples) {
        if (x + sample.width + kGap > kSheetWidth) {
            x = kGap;
            y += rowHeight + kGap;
            rowHeight = 0;
        }
        places.emplace_back(x, y);
        x += sample.width + kGap;
        rowHeight = std::max(rowHeight, sample.height);
    }
    places.emplace_back(kSheetWidth, y + rowHeight + kGap);
    return places;
}

}  // namespace

PixelImage boardSheet(int zoom, std::vector<std::string>& faults) {
    const auto samples = boardSamples();
    const auto places = placesOf(samples);
    PixelImage sheet = wall(places.back().first, places.back().second);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        Canvas canvas(samples[i].width, samples[i].height);
        const Fit fit = drawSample(canvas, samples[i]);
        layOver(sheet, canvas.picture(), places[i].first, places[i].second);
        if (fit.good()) continue;
        faults.push_back(std::string(samples[i].name) + ": words are " +
                         std::to_string(std::lround(std::ceil(fit.tooWide))) + " px too wide, " +
                         std::to_string(std::lround(std::ceil(fit.tooHigh))) + " px too high, letters missing: \"" +
                         fit.missing + '"');
    }
    return enlarged(sheet, zoom);
}

}  // namespace grub
