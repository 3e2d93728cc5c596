#pragma once

#include <string>
#include <vector>

#include "checked_level.h"

namespace grub {

/// Everything that is wrong with a level, in the order of its cells; what is missing comes first.
[[nodiscard]] std::vector<LevelFault> faultsOf(const CheckedLevel& level);

/// What checks add to.
using Faults = std::vector<LevelFault>;

/// Adds a fault that shows at a cell.
void addFault(Faults& faults, CellPosition cell, std::string reason);

/// The checks, each of which adds the faults that it finds. `level_check.cpp` lists them.
/// Blocks and pictures.
void checkTypes(const CheckedLevel& level, Faults& faults);
void checkPictures(const CheckedLevel& level, Faults& faults);
/// Ladders.
void checkLadderColumns(const CheckedLevel& level, Faults& faults);
void checkLadderTops(const CheckedLevel& level, Faults& faults);
/// Rats.
void checkRatCages(const CheckedLevel& level, Faults& faults);
void checkRatCorridors(const CheckedLevel& level, Faults& faults);
/// Ways of the hero.
void checkKeysAndDoor(const CheckedLevel& level, Faults& faults);
void checkPrisons(const CheckedLevel& level, Faults& faults);
/// Play.
void checkFirstFrame(const CheckedLevel& level, Faults& faults);

}  // namespace grub
