#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "recorded_game.h"
#include "text_lines.h"

namespace grub {

/// The name of a cause in recorded games: Dog Lady Rat Pit Won Quit. A game that was left to load another was quit.
[[nodiscard]] std::string_view nameOf(LossCause cause);

/// Reads the text of a recorded game (docs/formats/games.md). Returns nothing, and fills `error`, when a line is wrong
/// or missing. A draft, which lacks the end or all states, is a game too.
[[nodiscard]] std::optional<RecordedGame> readGame(std::string_view text, TextError& error);
/// The text of a game, without comments; reads back as the same game.
[[nodiscard]] std::string writeGame(const RecordedGame& game);

/// The text of a game without its states and its end; the end of a game that the player left stays.
[[nodiscard]] std::string draftOf(std::string_view text);
/// The same text, comments and all, with the states and the end of `game` in place of its own. Keys behind that end are
/// left out: a game that has them cannot be read.
[[nodiscard]] std::string withOutcome(std::string_view text, const RecordedGame& game);

/// Reads the file of a recorded game. When it cannot be read: nothing, and one line in `error` that begins with the
/// path.
[[nodiscard]] std::optional<RecordedGame> loadGame(const std::string& path, std::string& error);

/// The file of a game's level, whose path is relative to that of the game; nothing for a name of the level list.
[[nodiscard]] std::optional<std::string> levelFileOf(const RecordedGame& game, const std::string& gamePath);

}  // namespace grub
