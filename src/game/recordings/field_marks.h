#pragma once

#include <string>
#include <vector>

#include "level_map.h"
#include "world.h"

namespace grub {

/// Something on the field that comes, goes or moves, as a character in a cell:
///
///     _ open hole   k key   0 to 5 bonus, the number of its kind   d l r dog, lady, rat; D L R one in a hole   @ Grub
struct FieldMark {
    char symbol = ' ';
    CellPosition cell;

    friend bool operator==(const FieldMark&, const FieldMark&) = default;
};

/// Every character that a mark may have.
inline constexpr std::string_view kMarkSymbols = "_k012345dlrDLR@";

/// The marks of a world in the order in which they cover each other. The dead are not on the field.
[[nodiscard]] std::vector<FieldMark> marksOf(const World& world);

/// The field as a drawing, a text for each row: what stands still comes from `map`, the rest from `marks`.
///
///     . nothing   # solid   = floor to dig   H ladder   h hidden ladder   - pipe   E exit   s spawn point   ? other
[[nodiscard]] std::vector<std::string> drawField(const LevelMap& map, const std::vector<FieldMark>& marks);

}  // namespace grub
