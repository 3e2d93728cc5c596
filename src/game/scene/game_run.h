#pragma once

#include <optional>
#include <vector>

#include "level_map.h"
#include "rules.h"
#include "slot_file.h"
#include "world.h"

namespace grub {

/// One game on its way through the levels: what outlives an attempt.
struct GameRun {
    /// As it is between two attempts; while one is played, its world has the score and the lives.
    GameProgress current;
    /// As it was when the level was built, for the save slots: before the attempt took a life.
    GameProgress atLevelStart;
    /// Keys that stay taken when the level is tried again.
    std::vector<CellPosition> collectedKeys;

    /// A new game from a level on.
    void begin(int levelIndex) { resume(GameProgress{.levelIndex = levelIndex, .lives = kStartLives}); }
    /// Goes on with what a slot kept, or with the numbers as they are when the slot has turned out to be empty. The
    /// level is played from its beginning.
    void resume(const std::optional<GameProgress>& saved) {
        if (saved) current = *saved;
        collectedKeys.clear();
    }
    /// Takes from an attempt that is over what goes on to the next one.
    void takeFrom(const World& world) {
        current.score = world.score();
        current.lives = world.lives();
        collectedKeys.assign(world.collectedKeys().begin(), world.collectedKeys().end());
    }
};

}  // namespace grub
