#include "ink.h"

#include <algorithm>
#include <cmath>

#include "mask.h"

namespace grub {

namespace {

std::uint8_t between(std::uint8_t from, std::uint8_t to, float share) {
    return static_cast<std::uint8_t>(std::lround(static_cast<float>(from) + share * static_cast<float>(to - from)));
}

/// The mean of a rectangle of pixels, which must not be empty.
Pixel meanOf(const PixelImage& image, const Box& box) {
    int r = 0;
    int g = 0;
    int b = 0;
    for (int y = box.y0; y < box.y1; ++y) {
        for (int x = box.x0; x < box.x1; ++x) {
            const Pixel& pixel = image.at(x, y);
            r += pixel.r;
            g += pixel.g;
            b += pixel.b;
        }
    }
    const int count = box.width() * box.height();
    const auto mean = [count](int sum) { return static_cast<std::uint8_t>(sum / count); };
    return {mean(r), mean(g), mean(b), 255};
}

}  // namespace

void ink(PixelImage& image, const VectorPath& path, Pixel colour, std::optional<double> stroke) {
    const Mask mask = rasterise(path, Affine{}, stroke, 0, {0, 0, image.width, image.height});
    for (int y = mask.box.y0; y < mask.box.y1; ++y) {
        for (int x = mask.box.x0; x < mask.box.x1; ++x) {
            Pixel& pixel = image.at(x, y);
            const float share = mask.at(x, y);
            pixel = {between(pixel.r, colour.r, share), between(pixel.g, colour.g, share),
                     between(pixel.b, colour.b, share), 255};
        }
    }
}

void write(PixelImage& image, const std::string& text, Point at, double size, Pixel colour, Align align) {
    ink(image, Font(Face::Body, size).line(text, at, align), colour);
}

PixelImage shrunk(const PixelImage& image, double scale) {
    const auto scaled = [scale](int length) { return std::max(1, static_cast<int>(length * scale)); };
    PixelImage small(scaled(image.width), scaled(image.height));
    for (int y = 0; y < small.height; ++y) {
        for (int x = 0; x < small.width; ++x) {
            const Box box{x * image.width / small.width, y * image.height / small.height,
                          (x + 1) * image.width / small.width, (y + 1) * image.height / small.height};
            small.at(x, y) = meanOf(image, box);
        }
    }
    return small;
}

}  // namespace grub
