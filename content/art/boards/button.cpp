#include "button.h"

namespace grub {

namespace {

/// By how much letters are pressed in.
constexpr double kPress = 2;

struct Look {
    BoardKind board;
    Ink ink;
};

Look lookOf(ButtonState state) {
    switch (state) {
        case ButtonState::Idle: return {BoardKind::Plank, Ink::Cream};
        case ButtonState::OnItsWay: return {BoardKind::Tan, Ink::Dark};
        case ButtonState::Chosen: return {BoardKind::Gold, Ink::Dark};
    }
    return {};
}

Mark markOf(const Button& button) {
    switch (button.state) {
        case ButtonState::Idle: return Mark::None;
        case ButtonState::OnItsWay: return button.mark == Mark::Arrow ? Mark::HollowArrow : Mark::None;
        case ButtonState::Chosen: return button.mark;
    }
    return Mark::None;
}

}  // namespace

Fit drawButton(Canvas& canvas, const Button& button) {
    const Look look = lookOf(button.state);
    drawBoard(canvas, {look.board, button.area, Fastening::Nails, markOf(button), button.spoon});
    Words words = button.words;
    words.board = look.board;
    words.ink = look.ink;
    if (button.held || button.state == ButtonState::Chosen) words.area = words.area.moved({0, kPress});
    return drawWords(canvas, words);
}

}  // namespace grub
