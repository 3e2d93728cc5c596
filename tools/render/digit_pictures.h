#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The digits 0 to 9 of score and panel, one a picture.
std::span<const PictureEntry> digitPictures();

}  // namespace grub
