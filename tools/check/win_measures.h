#pragma once

#include <array>
#include <functional>
#include <optional>

#include "recorded_game.h"
#include "win_way.h"
#include "world.h"

namespace grub {

/// Game frames by which the keys of a win come too late.
inline constexpr std::array kLateStarts{2, 4, 8, 16};
/// Other seeds that a win is tried with.
inline constexpr int kOtherSeeds = 8;

/// Game frames that slow players need before each new key: none, 0.2, 0.4 and 0.6 s.
inline constexpr std::array kReactionDelays{0, 5, 10, 15};
/// Game frames without an end after the last key event, until a run counts as lost.
inline constexpr int kPatience = 60 * 25;
/// Game frames, an hour, behind which key events come too late for a run.
inline constexpr int kLongestRun = 60 * 60 * 25;

/// What a recorded win tells of its level.
struct WinMeasures {
    WinWay way;
    int recordedWins = 1;  ///< recorded wins, each of another way

    int frames = 0;                                 ///< game frames until the win
    int digs = 0;                                   ///< floors that he breaks
    int cellsVisited = 0;                           ///< different cells
    std::optional<int> closestEnemy;                ///< pixels, the larger one of both axes; nothing without enemies
    std::array<bool, kLateStarts.size()> winsLate;  ///< with the same keys, each so much later
    int seedsWon = 0;                               ///< of kOtherSeeds, with the same keys
    std::array<bool, kReactionDelays.size()> winsSlowly;  ///< of a player who reacts so late, on any of the ways
};

/// Plays keys until the attempt ends, or nothing more will come of them; `look` sees the world after each game frame.
/// Whether they win.
[[nodiscard]] bool watchWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts,
                            const std::function<void(const World&)>& look);

/// Plays a win on a map. Nothing when the keys do not win.
[[nodiscard]] std::optional<WinMeasures> measureWin(const RecordedGame& game, const LevelMap& map,
                                                    const AnimationFrameCounts& counts);

}  // namespace grub
