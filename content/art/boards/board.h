#pragma once

#include <optional>

#include "canvas.h"

namespace grub {

/// What words stand on.
enum class BoardKind {
    /// Dark wood: a button at rest.
    Plank,
    /// A gold plate with an ink frame: what is chosen.
    Gold,
    /// Light wood: a button on its way, a slot.
    Tan,
    /// A notice.
    Paper,
    /// A strip that names keys.
    Hint,
    /// A strap that tells the story, or asks for a key.
    Caption,
    /// What a figure says.
    Balloon,
    /// A cell for one sign of a name.
    Slate,
    /// A shallow box that holds buttons.
    Tray,
    /// No board: the words hang on the wall or stand in the night sky.
    Wall,
    Night
};

/// What holds a board. Chains come down from the top of the page.
enum class Fastening { None, Nails, Rings, Chains };

/// What tells a board from its neighbours without colour: arrow-heads at its right edge, a spoon at its left one.
enum class Mark { None, Arrow, HollowArrow, Spoon };

/// A board without words. The board, its line and its shadow lie inside `area`; chains and the tail of a balloon do
/// not.
struct Board {
    BoardKind kind = BoardKind::Plank;
    Rect area = {};
    Fastening fastening = Fastening::None;
    Mark mark = Mark::None;
    /// Length of the spoon; it begins 7 px from the left edge.
    double spoon = 36;
    /// Where a balloon's tail ends.
    std::optional<Point> speaker = std::nullopt;
};

/// Planks and notices differ from place to place: grain, edges and stains follow from where the board lies.
void drawBoard(Canvas& canvas, const Board& board);

}  // namespace grub
