#pragma once

#include <optional>
#include <string>

#include "recorded_game.h"

namespace grub {

/// Reads a recorded game. Nothing, and one line in `error` that begins with the path, when it cannot be read.
[[nodiscard]] std::optional<RecordedGame> loadGame(const std::string& path, std::string& error);

/// The file of a game's level, whose path is relative to that of the game; nothing for a name of the level list.
[[nodiscard]] std::optional<std::string> levelFileOf(const RecordedGame& game, const std::string& gamePath);

}  // namespace grub
