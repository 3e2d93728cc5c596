#pragma once

#include <string>

#include "block_palette.h"
#include "level_slots.h"

namespace grub {

/// A level as a source that compiles to the same cells and free bytes, if the compiler takes the level at all. What the
/// compiler would choose by itself is not written out, so a level that was compiled comes back nearly as it was drawn;
/// title, idea and comments are not in the file.
[[nodiscard]] std::string showLevel(const LevelFile& level, const BlockPalette& palette);

}  // namespace grub
