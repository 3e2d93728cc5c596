#include "level_check.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include "game_text.h"
#include "world.h"

namespace grub {

namespace {

void checkLimits(const CheckedLevel& level, Faults& faults) {
    std::ranges::move(levelFaults(level.file, level.palette), std::back_inserter(faults));
}

/// All checks. Rows of unequal length and unknown words, characters and names are found before: without those nothing
/// else can be said of a level.
constexpr void (*kChecks[])(const CheckedLevel&, Faults&) = {
    checkLimits,         // sizes, heroes, doors, keys, objects, enemies, spawn points, half hidden cells
    checkTypes,          // a cell behaves as it is drawn
    checkPictures,       // every picture is there, floors break and grow back
    checkLadderColumns,  // a ladder that goes on in the next column
    checkLadderTops,     // a ladder that leads nowhere
    checkRatCages,       // a rat without room
    checkRatCorridors,   // a rat that cannot be passed
    checkKeysAndDoor,    // what cannot be reached
    checkPrisons,        // where an attempt can neither be won nor lost
    checkFirstFrame,     // an attempt that is over before it begins
};

}  // namespace

void checkFirstFrame(const CheckedLevel& level, Faults& faults) {
    World world(level.map, {}, level.counts);
    world.step();  // settles the level
    if (!world.ended()) {
        world.finishFrame(true);
        world.step();
    }
    if (world.ended())
        addFault(faults, level.map.heroStart(),
                 "the attempt ends in its first game frame: " + std::string(nameOf(world.cause())));
}

void addFault(Faults& faults, CellPosition cell, std::string reason) { faults.push_back({cell, std::move(reason)}); }

std::vector<LevelFault> faultsOf(const CheckedLevel& level) {
    Faults faults;
    for (const auto check : kChecks) check(level, faults);
    std::ranges::stable_sort(faults, {}, [](const LevelFault& fault) {
        const CellPosition cell = fault.cell.value_or(CellPosition{-1, -1});
        return std::tuple(cell.y, cell.x);
    });
    return faults;
}

}  // namespace grub
