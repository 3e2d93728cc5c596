#pragma once

#include "words.h"

namespace grub {

/// What a button tells by its looks.
enum class ButtonState {
    /// A plank with cream letters.
    Idle,
    /// Light wood; an arrow is hollow.
    OnItsWay,
    /// A gold plate, its letters pressed in by 2 px.
    Chosen
};

/// A board to choose. Ink and board of the words follow from the state.
struct Button {
    Rect area = {};
    ButtonState state = ButtonState::Idle;
    /// Arrow or Spoon: shown unless the button is idle. A board on its way has a hollow arrow and no spoon.
    Mark mark = Mark::None;
    Words words;
    /// Held down by the mouse: its letters too stand 2 px lower.
    bool held = false;
    /// Length of the spoon.
    double spoon = 36;
};

/// Draws the board, its nails and mark, and the words; says whether they fit.
[[nodiscard]] Fit drawButton(Canvas& canvas, const Button& button);

}  // namespace grub
