#pragma once

#include <string>
#include <vector>

#include "block_palette.h"
#include "level_slots.h"

namespace grub {

/// What the game could not play in this level, or what a player would never see of it, as "wanted ..., found ...";
/// empty when all is well. A level that passes has a hero, a key, a door, and no more of anything than the game holds.
[[nodiscard]] std::string levelFault(const LevelFile& level, const BlockPalette& palette);

/// What can be played but is hardly meant, a line each: a rat that is shut in turns into the wall and dies there.
[[nodiscard]] std::vector<std::string> levelWarnings(const LevelFile& level, const BlockPalette& palette);

}  // namespace grub
