#pragma once

#include <string>
#include <string_view>

#include "board.h"
#include "font.h"

namespace grub {

/// What letters are drawn with.
enum class Ink {
    /// Dark letters, flat; cut in where the board is gold or light wood.
    Dark,
    /// Light letters, slightly raised.
    Cream,
    /// Plump gold letters with light and shade: titles.
    Golden
};

/// Words in a picture. '|' begins a new line. A key in brackets, such as "[Enter]" or "[Left]", becomes a cap on the
/// line.
struct Words {
    /// Where they may lie, in design pixels; they stand in the middle of its height.
    Rect area = {};
    Face face = Face::Body;
    /// An em, in design pixels.
    double size = 20;
    Align align = Align::Centre;
    Ink ink = Ink::Dark;
    /// What they stand on.
    BoardKind board = BoardKind::Paper;
    std::string_view text;
    /// They run on from line to line as wide as the area, and begin at its top. Such words hold no caps.
    bool flowing = false;
};

/// Whether words fit. They are drawn whole in any case.
struct Fit {
    /// Design pixels by which the longest line is too long, and all lines together too high; 0 when they fit. On
    /// captions and in balloons 8 px on either side and 4 px above and below must stay free.
    double tooWide = 0;
    double tooHigh = 0;
    /// Letters that the typeface does not have.
    std::string missing;

    bool good() const { return tooWide <= 0 && tooHigh <= 0 && missing.empty(); }
    /// Takes over what is worse in the other.
    void add(const Fit& other);
};

/// Draws the words alone.
[[nodiscard]] Fit drawWords(Canvas& canvas, const Words& words);

/// Draws a board that is as large as the words' area, and the words on it: captions and balloons. `speaker` is where a
/// balloon's tail ends.
[[nodiscard]] Fit drawSign(Canvas& canvas, const Words& words, std::optional<Point> speaker = std::nullopt);

}  // namespace grub
