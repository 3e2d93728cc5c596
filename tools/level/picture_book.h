#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <vector>

namespace grub {

/// One picture with straight alpha, 4 bytes R, G, B, A a pixel, rows top-down. Empty when there is none.
struct RgbaPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgba;

    /// Whether there is no picture to lay over anything.
    [[nodiscard]] bool empty() const { return rgba.empty(); }
};

/// The first frames of the game's animations, read from a folder of picture files when they are first asked for.
class PictureBook {
public:
    /// A folder as `data\gif` of the picture package; an empty path is a book without pictures.
    explicit PictureBook(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The first frame of an animation id, mirrored and keyed as the game would; valid as long as the book. Empty for
    /// an id without a readable file.
    [[nodiscard]] const RgbaPicture& firstFrame(int animationId);

private:
    [[nodiscard]] RgbaPicture read(int animationId) const;

    std::filesystem::path folder_;
    std::map<int, RgbaPicture> frames_;
};

/// Lays `picture` over `page` with its upper left corner at x, y; what falls outside is cut off.
void blend(RgbaPicture& page, const RgbaPicture& picture, int x, int y);

/// False when the file cannot be written.
[[nodiscard]] bool writePng(const std::filesystem::path& path, const RgbaPicture& picture);

}  // namespace grub
