// What the hero can never reach, and where he can be for ever.

#include <algorithm>
#include <iterator>
#include <vector>

#include "enemy_traits.h"
#include "level_check.h"
#include "rat_run.h"
#include "relaxed_ways.h"

namespace grub {

namespace {

std::vector<CellPosition> cellsWhere(const LevelMap& map, bool (*isWanted)(const MapCell&)) {
    std::vector<CellPosition> cells;
    eachCellOf(map, [&](CellPosition at) {
        if (isWanted(map.cellAt(at.x, at.y))) cells.push_back(at);
    });
    return cells;
}

std::vector<CellPosition> keysOf(const LevelMap& map) {
    return cellsWhere(map, [](const MapCell& cell) { return cell.keyPresent; });
}

std::vector<CellPosition> doorsOf(const LevelMap& map) {
    return cellsWhere(map, [](const MapCell& cell) { return cell.isExit; });
}

bool hasAny(const CellSet& set, const std::vector<CellPosition>& cells) {
    return std::ranges::any_of(cells, [&](CellPosition cell) { return set.has(cell); });
}

/// Where hunters are and where they may come back: at the spawn points, without those in the top row.
std::vector<CellPosition> huntersOf(const LevelMap& map) {
    std::vector<CellPosition> places;
    for (const LevelObject& object : map.objects())
        if (isEnemy(object.code) && object.code != object_code::kRat) places.push_back({object.x, object.y});
    if (places.empty()) return places;
    std::ranges::copy(map.spawnPoints(), std::back_inserter(places));
    for (int x = 0; map.spawnPoints().empty() && x < map.width(); ++x)
        if (map.isPassable(x, 0, View::Physical)) places.push_back({x, 0});
    return places;
}

/// Where an attempt can be lost: enemies walk there, or a hole can be dug and closes again.
CellSet placesToLose(const LevelMap& map) {
    CellSet places = reachableFrom(map, huntersOf(map), {});
    for (const LevelObject& object : map.objects()) {
        if (object.code != object_code::kRat) continue;
        const RatRun run = ratRunFrom(map, {object.x, object.y});
        for (int x = run.left; x <= run.right; ++x) places.add({x, run.row});
    }
    eachCellOf(map, [&](CellPosition at) {
        if (map.cellAt(at.x, at.y).type == BlockType::Floor || canDigFrom(map, at)) places.add(at);
    });
    return places;
}

/// Whether the attempt can be won by walking on from here: every key lies on the way here or can still be fetched, and
/// then a door.
bool canWinFrom(const LevelMap& map, CellPosition cell, const CellSet& ahead) {
    for (const CellPosition key : keysOf(map)) {
        if (ahead.has(key)) continue;
        const CellPosition start = map.heroStart();
        if (reachableFrom(map, {&start, 1}, {.digs = true, .avoiding = key}).has(cell)) return false;
    }
    return hasAny(reachableFrom(map, {&cell, 1}, {.isOpen = true}), doorsOf(map));
}

}  // namespace

void checkKeysAndDoor(const CheckedLevel& level, Faults& faults) {
    const LevelMap& map = level.map;
    const CellPosition start = map.heroStart();
    const CellSet shut = reachableFrom(map, {&start, 1}, {.digs = true});
    for (const CellPosition key : keysOf(map))
        if (!shut.has(key)) addFault(faults, key, "Grub can reach this key by no way");
    const std::vector<CellPosition> doors = doorsOf(map);
    const CellSet open = reachableFrom(map, {&start, 1}, {.digs = true, .isOpen = true});
    if (!doors.empty() && !hasAny(open, doors))
        addFault(faults, doors.front(), "Grub can reach the door by no way, not even up the ladders that appear");
}

void checkPrisons(const CheckedLevel& level, Faults& faults) {
    const LevelMap& map = level.map;
    const CellPosition start = map.heroStart();
    const CellSet reached = reachableFrom(map, {&start, 1}, {.digs = true});
    const CellSet losing = leadingInto(map, placesToLose(map));
    CellSet looked(map);
    eachCellOf(map, [&](CellPosition at) {
        if (!reached.has(at) || losing.has(at) || looked.has(at)) return;
        const CellSet ahead = reachableFrom(map, {&at, 1}, {});
        eachCellOf(map, [&](CellPosition cell) {
            if (ahead.has(cell)) looked.add(cell);
        });
        if (!canWinFrom(map, at, ahead))
            addFault(faults, at,
                     "Grub may be shut in here and can neither win nor lose: no enemy comes, no floor to dig");
    });
}

}  // namespace grub
