#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Cables on the walls: a single one for every world, a pair for the iron works.
std::span<const PictureEntry> wirePictures();

}  // namespace grub
