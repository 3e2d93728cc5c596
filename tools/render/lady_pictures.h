#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The lady's strips. Walking and hanging face left.
std::span<const PictureEntry> ladyPictures();

}  // namespace grub
