#pragma once

#include <functional>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "canvas.h"
#include "line_reader.h"
#include "words.h"

namespace grub {

/// A frame of a picture while its lines are drawn, in pixels of the screen.
struct Painting {
    Canvas& canvas;
    int frame = 0;
    /// Panels that are open, the innermost last.
    std::list<Canvas::Group> panels;
    std::vector<Rect> frames;
    /// How the words of the last line fit.
    Fit fit;
};

/// What a line draws. It does nothing when the line was wrong.
using Draw = std::function<void(Painting&)>;

/// Words that are part of a picture.
struct BakedWords {
    /// All but the text, which is `text`; "{frame}" in it is the number of the frame.
    Words look;
    std::string text;
    /// Where a balloon's tail ends.
    std::optional<Point> speaker;
};

/// A line of a picture.
struct Drawing {
    LinePlace place;
    std::string verb;
    Draw draw;
    /// Of a line that writes.
    std::optional<BakedWords> words;
    /// The innermost panel that the line stands in.
    std::optional<Rect> panel;
};

/// A kind of line.
struct DrawingKind {
    std::string_view name;
    /// Reads what follows the name of the file.
    Draw (*read)(LineReader& line);
};

// All kinds, by what they draw.

/// Walls, light, grounds and panels.
std::span<const DrawingKind> sceneKinds();
/// Figures, heads, props, and frames of strips.
std::span<const DrawingKind> figureKinds();
/// Boards, words and controls.
std::span<const DrawingKind> boardKinds();

/// Reads what follows the name of the file in a line that writes.
BakedWords readBakedWords(LineReader& line);

/// The kind of that name, or null.
const DrawingKind* findDrawingKind(std::string_view name);

}  // namespace grub
