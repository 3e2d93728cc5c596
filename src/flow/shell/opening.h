#pragma once

#include "kest_interface.h"

namespace grub {

class LevelScene;

/// What the program does behind its opening picture, a step in each drawn frame: it loads sounds and the pictures of
/// the menu, and lets the picture stand for a second.
class Opening {
public:
    /// The menu interface, the game interface, and the scene that keeps the volumes; all outlive the opening.
    Opening(KestInterface& menu, KestInterface& game, const LevelScene& level)
        : menu_(menu), game_(game), level_(level) {}

    /// Does the next step. `mayEnd`: the picture has stood long enough for the player. Returns true when all is done.
    bool step(bool mayEnd);

private:
    void prepare(int step);
    void startSound();

    KestInterface& menu_;
    KestInterface& game_;
    const LevelScene& level_;
    int step_ = 0;
};

}  // namespace grub
