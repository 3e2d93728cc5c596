#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// A picture in memory, pixels 0xFFRRGGBB, rows top-down.
struct ScreenPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// A size in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
};

/// Writes a picture as an RGB PNG. False after one line on standard error.
bool writePng(const std::string& path, const ScreenPicture& picture);

/// Where a picture stands in a window: as large as fits, with its aspect, in the centre, with black bars at two sides.
/// All in pixels.
struct PictureArea {
    int x = 0, y = 0, width = 1, height = 1;
    int pictureWidth = 1, pictureHeight = 1;

    /// A window smaller than one pixel counts as one pixel.
    static constexpr PictureArea fit(int windowWidth, int windowHeight, int pictureWidth, int pictureHeight) {
        windowWidth = windowWidth < 1 ? 1 : windowWidth;
        windowHeight = windowHeight < 1 ? 1 : windowHeight;
        PictureArea area{0, 0, windowWidth, windowHeight, pictureWidth, pictureHeight};
        if (windowWidth * pictureHeight > windowHeight * pictureWidth) {
            area.width = atLeastOne(windowHeight * pictureWidth / pictureHeight);
        } else {
            area.height = atLeastOne(windowWidth * pictureHeight / pictureWidth);
        }
        area.x = (windowWidth - area.width) / 2;
        area.y = (windowHeight - area.height) / 2;
        return area;
    }

    /// The picture's column and row under a point of the window; outside the picture they lie outside 0 .. size - 1, on
    /// the same side.
    [[nodiscard]] constexpr int column(int windowX) const { return floorDivide((windowX - x) * pictureWidth, width); }
    [[nodiscard]] constexpr int row(int windowY) const { return floorDivide((windowY - y) * pictureHeight, height); }

    /// The first point of the window that shows a column or row of the picture.
    [[nodiscard]] constexpr int windowX(int column) const { return x + ceilDivide(column * width, pictureWidth); }
    [[nodiscard]] constexpr int windowY(int row) const { return y + ceilDivide(row * height, pictureHeight); }

    /// Whether each pixel of the picture becomes a square of equal pixels, so that no pixels have to be blended.
    [[nodiscard]] constexpr bool isWholeFactor() const {
        return width % pictureWidth == 0 && height % pictureHeight == 0;
    }

private:
    static constexpr int atLeastOne(int size) { return size < 1 ? 1 : size; }
    static constexpr int floorDivide(int a, int b) { return a / b - (a % b < 0 ? 1 : 0); }
    static constexpr int ceilDivide(int a, int b) { return -floorDivide(-a, b); }
};

}  // namespace platform
