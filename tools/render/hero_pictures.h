#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Grub's strips. All face left, as the files do.
std::span<const PictureEntry> heroPictures();

}  // namespace grub
