#include "bitmap_font.h"

#include <algorithm>

#include "byte_reader.h"

namespace grub {
namespace {

/// Sums of numbers from a file wrap.
std::int32_t wrappedSum(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

/// A record holds the space before the glyph (a), its visible width (b) and the space behind it (c).
Glyph readGlyph(ByteReader& reader) {
    const std::int32_t a = reader.i32();
    const std::int32_t b = reader.i32();
    const std::int32_t c = reader.i32();
    Glyph glyph{.lead = a, .advance = wrappedSum(b, c)};
    glyph.cellX = static_cast<std::uint16_t>(reader.u32());
    glyph.cellY = static_cast<std::uint16_t>(reader.u32());
    glyph.cellWidth = static_cast<std::uint16_t>(wrappedSum(wrappedSum(std::max(a, 0), b), std::max(c, 0)));
    return glyph;
}

/// The pen has 16 bits and wraps as well.
std::int16_t moved(std::int16_t pen, std::int32_t pixels) { return static_cast<std::int16_t>(wrappedSum(pen, pixels)); }

}  // namespace

GlyphTable readGlyphTable(std::span<const std::uint8_t> bytes) {
    ByteReader reader(bytes);
    GlyphTable table;
    table.first = reader.i8();
    table.last = reader.i8();
    table.cellHeight = static_cast<std::uint16_t>(reader.u32());
    table.glyphs.resize(static_cast<std::size_t>(std::max(table.last - table.first + 1, 0)));
    for (Glyph& glyph : table.glyphs) glyph = readGlyph(reader);
    return table;
}

const Glyph* GlyphTable::find(char character) const {
    const auto code = static_cast<std::int8_t>(character);
    if (code < first || code > last) return nullptr;
    return &glyphs[static_cast<std::size_t>(code - first)];
}

BitmapFont::BitmapFont(const SharedBuffer& image, const SharedBuffer& glyphTable, Colour colourKey)
    : picture_(image), table_(readGlyphTable(glyphTable.bytes())) {
    picture_.setColourKey(colourKey);
}

bool BitmapFont::drawText(Renderer& renderer, const EngineString& text, Position position, float opacity) const {
    Position pen = position;
    bool isFirstOnLine = true;
    for (const char character : text.view()) {
        if (character == '\n') {
            pen = {position.x, moved(pen.y, table_.cellHeight)};
            isFirstOnLine = true;
            continue;
        }
        const Glyph* const glyph = table_.find(character);
        if (glyph == nullptr) return false;
        if (!isFirstOnLine) pen.x = moved(pen.x, glyph->lead);
        isFirstOnLine = false;
        drawGlyph(renderer, *glyph, pen, opacity);
        pen.x = moved(pen.x, glyph->advance);
    }
    return true;
}

void BitmapFont::drawGlyph(Renderer& renderer, const Glyph& glyph, Position pen, float opacity) const {
    const Texture* const texture = picture_.texture();
    if (texture == nullptr) return;
    renderer.drawPart(pen.x, pen.y, *texture, static_cast<std::int16_t>(glyph.cellX),
                      static_cast<std::int16_t>(glyph.cellY), glyph.cellWidth, table_.cellHeight, opacity);
}

}  // namespace grub
