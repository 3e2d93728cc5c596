#pragma once

#include <string>

#include "block_palette.h"
#include "level_slots.h"

namespace grub {

/// What the game could not play in this level, or what a player would never see of it, as "wanted ..., found ...";
/// empty when all is well. A level that passes has a hero, a key, a door, and no more of anything than the game holds.
[[nodiscard]] std::string levelFault(const LevelFile& level, const BlockPalette& palette);

}  // namespace grub
