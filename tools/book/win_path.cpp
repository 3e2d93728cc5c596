#include "win_path.h"

#include <algorithm>
#include <iterator>

#include "rules.h"
#include "win_measures.h"

namespace grub {

namespace {

Point centreOf(int x, int y) { return {x + kCellSize / 2.0, y + kCellSize / 2.0}; }
Point centreOfCell(CellPosition cell) { return centreOf(cell.x * kCellSize, cell.y * kCellSize); }

}  // namespace

WinPath pathOfWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts) {
    WinPath path;
    path.places.push_back(centreOfCell(map.heroStart()));
    WayWatcher watcher;
    const auto look = [&](const World& world) {
        path.places.push_back(centreOf(world.hero().x, world.hero().y));
        watcher.look(world);
    };
    (void)watchWin(game, map, counts, look);
    std::ranges::transform(watcher.way().digs, std::back_inserter(path.digs), centreOfCell);
    std::ranges::transform(watcher.way().keys, std::back_inserter(path.keys), centreOfCell);
    return path;
}

}  // namespace grub
