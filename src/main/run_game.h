#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace grub {

class Steering;

/// Where play begins, for whoever tries out a level.
struct PlayStart {
    /// Place in the level list, 0 to 49.
    int levelIndex = 0;
    /// The level that takes that place, a name of the list or a level file; empty: the list's own.
    std::string level;
    /// Start of the random numbers; without it the time of day.
    std::optional<unsigned> seed;
    /// Who comes between the player's keys and the world, until the game is over; null: nobody.
    Steering* steering = nullptr;
};

/// The game from start to end: opens the window, runs the scenes, returns 0 (or ends the process with 1 when there is
/// no renderer). Once in a process: the scenes live until it ends. `commandLine` holds the arguments without the
/// program's name; the previous instance and the show flag are not used.
int runGame(HINSTANCE instance, HINSTANCE previousInstance, const char* commandLine, int showFlag,
            const PlayStart& start = {});

}  // namespace grub
