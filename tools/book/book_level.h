#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "checked_level.h"
#include "recorded_game.h"
#include "win_measures.h"

namespace grub {

/// A level of the game's list, with the recorded wins beside its source.
struct BookLevel {
    std::size_t index;  ///< in the level list
    CheckedLevel level;
    std::vector<RecordedGame> games;  ///< its recorded wins, as in RecordedWins
    std::optional<WinMeasures> win;
};

/// Opens the levels whose sources lie in `folder`, in the order of the level list. Nothing when a source or a game is
/// wrong, or no source is there; then `error` is one line that says why.
[[nodiscard]] std::optional<std::vector<BookLevel>> openBook(const std::string& folder,
                                                             const AnimationFrameCounts& counts, std::string& error);

}  // namespace grub
