#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What stands and hangs about in the iron works.
std::span<const PictureEntry> worksPictures();

}  // namespace grub
