#pragma once

#include "dialog_slide.h"
#include "enemy_traits.h"
#include "kest_interface.h"

namespace grub {

/// The picture that tells how an attempt ended, and the board over it that says that the game is over. One for each
/// cause by which the rules end an attempt.
class EndPicture {
public:
    /// Plays the sound of an end. `cause` is none of Quit and Load, here and below.
    static void playSound(LossCause cause);

    /// Chooses the picture of an end and loads it.
    void open(LossCause cause, KestInterface& pages);
    /// Sends the board down; it is drawn from now on.
    void dropBoard();
    /// A game frame of the board's way down.
    void stepBoard() { slide_.step(); }
    void draw(KestInterface& pages) const;

private:
    LossCause cause_ = LossCause::Won;
    DialogSlide slide_;
    bool hasBoard_ = false;
};

}  // namespace grub
