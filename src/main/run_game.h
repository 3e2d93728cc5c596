#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace grub {

/// Where play begins, for whoever tries out a level.
struct PlayStart {
    /// Place in the level list, 0 to 49.
    int levelIndex = 0;
    /// A level file that takes that place; empty: the list's own.
    std::string levelFile;
    /// Start of the random numbers; without it the time of day.
    std::optional<unsigned> seed;
};

/// The game from start to end: opens the window, runs the scenes, returns 0 (or ends the process with 1 when there is
/// no renderer). Once in a process: the scenes live until it ends. `commandLine` holds the arguments without the
/// program's name; the previous instance and the show flag are not used.
int runGame(HINSTANCE instance, HINSTANCE previousInstance, const char* commandLine, int showFlag,
            const PlayStart& start = {});

}  // namespace grub
