#include "strip.h"

#include <algorithm>

namespace grub {

namespace {

constexpr int kSamples = 4;

/// Design pixels drawn beyond the edges of a cell that joins its neighbours: more than any bevel and shadow reaches.
constexpr int kJoinMargin = 16;

}  // namespace

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

std::vector<StripDrawing> joined(std::initializer_list<std::span<const StripDrawing>> tables) {
    std::vector<StripDrawing> all;
    for (const auto& table : tables) all.insert(all.end(), table.begin(), table.end());
    return all;
}

PixelImage renderFrame(const StripDrawing& strip, int frame) {
    const int margin = strip.ground == Ground::Joined ? kJoinMargin : 0;
    Canvas canvas(strip.width, strip.frameHeight, kSamples, margin);
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

}  // namespace grub
