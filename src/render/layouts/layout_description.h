#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text_lines.h"

namespace grub {

/// What a description may hold; the reader ignores records beyond it.
inline constexpr std::size_t kMostLayouts = 50;
inline constexpr std::size_t kMostItems = 50;     ///< in a layout
inline constexpr std::size_t kMostElements = 50;  ///< of pictures in an item, and as many of texts
inline constexpr std::size_t kMostFonts = 3;      ///< in a description

/// What an interface shows of a description; the rest stays out.
inline constexpr std::size_t kMostAnimations = 200;  ///< different files
/// Cells of a grid. Patches of 8 x 8 pixels on the whole screen are fewer; without this limit, a damaged grid of
/// 32767 x 32767 cells with a step of 0 or 1 would take minutes.
inline constexpr int kMostCells = 10'000;

/// A picture of an item, drawn once or on a grid. Numbers are screen pixels unless they are counts.
struct PictureElement {
    std::string name;         ///< of the element, for hit tests
    std::string file;         ///< in the interface's package
    std::int16_t x = 0;       ///< of the top-left corner
    std::int16_t y = 0;       ///< as x
    std::int16_t w = 0;       ///< of the whole file
    std::uint16_t h = 0;      ///< of the whole file, with all frames: a strip may have 65,535 rows
    std::int16_t frames = 0;  ///< that the file has, one below the other; 0 counts as 1
    std::int16_t cols = 0;    ///< of the grid; a grid without columns or rows shows nothing
    std::int16_t rows = 0;
    std::int16_t step = 0;  ///< from a cell of the grid to the next one, right and down

    /// Height of one frame.
    [[nodiscard]] std::uint16_t frameHeight() const { return static_cast<std::uint16_t>(frames > 1 ? h / frames : h); }
};

/// A text of an item.
struct TextElement {
    std::int16_t x = 0;    ///< of the top-left corner of the first glyph, in screen pixels
    std::int16_t y = 0;    ///< as x
    std::size_t font = 0;  ///< index in `LayoutDescription::fontKeys`
    std::string text;
};

/// A group of elements that is drawn under one name.
struct LayoutItem {
    std::string name;
    std::vector<PictureElement> pictures;
    std::vector<TextElement> texts;
};

/// A page, a dialog or a picture that fills the screen.
struct Layout {
    std::string name;
    std::vector<LayoutItem> items;
};

/// All layouts of an interface, in the order of the file.
struct LayoutDescription {
    std::vector<Layout> layouts;
    /// File stems of the fonts, in the order in which texts first name them. A font that finds no place counts as the
    /// first one.
    std::vector<std::string> fontKeys;
};

/// Reads a description: a record a line, whose fields commas separate. Damage costs only what it touches: an unknown or
/// surplus record and an element without an item are left out, a missing field is 0 or empty, a number that its
/// type does not hold is the nearest one that it does. Appends to `faults`, if given, the first fault of each bad line.
[[nodiscard]] LayoutDescription readLayoutDescription(std::string_view text, std::vector<TextError>* faults = nullptr);

}  // namespace grub
