#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

#include "vector_path.h"

namespace grub {

/// The codes that a typeface holds: all that the game's texts and its bitmap fonts use.
inline constexpr char kFirstCode = 32;
inline constexpr char kLastCode = 126;
inline constexpr std::size_t kCodes = kLastCode - kFirstCode + 1;

/// One letter in ems: 1 is the size of the text. The pen stands at (0, 0) on the baseline, y points down.
struct GlyphOutline {
    /// Unhinted; holes run the other way round than what is around them.
    VectorPath outline;
    /// From this pen to the next one.
    double advance = 0;
    /// The outline lies exactly between these; all are 0 for a space. The widths a, b and c of a bitmap font are
    /// `left`, `right - left` and `advance - right`.
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// The letters of one font file, read once; after that it is data only, which any thread may read.
class Typeface {
public:
    /// Reads an OpenType or TrueType file. When the file cannot be read, `fault` says why and every glyph is missing.
    explicit Typeface(const std::filesystem::path& file);

    /// One line that names the file, or empty when all went well.
    const std::string& fault() const { return fault_; }
    /// Null for a code outside kFirstCode to kLastCode, and for one that the font does not have.
    const GlyphOutline* glyph(char code) const;
    /// What the font adds between the pens of two neighbours, in ems; mostly negative. Only the table "kern" counts.
    double kerning(char left, char right) const;

    /// Heights above the baseline and depth below it, in ems: of the line, of the letter H and of the letter x.
    double ascent() const { return ascent_; }
    double descent() const { return descent_; }
    double capHeight() const { return heightOf('H'); }
    double xHeight() const { return heightOf('x'); }

private:
    double heightOf(char code) const;

    struct Entry {
        bool present = false;
        GlyphOutline glyph;
        std::array<float, kCodes> kerning{};  // before each code
    };
    std::array<Entry, kCodes> entries_;
    double ascent_ = 0;
    double descent_ = 0;
    std::string fault_;
};

/// The two hands that the game writes with.
enum class Face {
    /// Dosis ExtraBold: titles, buttons, digits.
    Display,
    /// Comic Neue Bold: everything that is read as a sentence.
    Body
};

/// The typeface from the file that the build found, read when it is first asked for. Any thread may ask.
const Typeface& typeface(Face face);

}  // namespace grub
