// Rats that die at once, and rats that cannot be passed.

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "level_check.h"
#include "rat_run.h"
#include "relaxed_ways.h"

namespace grub {

namespace {

/// Whether the hero can be out of a rat's way here: on a ladder, or above until he drops in.
bool isStool(const LevelMap& map, const CellSet& reached, int x, int y) {
    const bool above = map.contains(x, y - 1) && reached.has({x, y - 1});
    return above || map.isPassable(x, y + 1, View::Physical);
}

/// The columns of a run, and those just beyond its ends, where the hero can step aside.
std::vector<int> stoolsOf(const LevelMap& map, const CellSet& reached, const RatRun& run) {
    std::vector<int> stools;
    for (int x = run.left; x <= run.right; ++x)
        if (isStool(map, reached, x, run.row)) stools.push_back(x);
    for (const int x : {run.left - 1, run.right + 1})
        if (map.isPassable(x, run.row, View::Physical)) stools.push_back(x);
    return stools;
}

bool hasFloorToDig(const LevelMap& map, const RatRun& run) {
    for (int x = run.left; x <= run.right; ++x)
        if (map.isDiggable(x, run.row + 1)) return true;
    return false;
}

/// Whether the hero can fetch a key and leave while the rat is elsewhere. With a stool at either side he runs through
/// behind the rat. Else he lets the rat by at a stool, and must be back before it has gone to its other end and come
/// back: it takes twice as long for a cell.
bool canFetch(const RatRun& run, const std::vector<int>& stools, int key) {
    const auto [first, last] = std::ranges::minmax(stools);
    if (first <= key && key <= last) return true;
    const int stool = key < first ? first : last;
    const int lure = key < first ? run.right - stool : stool - run.left;
    return 2 * lure >= std::abs(key - stool);
}

}  // namespace

void checkRatCages(const CheckedLevel& level, Faults& faults) {
    for (const LevelObject& object : level.map.objects()) {
        if (object.code != object_code::kRat) continue;
        const RatRun run = ratRunFrom(level.map, {object.x, object.y});
        if (run.left == run.right)
            addFault(faults, {object.x, object.y}, "the rat has no room: it turns into the wall and dies");
    }
}

void checkRatCorridors(const CheckedLevel& level, Faults& faults) {
    const LevelMap& map = level.map;
    const CellPosition start = map.heroStart();
    const CellSet reached = reachableFrom(map, {&start, 1}, {.digs = true});
    for (const LevelObject& object : map.objects()) {
        if (object.code != object_code::kRat) continue;
        const RatRun run = ratRunFrom(map, {object.x, object.y});
        if (hasFloorToDig(map, run)) continue;
        const std::vector<int> stools = stoolsOf(map, reached, run);
        for (int x = run.left; x <= run.right; ++x)
            if (map.cellAt(x, run.row).keyPresent && (stools.empty() || !canFetch(run, stools, x)))
                addFault(faults, CellPosition{x, run.row},
                         "a key in a dead end without a floor to dig: the rat that runs here cannot be passed");
    }
}

}  // namespace grub
