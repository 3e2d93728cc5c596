#pragma once

#include "level_writer.h"

namespace grub {

/// A house to hunt in: storeys four rows apart over the whole width, and between two of them one ladder for each
/// thirty columns. Grub starts in the middle, hunters (dogs and ladies) stand spread over all storeys, and a key in the
/// roof keeps the level open.
[[nodiscard]] Drawing house(int columns, int rows, int hunters);

/// Floors every second row, with a ladder through them every fourth column: ways meet again everywhere.
[[nodiscard]] Drawing floorsAndLadders(int size);

/// Nothing but ladders: the worst for a depth-first fill, since every cell leads to all four neighbours. With hunters
/// in the corners.
[[nodiscard]] Drawing onlyLadders(int size, int hunters);

}  // namespace grub
