#include "strip.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grub {

namespace {

constexpr int kSamples = 4;

/// Design pixels drawn beyond the edges of a cell that joins its neighbours: more than any bevel and shadow reaches.
constexpr int kJoinMargin = 16;

/// Gives clear pixels the colour of the nearest pixel that is not clear; alpha stays.
void spreadColours(PixelImage& image) {
    std::vector<Box> ring;  // the pixels coloured last, each as a box of one
    std::vector<bool> coloured(image.pixels.size());
    const auto index = [&](int x, int y) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) + static_cast<std::size_t>(x);
    };
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            if (image.at(x, y).a == 0) continue;
            coloured[index(x, y)] = true;
            ring.push_back({x, y, x + 1, y + 1});
        }
    }
    const Box all{0, 0, image.width, image.height};
    while (!ring.empty()) {
        std::vector<Box> next;
        for (const Box& from : ring) {
            const Pixel source = image.at(from.x0, from.y0);
            const Box around = from.grown(1).within(all);
            for (int y = around.y0; y < around.y1; ++y) {
                for (int x = around.x0; x < around.x1; ++x) {
                    if (coloured[index(x, y)]) continue;
                    coloured[index(x, y)] = true;
                    image.at(x, y) = {source.r, source.g, source.b, 0};
                    next.push_back({x, y, x + 1, y + 1});
                }
            }
        }
        ring = std::move(next);
    }
}

// ---- the sheet

constexpr int kGap = 4;
constexpr int kSheetWidth = 700;
constexpr Pixel kSheetGround{58, 62, 84, 255};

struct Placed {
    PixelImage frame;
    int x;
    int y;
};

std::uint8_t blend(std::uint8_t over, std::uint8_t under, std::uint8_t alpha) {
    return static_cast<std::uint8_t>((over * alpha + under * (255 - alpha) + 127) / 255);
}

void lay(PixelImage& sheet, const Placed& item) {
    for (int y = 0; y < item.frame.height; ++y) {
        for (int x = 0; x < item.frame.width; ++x) {
            const Pixel p = item.frame.at(x, y);
            Pixel& under = sheet.at(item.x + x, item.y + y);
            under = {blend(p.r, under.r, p.a), blend(p.g, under.g, p.a), blend(p.b, under.b, p.a), 255};
        }
    }
}

PixelImage enlarged(const PixelImage& image, int zoom) {
    PixelImage large(image.width * zoom, image.height * zoom);
    for (int y = 0; y < large.height; ++y) {
        for (int x = 0; x < large.width; ++x) large.at(x, y) = image.at(x / zoom, y / zoom);
    }
    return large;
}

}  // namespace

PixelImage renderFrame(const StripDrawing& strip, int frame) {
    const int margin = strip.ground == Ground::Joined ? kJoinMargin : 0;
    Canvas canvas(strip.width, strip.frameHeight, kSamples, 1, margin);
    strip.draw(canvas, {frame, strip.frames, strip.name});
    PixelImage image = canvas.picture();
    spreadColours(image);
    return image;
}

PixelImage renderStrip(const StripDrawing& strip) {
    PixelImage all(strip.width, strip.frameHeight * strip.frames);
    auto to = all.pixels.begin();
    for (int frame = 0; frame < strip.frames; ++frame) {
        const PixelImage image = renderFrame(strip, frame);
        to = std::copy(image.pixels.begin(), image.pixels.end(), to);
    }
    return all;
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
    for (const Placed& item : items) lay(sheet, item);
    return enlarged(sheet, zoom);
}

double eased(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

double wave(double turns) { return std::sin(2 * std::numbers::pi * turns); }

}  // namespace grub
