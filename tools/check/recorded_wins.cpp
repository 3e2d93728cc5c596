#include "recorded_wins.h"

#include <array>
#include <cstddef>
#include <utility>

#include "game_text.h"

namespace grub {

namespace {

/// A slow player may take either way.
void addSecond(WinMeasures& first, const WinMeasures& second) {
    first.recordedWins = 2;
    for (std::size_t i = 0; i < first.winsSlowly.size(); ++i)
        first.winsSlowly[i] = first.winsSlowly[i] || second.winsSlowly[i];
}

}  // namespace

std::optional<RecordedWins> openWins(const std::filesystem::path& source, const CheckedLevel& level,
                                     std::string& error) {
    constexpr std::array kExtensions{".game", ".second.game"};
    RecordedWins wins;
    for (const char* const extension : kExtensions) {
        const std::filesystem::path path = std::filesystem::path(source).replace_extension(extension);
        if (!std::filesystem::exists(path)) break;
        auto game = loadGame(path.string(), error);
        if (!game) return std::nullopt;
        auto measures = measureWin(*game, level.map, level.counts);
        error = path.string() + ": its keys do not win the level";
        if (!measures) return std::nullopt;
        error = path.string() + ": takes the same keys in the same order as the first win, and digs the same cells";
        if (wins.measures && isSameWay(wins.measures->way, measures->way)) return std::nullopt;
        wins.games.push_back(std::move(*game));
        if (wins.measures)
            addSecond(*wins.measures, *measures);
        else
            wins.measures = std::move(measures);
    }
    return wins;
}

}  // namespace grub
