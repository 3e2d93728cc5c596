#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "block_palette.h"
#include "level_slots.h"
#include "level_source.h"

namespace grub {

/// Gives the cells of a level source their blocks: the meaning of each character, the picture that fits its neighbours
/// (ends of floors and pipes, tops of ladders), variants that depend on the place alone, the shadow under floors, and
/// then what the placement lines say. The same source and palette give the same level everywhere.
/// Empty, and `error` filled, when a character or a name means nothing.
[[nodiscard]] std::optional<LevelFile> dressLevel(const LevelSource& source, const BlockPalette& palette,
                                                  TextError& error);

/// A block's name without world, shape and variant: "floor" for "turma.floor.left~2".
[[nodiscard]] std::string familyOf(std::string_view blockName);

/// What stands before the first dot of a block's name; empty without a dot.
[[nodiscard]] std::string_view worldOf(std::string_view blockName);

}  // namespace grub
