#pragma once

#include <vector>

#include "level_map.h"
#include "recorded_game.h"
#include "vector_path.h"
#include "world.h"

namespace grub {

/// What a win looks like on the map, in pixels of the level. All places are centres.
struct WinPath {
    std::vector<Point> places;  ///< of the hero, game frame by game frame, from his start on
    std::vector<Point> digs;    ///< of the cells that he digs, in order
    std::vector<Point> keys;    ///< of the cells whose keys he takes, in order
};

/// Plays a win and notes its way.
[[nodiscard]] WinPath pathOfWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts);

}  // namespace grub
