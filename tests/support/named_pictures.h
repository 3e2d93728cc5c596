#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "bmp_writer.h"
#include "fake_renderer.h"

namespace grub {

/// A picture of 2 pixels width, whose frames of `frameHeight` pixels each have a letter for a colour.
[[nodiscard]] inline Bytes pictureOf(std::string_view letters, unsigned frameHeight) {
    Bytes rgb;
    for (const char letter : letters)
        rgb.insert(rgb.end(), std::size_t{frameHeight} * 2 * 3, static_cast<std::uint8_t>(letter));
    return writeBmp(2, static_cast<unsigned>(letters.size()) * frameHeight, rgb);
}

/// The letter of a texture that `pictureOf` made.
[[nodiscard]] inline char letterOf(const Texture& texture) {
    return static_cast<char>(static_cast<const FakeTexture&>(texture).uploadedRgb.at(0));
}

/// Everything that was drawn since the last call, as "a10,20 b30,40": letter and top-left corner.
[[nodiscard]] inline std::string takeDrawn(FakeRenderer& renderer) {
    std::string line;
    for (const auto& drawn : std::exchange(renderer.drawn, {})) {
        line += (line.empty() ? "" : " ") + std::string(1, letterOf(*drawn.texture)) + std::to_string(drawn.x) + "," +
                std::to_string(drawn.y);
    }
    return line;
}

}  // namespace grub
