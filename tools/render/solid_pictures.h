#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What can be walked on and never dug, in the three worlds.
std::span<const PictureEntry> solidPictures();

}  // namespace grub
