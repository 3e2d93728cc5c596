#pragma once

#include <vector>

#include "level_map.h"
#include "rules.h"
#include "save_slots.h"
#include "world.h"

namespace grub {

/// One game on its way through the levels: what outlives an attempt.
struct GameRun {
    /// As it is between two attempts; while one is played, its world has the score and the lives.
    SavedGame now;
    /// As it was when the level was built, for the save slots: before the attempt took a life.
    SavedGame atLevelStart;
    /// Stay taken when the level is tried again.
    std::vector<CellPosition> collectedKeys;

    /// A new game from a level on.
    void begin(int levelIndex) { resume(SavedGame{.levelIndex = levelIndex, .lives = kStartLives}); }
    /// Goes on with what a slot kept; nothing keeps the numbers as they are. The level is played from its beginning.
    void resume(const std::optional<SavedGame>& saved) {
        if (saved) now = *saved;
        collectedKeys.clear();
    }
    /// Takes from an attempt that is over what goes on to the next one.
    void takeFrom(const World& world) {
        now.score = world.score();
        now.lives = world.lives();
        collectedKeys.assign(world.collectedKeys().begin(), world.collectedKeys().end());
    }
};

}  // namespace grub
