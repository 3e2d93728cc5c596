#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "level_slots.h"
#include "object_code.h"
#include "rules.h"
#include "text_lines.h"

namespace grub {

/// What a character of the playing field puts into its cell: a block family of the world and an object code (0 = none).
struct FieldCharacter {
    char character;
    std::string_view family;
    std::uint16_t object;
};

/// A named object code.
struct ObjectName {
    std::string_view name;
    std::uint16_t code;
};

/// What every level source may draw without a legend.
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

/// The row of `kFieldCharacters` for a character; null if a level has to say in its legend what it means.
[[nodiscard]] const FieldCharacter* fieldCharacter(char character);

/// One thing that a line below the playing field puts into a cell.
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

/// A level source, taken apart but not yet understood.
struct LevelSource {
    std::string world;
    int worldLine = 0;
    /// Rows of the playing field, all of the same length; the first stands in line `fieldLine`.
    std::vector<std::string> field;
    int fieldLine = 0;
    std::map<char, LegendEntry> legend;
    std::vector<Placement> placements;
    std::array<std::uint8_t, kFreeBytes> freeBytes{};
};

/// Takes a level source apart; empty and `error` filled at the first line that is none.
[[nodiscard]] std::optional<LevelSource> parseLevelSource(std::string_view text, TextError& error);

}  // namespace grub
