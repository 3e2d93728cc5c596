#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "level_file.h"
#include "map_cell.h"
#include "text_lines.h"

namespace grub {

/// The six things a level file says of one cell.
enum class Slot { Base, Layer2, Layer3, Layer4, Layer5, Object };

/// All slots, in the order of `Slot`.
inline constexpr std::array kAllSlots{Slot::Base, Slot::Layer2, Slot::Layer3, Slot::Layer4, Slot::Layer5, Slot::Object};

/// The words that begin a placement line of a level source, in the order of `Slot`.
inline constexpr std::array<std::string_view, kAllSlots.size()> kSlotWords{"base",   "layer2", "layer3",
                                                                           "layer4", "layer5", "object"};

/// Where a record keeps each slot, in the order of `Slot`.
inline constexpr std::array<std::uint16_t CellRecord::*, kAllSlots.size()> kSlotMembers{
    &CellRecord::base,   &CellRecord::layer2, &CellRecord::layer3,
    &CellRecord::layer4, &CellRecord::layer5, &CellRecord::code};

/// The word that begins a placement line for this slot.
[[nodiscard]] constexpr std::string_view wordOf(Slot slot) { return kSlotWords[static_cast<std::size_t>(slot)]; }

/// The value of a slot, to read or to change.
[[nodiscard]] inline std::uint16_t& valueIn(CellRecord& record, Slot slot) {
    return record.*kSlotMembers[static_cast<std::size_t>(slot)];
}
[[nodiscard]] inline std::uint16_t valueIn(const CellRecord& record, Slot slot) {
    return record.*kSlotMembers[static_cast<std::size_t>(slot)];
}

/// The place of a cell in the records of a level.
[[nodiscard]] inline std::size_t indexIn(const LevelFile& level, int column, int row) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(level.width) + static_cast<std::size_t>(column);
}

/// The record of a cell; column and row must lie inside the level.
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

/// Header bytes 0 to 19 and 21 to 23 mean nothing to the game; a source can set them.
inline constexpr std::size_t kFreeBytes = 23;
/// The place of a free byte in the header; the version byte lies between the two runs of free bytes.
[[nodiscard]] constexpr std::size_t freeByteOffset(std::size_t index) { return index < 20 ? index : index + 1; }

/// What a character of the playing field puts into its cell: a block family of the world and an object code (0 = none).
struct FieldCharacter {
    char character;
    std::string_view family;
    std::uint16_t object;
};

/// The word that places an object code.
struct ObjectName {
    std::string_view name;
    std::uint16_t code;
};

/// The characters that a level source can use without a legend.
inline constexpr std::array kFieldCharacters{
    FieldCharacter{'.', "wall", 0},
    FieldCharacter{'#', "floor", 0},
    FieldCharacter{'X', "solid", 0},
    FieldCharacter{'H', "ladder", 0},
    FieldCharacter{'h', "hidden", 0},
    FieldCharacter{'-', "pipe", 0},
    FieldCharacter{'E', "door", 0},
    FieldCharacter{'S', "spawn", 0},
    FieldCharacter{'@', "wall", object_code::kHero},
    FieldCharacter{'D', "wall", object_code::kDog},
    FieldCharacter{'R', "wall", object_code::kRat},
    FieldCharacter{'L', "wall", object_code::kLady},
    FieldCharacter{'k', "wall", object_code::kHangingKey},
    FieldCharacter{'+', "wall", object_code::kHeart},
};

/// The words of the lines that place objects; `key` hangs, `key2` stands.
inline constexpr std::array kObjectNames{
    ObjectName{"hero", object_code::kHero},
    ObjectName{"dog", object_code::kDog},
    ObjectName{"rat", object_code::kRat},
    ObjectName{"lady", object_code::kLady},
    ObjectName{"key", object_code::kHangingKey},
    ObjectName{"key2", object_code::kKey},
    ObjectName{"heart", object_code::kHeart},
    ObjectName{"longlamp", object_code::kLongLamp},
    ObjectName{"shortlamp", object_code::kShortLamp},
    ObjectName{"drops", object_code::kDrops},
    ObjectName{"torchleft", object_code::kTorchLeft},
    ObjectName{"torchright", object_code::kTorchRight},
};

/// The row of `kFieldCharacters` for a character; null if only a legend can give the character a meaning.
[[nodiscard]] const FieldCharacter* fieldCharacter(char character);

/// A block or object that a line below the playing field puts into a cell.
struct Placement {
    Slot slot = Slot::Base;
    std::string name;
    int column = 0;
    int row = 0;
    int line = 0;
};

/// A legend line: the block family that a character means in this level.
struct LegendEntry {
    std::string family;
    int line = 0;
};

/// A level source by its lines; the names in it are not looked up yet.
struct LevelSource {
    std::string title;  ///< for people; empty when the source has none
    std::string world;
    int worldLine = 0;
    /// Rows of the playing field, all of the same length; the first stands in line `fieldLine`.
    std::vector<std::string> field;
    int fieldLine = 0;
    std::map<char, LegendEntry> legend;
    std::vector<CellPosition> way;  ///< for the solver: cells that a win passes, in this order
    std::vector<Placement> placements;
    std::array<std::uint8_t, kFreeBytes> freeBytes{};
};

/// Takes a level source apart. Nothing when a line is wrong; then `error` is about the first such line.
[[nodiscard]] std::optional<LevelSource> parseLevelSource(std::string_view text, TextError& error);

}  // namespace grub
