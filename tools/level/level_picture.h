#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <vector>

#include "level_map.h"

namespace grub {

/// A picture with straight alpha: 4 bytes R, G, B, A for each pixel, rows top-down. It may be empty.
struct RgbaPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgba;

    /// Whether it has no pixels.
    [[nodiscard]] bool empty() const { return rgba.empty(); }
};

/// The first frames of the game's animations. It reads a picture file when its frame is first asked for.
class PictureBook {
public:
    /// `folder` is laid out as `data\gif` of the picture package; with an empty path the book has no pictures.
    explicit PictureBook(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The first frame of an animation, mirrored and keyed as in the game; valid as long as the book. Empty when the
    /// animation has no readable file.
    [[nodiscard]] const RgbaPicture& firstFrame(int animationId);

private:
    [[nodiscard]] RgbaPicture read(int animationId) const;

    std::filesystem::path folder_;
    std::map<int, RgbaPicture> frames_;
};

/// Lays `picture` over `page` with its upper left corner at x, y; pixels outside of the page are dropped.
void blend(RgbaPicture& page, const RgbaPicture& picture, int x, int y);

/// False when the file cannot be written.
[[nodiscard]] bool writePng(const std::filesystem::path& path, const RgbaPicture& picture);

/// Draws a level as the game shows it before anything moves, 64 pixels a cell. A cell whose picture is missing in the
/// book gets a plain colour that tells its block type.
[[nodiscard]] RgbaPicture drawLevel(const LevelMap& map, PictureBook& book);

}  // namespace grub
