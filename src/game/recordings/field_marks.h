#pragma once

#include <string>
#include <vector>

#include "level_map.h"
#include "world.h"

namespace grub {

/// Something on the field that comes, goes or moves, as a character in a cell:
///
///     _ open hole   k key   d l r dog, lady, rat; D L R one in a hole   @ Grub
///     bonuses: I invisibility   K skull   A anchor   B bomb   S shield   + heart
struct FieldMark {
    char symbol = ' ';
    CellPosition cell;

    friend bool operator==(const FieldMark&, const FieldMark&) = default;
};

/// Every character that a mark may have.
inline constexpr std::string_view kMarkSymbols = "_kIKABS+dlrDLR@";

/// The marks of a world in the order in which they cover each other. The dead are not on the field.
[[nodiscard]] std::vector<FieldMark> marksOf(const World& world);

/// The field as a drawing, a text for each row: what stands still comes from `map`, the rest from `marks`.
///
///     . nothing   # solid   = floor to dig   H ladder   h hidden ladder   - pipe   E exit   s spawn point   ? other
[[nodiscard]] std::vector<std::string> drawField(const LevelMap& map, const std::vector<FieldMark>& marks);

}  // namespace grub
