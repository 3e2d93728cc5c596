#include "contact_sheet.h"

#include <algorithm>

namespace grub {

namespace {

constexpr int kGap = 4;
constexpr int kSheetWidth = 700;
constexpr Pixel kSheetGround{58, 62, 84, 255};

struct Placed {
    PixelImage frame;
    int x;
    int y;
};

}  // namespace

PixelImage enlarged(const PixelImage& image, int zoom) {
    PixelImage large(image.width * zoom, image.height * zoom);
    for (int y = 0; y < large.height; ++y) {
        for (int x = 0; x < large.width; ++x) large.at(x, y) = image.at(x / zoom, y / zoom);
    }
    return large;
}

PixelImage contactSheet(const std::vector<const StripDrawing*>& strips, int zoom) {
    std::vector<Placed> items;
    int x = kGap;
    int y = kGap;
    int rowHeight = 0;
    for (const StripDrawing* strip : strips) {
        for (int frame = 0; frame < strip->frames; ++frame) {
            const bool full = x + strip->width + kGap > kSheetWidth;
            const bool newStrip = frame == 0 && strip->frames > 1 && x > kGap;
            if (full || newStrip) {
                x = kGap;
                y += rowHeight + kGap;
                rowHeight = 0;
            }
            items.push_back({renderFrame(*strip, frame), x, y});
            x += strip->width + kGap;
            rowHeight = std::max(rowHeight, strip->frameHeight);
        }
    }
    PixelImage sheet(kSheetWidth, y + rowHeight + kGap);
    std::fill(sheet.pixels.begin(), sheet.pixels.end(), kSheetGround);
    for (const Placed& item : items) layOver(sheet, item.frame, item.x, item.y);
    return enlarged(sheet, zoom);
}

}  // namespace grub
