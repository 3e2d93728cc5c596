#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "animation_frames.h"
#include "block_table.h"
#include "level_compiler.h"
#include "level_file.h"
#include "level_map.h"
#include "level_source.h"
#include "text_lines.h"

namespace grub {

/// A level in all the forms that checks look at.
struct CheckedLevel {
    LevelSource source;
    LevelFile file;
    BlockPalette palette;
    LevelMap map;                 ///< as the game builds it, before its first game frame
    AnimationFrameCounts counts;  ///< frames of the pictures; 0 for a picture that is missing
};

/// Takes a source apart and builds its map. Nothing when the source cannot be read or the game refuses the level; then
/// `errors` says why: the first line that cannot be read, or all that the game cannot play. A level that only the
/// compiler refuses comes through: the checks tell of all its faults.
[[nodiscard]] std::optional<CheckedLevel> openForChecks(std::string_view text, TableSource& table,
                                                        const AnimationFrameCounts& counts,
                                                        std::vector<TextError>& errors);

/// Calls `action(cell)` for the position of each cell of a map, row by row.
template <class Action>
void eachCellOf(const LevelMap& map, Action action) {
    for (int y = 0; y < map.height(); ++y)
        for (int x = 0; x < map.width(); ++x) action(CellPosition{x, y});
}

}  // namespace grub
