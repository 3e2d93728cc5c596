#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What stands and hangs about in the cellar.
std::span<const PictureEntry> cellarPictures();

}  // namespace grub
