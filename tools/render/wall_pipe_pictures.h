#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Thin pipes that dress the walls of the three worlds; nobody can hang on them.
std::span<const PictureEntry> wallPipePictures();

}  // namespace grub
