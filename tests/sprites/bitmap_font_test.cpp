#include "bitmap_font.h"

#include <gtest/gtest.h>

#include <string>

#include "bmp_writer.h"
#include "fake_renderer.h"
#include "glyph_writer.h"

namespace grub {
namespace {

using Parts = std::vector<FakeRenderer::Part>;
constexpr std::int32_t kMost = 0x7FFFFFFF;

// "A" has a space before it, "B" and "C" reach into their neighbours.
const Bytes kTable = writeGlyphTable('A', 'C', 0x10007, {{2, 10, 3, 40, 5}, {-2, 10, -1, 60, 6}, {-3, 4, 1, 80, 7}});

BitmapFont fontOf(const Bytes& table) { return {bufferOf(writeBmp(1, 1, {1, 2, 3})), bufferOf(table), kWhite}; }

TEST(BitmapFont, PutsCellsWhereLeadAndAdvanceMoveThePen) {
    const struct {
        const char* what;
        EngineString text;
        Position from;
        Parts parts;
        bool isWhole;
    } kRows[] = {
        {"no lead at the start, width of what is seen", "A", {100, 50}, {{100, 50, 40, 5, 15, 7}}, true},
        {"b and c, then the next lead", "AB", {100, 50}, {{100, 50, 40, 5, 15, 7}, {111, 50, 60, 6, 10, 7}}, true},
        {"a lead of its own", "BA", {0, 0}, {{0, 0, 60, 6, 10, 7}, {11, 0, 40, 5, 15, 7}}, true},
        {"lines, one of them empty", "A\n\nB", {9, 1}, {{9, 1, 40, 5, 15, 7}, {9, 15, 60, 6, 10, 7}}, true},
        {"a foreign code ends all", "CD\nA", {1, 2}, {{1, 2, 80, 7, 5, 7}}, false},
        {"so does a CR", "C\r\nA", {1, 2}, {{1, 2, 80, 7, 5, 7}}, false},
        {"and a code above 127", "\xC0", {1, 2}, {}, false},
        {"the pen wraps", "AA", {32760, 0}, {{32760, 0, 40, 5, 15, 7}, {-32761, 0, 40, 5, 15, 7}}, true},
    };
    FakeRenderer renderer;
    BitmapFont font = fontOf(kTable);
    EXPECT_TRUE(font.drawText(renderer, "A", {}, 1.0F));
    EXPECT_TRUE(renderer.parts.empty()) << "it is not in use yet";
    ASSERT_TRUE(font.acquire());
    EXPECT_EQ(renderer.textures.at(0)->keys, std::vector{kWhite});
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        renderer.parts.clear();
        EXPECT_EQ(font.drawText(renderer, row.text, row.from, 0.5F), row.isWhole);
        EXPECT_EQ(renderer.parts, row.parts);
    }
    EXPECT_EQ(renderer.drawn.back().opacity, 0.5F);
}

TEST(GlyphTable, ReadsAsZeroEachFieldThatTheFileDoesNotHoldWhole) {
    for (std::size_t size = 0; size < kTable.size(); ++size) {
        const std::size_t fields = size < 2 ? size : size < 6 ? 2 : size - (size - 6) % 4;
        Bytes padded(kTable.begin(), kTable.begin() + static_cast<std::ptrdiff_t>(fields));
        padded.resize(kTable.size());
        const SharedBuffer cut = bufferOf(std::span(kTable).first(size));
        const GlyphTable table = readGlyphTable(cut.bytes());
        EXPECT_EQ(table.glyphs, readGlyphTable(padded).glyphs) << size;
        EXPECT_EQ(table.cellHeight, size < 6 ? 0 : 7) << size;
    }
    EXPECT_EQ(readGlyphTable(kTable).glyphs.size(), 3u);
}

TEST(GlyphTable, HasTheCodesThatItsTwoSignedBytesSay) {
    const std::vector<GlyphRecord> kAll(256, {0, 1, 0, 9, 9});
    const struct {
        int first;
        int last;
        std::string has;
        std::string lacks;
    } kRows[] = {
        {-128, 127, {'\x80', '\xFF', '\0', '\x7F'}, {}},
        {-64, -2, {'\xC0', '\xFE'}, {'\xBF', '\xFF', '\0', 'A'}},
        {'C', 'A', {}, {'A', 'B', 'C'}},
        {'A', 'A', {'A'}, {'@', 'B'}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.first);
        const GlyphTable table = readGlyphTable(writeGlyphTable(row.first, row.last, 1, kAll));
        for (const char code : row.has) EXPECT_TRUE(table.find(code) != nullptr && table.find(code)->cellX == 9);
        for (const char code : row.lacks) EXPECT_EQ(table.find(code), nullptr);
    }
}

TEST(GlyphTable, WrapsSumsOfHugeNumbers) {
    const GlyphTable table = readGlyphTable(writeGlyphTable('A', 'A', 1, {{kMost, kMost, kMost, 0x10001, 0xFFFFF}}));
    EXPECT_EQ(table.glyphs.at(0),
              (Glyph{.lead = kMost, .advance = -2, .cellX = 1, .cellY = 0xFFFF, .cellWidth = 0xFFFD}));
}

}  // namespace
}  // namespace grub
