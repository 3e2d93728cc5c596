#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "page_source.h"
#include "pixel_image.h"

namespace grub {

/// A font as the game draws it: one picture with a cell for each code, and the table that says where the cells are.
struct FontFiles {
    PixelImage picture;
    std::vector<std::uint8_t> table;
};

/// Whether there is a font of that key.
bool isKnownFont(const FontKey& key);

/// Draws a known font.
FontFiles drawFont(const FontKey& key);

/// How many pixels wide the game writes a text; 0 for a font that is not known.
int writtenWidth(const FontKey& key, std::string_view text);
/// How high a line of it is.
int writtenHeight(const FontKey& key);

}  // namespace grub
