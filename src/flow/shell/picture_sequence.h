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
    /// Draws a drawn frame of the picture. Returns true while no tiles lie over it.
    bool draw(ShellMode mode);
    /// The player presses something: the picture of a comic goes. The first press counts; a held key, which is pressed
    /// again and again, must not begin its going anew.
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
