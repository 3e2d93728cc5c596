#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The walls of the cellar: field stones that fill the cell and join without seams in any mixture.
std::span<const PictureEntry> cellarWallPictures();

}  // namespace grub
