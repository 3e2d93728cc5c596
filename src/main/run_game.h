#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace grub {

class Steering;

/// Where play begins. Makers of levels and tests change it; the usual start is the default.
struct PlayStart {
    /// Place in the level list, 0 to 49.
    int levelIndex = 0;
    /// The level in that place: a name of the list or a level file. Empty: the list's own.
    std::string level;
    /// Start of the random numbers. Without it the time of day.
    std::optional<unsigned> seed;
    /// Stands between the player's keys and the world, and must outlive the game. Null: the keys pass unchanged.
    Steering* steering = nullptr;
};

/// The game from start to end: opens the window, runs the scenes and returns 0, or 1 when a level could not be started
/// (or ends the process with 1 when the renderer cannot start). Call it once in a process: the scenes live until its
/// end. `commandLine` holds the game's words without the program's name. The previous instance and the show flag have
/// no effect.
int runGame(HINSTANCE instance, HINSTANCE previousInstance, const char* commandLine, int showFlag,
            const PlayStart& start = {});

}  // namespace grub
