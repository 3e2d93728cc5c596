#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Floors, how they break and grow again, and the blocks that cannot be dug.
std::span<const PictureEntry> floorPictures();

}  // namespace grub
