#pragma once

#include <optional>
#include <string>

namespace grub {

class Steering;

/// Where play begins. Makers of levels and tests change it; the usual start, with the menu, is the default.
struct PlayStart {
    /// Whether play begins at once and ends the program, without the menu.
    bool withoutMenu = false;
    /// Place in the level list, 0 to 49.
    int levelIndex = 0;
    /// The level in that place: a name of the list or a level file. Empty: the list's own.
    std::string level;
    /// Start of the random numbers. Without it the time of day.
    std::optional<unsigned> seed;
    /// Stands between the player's keys and the world, and must outlive the game. Null: the keys pass unchanged.
    Steering* steering = nullptr;
};

/// What the program's arguments ask for. An empty string is an option that was not given.
struct OwnOptions {
    /// Directory that holds the packages. Empty: the game finds them by itself.
    std::string dataDirectory;
    /// Script that plays instead of a player at the keyboard.
    std::string scriptFile;
    /// Recorded game that plays in place of the player, and the first of its game frames to show.
    std::string replayFile;
    int showFrom = 0;
    /// File in which an attempt is recorded.
    std::string recordFile;
    PlayStart start;
    /// The command line that the game reads: the words that belong to no option, with blanks between them. Each holds a
    /// capital F, the wish for the full screen; `--full-screen` adds one.
    std::string commandLine;
    /// Set when the program has to end at once with this code: help or version is printed, or the usage is wrong.
    std::optional<int> exitCode;
};

/// Reads the arguments. Help and version go to standard output. Wrong usage, an unknown word too, is one line on
/// standard error and exit code 2.
[[nodiscard]] OwnOptions readOwnOptions(int argc, const char* const* argv);

}  // namespace grub
