#pragma once

#include "kest_interface.h"
#include "screen_transition.h"
#include "shell_mode.h"

namespace grub {

/// The pictures between the menu and play: the opening and the comics. Each fills the screen, comes behind tiles, stays
/// until a key or a mouse button is pressed, and goes behind tiles. The opening does not wait: it has work to do.
class PictureSequence {
public:
    /// The game interface holds the pictures; it must outlive the sequence, as `transition`, which draws the tiles,
    /// must.
    PictureSequence(KestInterface& game, ScreenTransition& transition) : game_(game), transition_(transition) {}

    /// The picture of a mode is about to come.
    void open(ShellMode mode);
    /// Draws the picture, with the tiles that come or go. Returns true when it has drawn no tiles.
    bool draw(ShellMode mode);
    /// The player presses something: the picture of a comic goes. Only the first press counts, since a held key is
    /// pressed again and again, and each press would bring the first tiles back.
    void press(ShellMode mode);
    /// Whether something has been pressed since the picture came, or since `forgetPress`.
    [[nodiscard]] bool isPressed() const { return pressed_; }
    void forgetPress() { pressed_ = false; }

private:
    KestInterface& game_;
    ScreenTransition& transition_;
    bool pressed_ = false;
};

}  // namespace grub
