#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace grub {

/// A finished pixel with straight alpha.
struct Pixel {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 0;

    bool operator==(const Pixel&) const = default;
};

/// A finished picture, rows top-down.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    PixelImage() = default;
    /// Fully transparent.
    PixelImage(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

    /// Unchecked; the pixels of a row lie side by side.
    Pixel* row(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
    const Pixel* row(int y) const { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
    Pixel& at(int x, int y) { return row(y)[x]; }
    const Pixel& at(int x, int y) const { return row(y)[x]; }
    bool operator==(const PixelImage&) const = default;
};

/// Lays `picture` over `page` with its upper left corner at (x, y); what lies beyond the page is dropped.
void layOver(PixelImage& page, const PixelImage& picture, int x, int y);

/// The picture as a BMP file: 40-byte header, 32 bits a pixel, uncompressed, bottom-up, pixels from byte 54, straight
/// alpha.
std::vector<std::uint8_t> bmpBytes(const PixelImage& image);

/// Writes an opaque picture as PNG; false when that fails.
[[nodiscard]] bool writePng(const std::string& path, const PixelImage& image);

}  // namespace grub
