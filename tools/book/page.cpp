#include "page.h"

#include <algorithm>

#include "hall_picture.h"
#include "ink.h"
#include "level_list.h"
#include "measure_table.h"

namespace grub {

namespace {

constexpr Pixel kPaper{38, 36, 46, 255};
constexpr Pixel kInk{240, 235, 225, 255};
constexpr Pixel kFaint{190, 184, 176, 255};

constexpr double kPageScale = 0.5;
constexpr int kMargin = 12;
constexpr int kCaptionHeight = 58;

constexpr int kTileWidth = 520;
constexpr int kTileHeight = 330;
constexpr int kTileCaption = 26;
constexpr int kTilesInARow = 3;

PixelImage paper(int width, int height) {
    PixelImage page(width, height);
    std::ranges::fill(page.pixels, kPaper);
    return page;
}

std::string captionOf(const BookLevel& entry) { return std::to_string(entry.index) + "  " + entry.level.source.title; }

/// "turma/level01: cells 13x9, keys 3, ..."
std::string measureLine(const BookLevel& entry) {
    const std::string_view name = kLevelNames[entry.index].substr(kLevelFolder.size());
    std::string line(name.substr(0, name.find('.')));
    std::ranges::replace(line, '\\', '/');
    const char* before = ":  ";
    for (const Measure& measure : measuresOf(entry.level, entry.win)) {
        line += before + measure.heading + " " + measure.text;
        before = ",  ";
    }
    return line;
}

}  // namespace

PixelImage drawPage(const BookLevel& entry, const PixelImage& picture, const WinPath& path) {
    const PixelImage hall = drawHall(picture, path, kPageScale);
    const std::string measures = measureLine(entry);
    const int text = static_cast<int>(Font(Face::Body, 15).width(measures)) + 1;
    PixelImage page = paper(std::max(hall.width, text) + 2 * kMargin, hall.height + kMargin + kCaptionHeight);
    layOver(page, hall, (page.width - hall.width) / 2, kMargin);
    const double under = hall.height + kMargin;
    write(page, captionOf(entry), {kMargin, under + 25}, 20, kInk);
    write(page, measures, {kMargin, under + 46}, 15, kFaint);
    return page;
}

PixelImage drawTile(const BookLevel& entry, const PixelImage& picture, const WinPath& path) {
    const double room = kTileHeight - kTileCaption;
    const double scale = std::min({0.5, static_cast<double>(kTileWidth) / picture.width, room / picture.height});
    const PixelImage hall = drawHall(picture, path, scale);
    PixelImage tile = paper(kTileWidth, kTileHeight);
    layOver(tile, hall, (kTileWidth - hall.width) / 2, (kTileHeight - kTileCaption - hall.height) / 2);
    write(tile, captionOf(entry), {kTileWidth / 2.0, kTileHeight - 7.0}, 18, kInk, Align::Centre);
    return tile;
}

PixelImage drawSheet(const std::vector<PixelImage>& tiles) {
    const int rows = (static_cast<int>(tiles.size()) + kTilesInARow - 1) / kTilesInARow;
    PixelImage sheet = paper(kMargin + kTilesInARow * (kTileWidth + kMargin), kMargin + rows * (kTileHeight + kMargin));
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const int column = static_cast<int>(i) % kTilesInARow;
        const int row = static_cast<int>(i) / kTilesInARow;
        layOver(sheet, tiles[i], kMargin + column * (kTileWidth + kMargin), kMargin + row * (kTileHeight + kMargin));
    }
    return sheet;
}

}  // namespace grub
