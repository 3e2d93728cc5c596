#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The walls behind the play: they join in any mixture, since every stone that reaches beyond its cell is the same in
/// all.
std::span<const PictureEntry> wallPictures();

}  // namespace grub
