#pragma once

#include "level_map.h"
#include "picture_book.h"

namespace grub {

/// A level as the game draws it before anything moves: every cell of the map, hero and enemies in their places, 64
/// pixels a cell. Cells whose pictures the book does not have are shown in a plain colour for each block type.
[[nodiscard]] RgbaPicture drawLevel(const LevelMap& map, PictureBook& book);

}  // namespace grub
