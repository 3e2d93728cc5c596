#pragma once

#include "level_map.h"

namespace grub {

/// The cells of a row between which a rat runs to and fro.
struct RatRun {
    int row = 0;
    int left = 0;  // columns, both included
    int right = 0;
};

/// Where a rat runs that starts in this cell: it falls to the first support, then turns at what stops it.
[[nodiscard]] RatRun ratRunFrom(const LevelMap& map, CellPosition start);

}  // namespace grub
