#include "rat_run.h"

namespace grub {

namespace {

bool runsInto(const LevelMap& map, int x, int y) {
    return map.isPassable(x, y, View::Physical) && map.canStand(x, y, View::Planned);
}

}  // namespace

RatRun ratRunFrom(const LevelMap& map, CellPosition start) {
    int y = start.y;
    // A rat does not hold on to a ladder, but stands on one.
    while (map.isPassable(start.x, y + 1, View::Physical) && map.cellAt(start.x, y + 1).type != BlockType::Ladder &&
           !map.isPipe(start.x, y))
        ++y;
    RatRun run{y, start.x, start.x};
    while (runsInto(map, run.left - 1, y)) --run.left;
    while (runsInto(map, run.right + 1, y)) ++run.right;
    return run;
}

}  // namespace grub
