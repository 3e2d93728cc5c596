#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Grub's strips once more, inside a glass bubble: what is shown while he has a shield. Each has as many pictures as
/// his own of the same number.
std::span<const PictureEntry> shieldPictures();

}  // namespace grub
