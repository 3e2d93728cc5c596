#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The dog's strips. Walking and hanging face left.
std::span<const PictureEntry> dogPictures();

}  // namespace grub
