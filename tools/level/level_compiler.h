#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "block_table.h"
#include "level_source.h"

namespace grub {

/// Compiles a level source to the bytes of a `.lvl` file of version 4. The same source and palette give the same bytes
/// on every machine. Nothing when the source is wrong or the game could not play the level; then `error` says why.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> compileLevel(std::string_view text, const BlockPalette& palette,
                                                                    TextError& error);

/// The middle step of compiling: gives each cell its blocks. It looks up the meaning of the cell's character, chooses
/// the picture that fits the neighbours (ends of floors and pipes, tops of ladders), a variant that depends on the
/// place alone and the shadow under floors; then the placement lines apply. Nothing when a character or a name has no
/// meaning; then `error` says which.
[[nodiscard]] std::optional<LevelFile> dressLevel(const LevelSource& source, const BlockPalette& palette,
                                                  TextError& error);

/// A block's name without world, shape and variant: "floor" for "turma.floor.left~2".
[[nodiscard]] std::string familyOf(std::string_view blockName);

/// The part of a block's name before its first dot; empty without a dot.
[[nodiscard]] std::string_view worldOf(std::string_view blockName);

/// Something wrong with a level, and the cell where it shows; no cell when something is missing.
struct LevelFault {
    std::optional<CellPosition> cell;
    std::string reason;  // one line
};

/// Where a fault stands in the source of its level: in the row of the cell, or in the line before the playing field.
[[nodiscard]] TextError faultInSource(const LevelFault& fault, const LevelSource& source);

/// What the game could not play in this level or a player would never see. A good level has one hero, a key and a door,
/// and no more of anything than the game holds. `grubtool level check` finds more.
[[nodiscard]] std::vector<LevelFault> levelFaults(const LevelFile& level, const BlockPalette& palette);

/// The way back: a source that compiles to the same cells and free bytes, if the compiler accepts the level. What the
/// compiler chooses by itself is not written out, so a compiled level comes back nearly as it was drawn; title, idea
/// and comments are not in the file.
[[nodiscard]] std::string showLevel(const LevelFile& level, const BlockPalette& palette);

}  // namespace grub
