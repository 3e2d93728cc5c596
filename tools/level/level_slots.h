#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "level_file.h"

namespace grub {

/// The six things a level file says of one cell.
enum class Slot { Base, Layer2, Layer3, Layer4, Layer5, Object };

/// For loops over a cell; in the order of `Slot`, so that a place in here is the value.
inline constexpr std::array kAllSlots{Slot::Base, Slot::Layer2, Slot::Layer3, Slot::Layer4, Slot::Layer5, Slot::Object};

/// The words that begin the lines of a level source which fill these slots, in the order of `Slot`.
inline constexpr std::array<std::string_view, kAllSlots.size()> kSlotWords{"base",   "layer2", "layer3",
                                                                           "layer4", "layer5", "object"};

/// Where a record keeps each slot, in the order of `Slot`.
inline constexpr std::array<std::uint16_t CellRecord::*, kAllSlots.size()> kSlotMembers{
    &CellRecord::base,   &CellRecord::layer2, &CellRecord::layer3,
    &CellRecord::layer4, &CellRecord::layer5, &CellRecord::code};

/// The word for a slot.
[[nodiscard]] constexpr std::string_view wordOf(Slot slot) { return kSlotWords[static_cast<std::size_t>(slot)]; }

/// What a record has in a slot.
[[nodiscard]] inline std::uint16_t& valueIn(CellRecord& record, Slot slot) {
    return record.*kSlotMembers[static_cast<std::size_t>(slot)];
}
[[nodiscard]] inline std::uint16_t valueIn(const CellRecord& record, Slot slot) {
    return record.*kSlotMembers[static_cast<std::size_t>(slot)];
}

/// Where the records of a level have the cell of a column and row.
[[nodiscard]] inline std::size_t indexIn(const LevelFile& level, int column, int row) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(level.width) + static_cast<std::size_t>(column);
}

/// The record of a column and row that lie inside the level.
[[nodiscard]] inline CellRecord& recordAt(LevelFile& level, int column, int row) {
    return level.records[indexIn(level, column, row)];
}
[[nodiscard]] inline const CellRecord& recordAt(const LevelFile& level, int column, int row) {
    return level.records[indexIn(level, column, row)];
}

/// A level of empty cells.
[[nodiscard]] inline LevelFile emptyLevel(int columns, int rows) {
    LevelFile level;
    level.width = columns;
    level.height = rows;
    level.records.resize(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    return level;
}

/// Header bytes 0 to 19 and 21 to 23 have no meaning for the game; a source may give them all the same.
inline constexpr std::size_t kFreeBytes = 23;
/// Where in the header free byte number `index` lies: the version byte stands between the two runs.
[[nodiscard]] constexpr std::size_t freeByteOffset(std::size_t index) { return index < 20 ? index : index + 1; }

}  // namespace grub
