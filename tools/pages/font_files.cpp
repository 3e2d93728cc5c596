#include "font_files.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "board_looks.h"
#include "font.h"
#include "strip.h"

namespace grub {

namespace {

/// A font that the texts of pages can name.
struct GameFont {
    std::string_view key;
    Face face;
    double size;
    Rgb ink;
    /// Height of a cell, and of a line.
    int height;
    /// Width of the cells of digits and the space, of all codes, or 0: then a cell is as wide as its letter needs.
    int digitCell;
    int cell;
};

constexpr std::array kFonts{
    //       key            face           em  ink          line digits all
    GameFont{"body_24_0", Face::Body, 24, kBoardInk, 30, 0, 0},
    GameFont{"small_18_0", Face::Body, 18, kBoardInk, 23, 11, 0},
    GameFont{"name_34_48", Face::Display, 34, kBoardCream, 43, 0, 48},
};

const GameFont* find(const FontKey& key) {
    const std::string text = key.text();
    const auto* found = std::ranges::find(kFonts, text, &GameFont::key);
    return found == kFonts.end() ? nullptr : found;
}

/// Widths of a letter in whole pixels: free room before it, the letter, free room behind it.
struct Widths {
    int a;
    int b;
    int c;
    /// From the left end of the letter to its pen.
    double pen;

    int cell() const { return std::max(a, 0) + b + std::max(c, 0); }
};

Widths widthsOf(const GameFont& font, char code) {
    const GlyphOutline* glyph = typeface(font.face).glyph(code);
    if (glyph == nullptr) return {0, 0, 0, 0};
    const bool digit = (code >= '0' && code <= '9') || code == ' ';
    const int fixed = digit && font.digitCell > 0 ? font.digitCell : font.cell;
    const double left = glyph->left * font.size;
    const double right = glyph->right * font.size;
    if (fixed > 0) return {0, fixed, 0, (fixed - (right - left)) / 2 - left};
    const int a = static_cast<int>(std::floor(left));
    const int end = static_cast<int>(std::ceil(right));
    return {a, end - a, static_cast<int>(std::lround(glyph->advance * font.size)) - end, -1.0 * a};
}

/// Letters stand so that capitals are in the middle of the line.
double baselineOf(const GameFont& font) {
    return std::round((font.height + Font(font.face, font.size).capHeight()) / 2);
}

/// Cells side by side, in rows of this width, with a clear column and row between them.
constexpr int kPictureWidth = 512;
constexpr int kGap = 2;

struct Place {
    int x;
    int y;
};

std::vector<Place> placesOf(const GameFont& font, int& height) {
    std::vector<Place> places;
    Place next{0, 0};
    for (char code = kFirstCode; code <= kLastCode; ++code) {
        const int width = widthsOf(font, code).cell();
        if (next.x + width > kPictureWidth) next = {0, next.y + font.height + kGap};
        places.push_back(next);
        next.x += width + kGap;
    }
    height = next.y + font.height;
    return places;
}

void append(std::vector<std::uint8_t>& bytes, int value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<std::uint8_t>(bits >> shift));
}

}  // namespace

bool isKnownFont(const FontKey& key) { return find(key) != nullptr; }

FontFiles drawFont(const FontKey& key) {
    const GameFont& font = *find(key);
    int height = 0;
    const std::vector<Place> places = placesOf(font, height);
    FontFiles files;
    files.table = {static_cast<std::uint8_t>(kFirstCode), static_cast<std::uint8_t>(kLastCode)};
    append(files.table, font.height);
    Canvas canvas(kPictureWidth, height);
    const Font letters(font.face, font.size);
    for (std::size_t i = 0; i < kCodes; ++i) {
        const char code = static_cast<char>(kFirstCode + static_cast<int>(i));
        const Widths widths = widthsOf(font, code);
        const Point pen{places[i].x + widths.pen, places[i].y + baselineOf(font)};
        canvas.flat(letters.line(std::string_view(&code, 1), pen), font.ink);
        for (const int value : {widths.a, widths.b, widths.c, places[i].x, places[i].y}) append(files.table, value);
    }
    files.picture = canvas.picture();
    spreadColours(files.picture);
    return files;
}

int writtenWidth(const FontKey& key, std::string_view text) {
    const GameFont* font = find(key);
    if (font == nullptr) return 0;
    int width = 0;
    bool first = true;
    for (const char code : text) {
        const Widths widths = widthsOf(*font, code);
        width += (first ? 0 : widths.a) + widths.b + widths.c;
        first = false;
    }
    return width;
}

int writtenHeight(const FontKey& key) {
    const GameFont* font = find(key);
    return font == nullptr ? 0 : font->height;
}

}  // namespace grub
