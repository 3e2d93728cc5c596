#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "checked_level.h"
#include "recorded_game.h"
#include "win_measures.h"

namespace grub {

/// The recorded wins of a level. The first is the one that its idea means; a second may show that there is another way.
struct RecordedWins {
    std::vector<RecordedGame> games;      ///< none, one or two
    std::optional<WinMeasures> measures;  ///< of the first; there when it is
};

/// Opens NAME.game and NAME.second.game beside a source NAME.txt; a file that is not there is no fault. Nothing when a
/// file is bad or does not win, or when the second win takes the way of the first; then `error` is one line.
[[nodiscard]] std::optional<RecordedWins> openWins(const std::filesystem::path& source, const CheckedLevel& level,
                                                   std::string& error);

}  // namespace grub
