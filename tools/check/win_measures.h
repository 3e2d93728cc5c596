#pragma once

#include <array>
#include <functional>
#include <optional>

#include "recorded_game.h"
#include "world.h"

namespace grub {

/// Game frames by which the keys of a win come too late.
inline constexpr std::array kLateStarts{2, 4, 8, 16};
/// Other seeds that a win is tried with.
inline constexpr int kOtherSeeds = 8;

/// What a recorded win tells of its level. How a bot with a reaction delay fares is not among it: such a bot needs a
/// search for wins.
struct WinMeasures {
    int frames = 0;                                 ///< game frames until the win
    int digs = 0;                                   ///< floors that he breaks
    int cellsVisited = 0;                           ///< different cells
    std::optional<int> closestEnemy;                ///< pixels, the larger one of both axes; nothing without enemies
    std::array<bool, kLateStarts.size()> winsLate;  ///< with the same keys, each so much later
    int seedsWon = 0;                               ///< of kOtherSeeds, with the same keys
};

/// Plays keys until the attempt ends, or nothing more will come of them; `look` sees the world after each game frame.
/// Whether they win.
[[nodiscard]] bool watchWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts,
                            const std::function<void(const World&)>& look);

/// Plays a win on a map. Nothing when the keys do not win.
[[nodiscard]] std::optional<WinMeasures> measureWin(const RecordedGame& game, const LevelMap& map,
                                                    const AnimationFrameCounts& counts);

}  // namespace grub
