#pragma once

#include <vector>

#include "command.h"

namespace grub {

/// The commands of the folders of tools/, each defined in its folder. A command that fails writes one
/// line to standard error and throws CommandEnd, with exit code 1 if nothing else is said here.
[[nodiscard]] std::vector<Command> packCommands();
[[nodiscard]] std::vector<Command> levelCommands();
/// More of the group "level".
[[nodiscard]] std::vector<Command> checkCommands();
[[nodiscard]] std::vector<Command> bookCommands();
[[nodiscard]] std::vector<Command> renderCommands();
[[nodiscard]] std::vector<Command> pageCommands();
[[nodiscard]] std::vector<Command> synthCommands();
/// Exit code 2 when the game cannot be played.
[[nodiscard]] std::vector<Command> captureCommands();
/// Exit code 1 when a game differs, 2 when it cannot be played.
[[nodiscard]] std::vector<Command> playCommands();
/// Exit code 1 for a refused level, 2 for any other failure.
[[nodiscard]] std::vector<Command> traceCommands();
/// Exit code 1 when no win was found, 2 when the level cannot be played.
[[nodiscard]] std::vector<Command> solveCommands();

}  // namespace grub
