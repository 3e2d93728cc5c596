#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine_string.h"
#include "picture.h"

namespace grub {

/// Where a character lies in the font's image and how far it moves the pen, in pixels.
struct Glyph {
    std::int32_t lead = 0;     ///< moves the pen before the glyph, but not at the start of a line; may be negative
    std::int32_t advance = 0;  ///< moves the pen behind the glyph
    std::uint16_t cellX = 0;
    std::uint16_t cellY = 0;
    std::uint16_t cellWidth = 0;

    friend bool operator==(const Glyph&, const Glyph&) = default;
};

/// The glyphs of a font by character code. Codes are signed bytes: those from 128 up are the negative ones.
struct GlyphTable {
    std::int8_t first = 0;
    std::int8_t last = 0;  ///< below `first` in a table without glyphs
    std::uint16_t cellHeight = 0;
    std::vector<Glyph> glyphs;  ///< for the codes `first` to `last`

    /// Null for a code that the table does not have.
    [[nodiscard]] const Glyph* find(char character) const;
};

/// Bytes of a glyph table before its records, and of a record.
inline constexpr std::size_t kGlyphTableHeader = 6;
inline constexpr std::size_t kGlyphRecordSize = 20;

/// Reads a glyph table. A field that the bytes do not hold whole is 0.
[[nodiscard]] GlyphTable readGlyphTable(std::span<const std::uint8_t> bytes);

/// Draws text with the glyphs of one image. For one thread at a time.
class BitmapFont {
public:
    /// `image` is the encoded image of all glyphs, in which `colourKey` is transparent; `glyphTable` is the file beside
    /// it. Damaged files give a font that lacks glyphs or shows nothing.
    BitmapFont(const SharedBuffer& image, const SharedBuffer& glyphTable, Colour colourKey);

    /// Count the uses of the image, as a picture does. Text shows only while the font is in use.
    bool acquire() { return picture_.acquire(); }
    bool release() { return picture_.release(); }

    /// Draws `text` with the top-left corner of its first glyph at `position`; an LF starts the next line below.
    /// Returns false at the first character that the font does not have; what stands before it is drawn.
    bool drawText(Renderer& renderer, const EngineString& text, Position position, float opacity) const;

    [[nodiscard]] const GlyphTable& table() const { return table_; }

private:
    void drawGlyph(Renderer& renderer, const Glyph& glyph, Position pen, float opacity) const;

    Picture picture_;
    GlyphTable table_;
};

}  // namespace grub
