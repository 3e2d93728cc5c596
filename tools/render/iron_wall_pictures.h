#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The walls of the iron works: plates that fill the cell and join without seams.
std::span<const PictureEntry> ironWallPictures();

}  // namespace grub
