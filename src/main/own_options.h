#pragma once

#include <optional>
#include <string>

#include "run_game.h"

namespace grub {

/// What our own options ask for, taken out of the program's arguments; the rest is the game's command line.
struct OwnOptions {
    /// Directory of the packages; empty: where they are usually found.
    std::string dataDirectory;
    /// Script to play instead of a player at the keyboard; empty: none.
    std::string scriptFile;
    /// Recorded game to play in the player's place, and the first of its frames to show; empty: none.
    std::string replayFile;
    int showFrom = 0;
    /// Recorded game to write; empty: none.
    std::string recordFile;
    PlayStart start;
    /// The arguments that are not ours, joined by blanks, without the program's name.
    std::string commandLine;
    /// Set when the program shall end at once with this code: all is said (help, version) or the options are wrong.
    std::optional<int> exitCode;
};

/// Reads the options. Help and version go to standard output, a complaint of one line to standard error (exit code 2).
[[nodiscard]] OwnOptions readOwnOptions(int argc, const char* const* argv);

}  // namespace grub
