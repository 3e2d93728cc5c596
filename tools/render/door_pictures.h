#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The exits of the three worlds: shut under a red lamp, then drawn up under a green one; and a gate without a use.
std::span<const PictureEntry> doorPictures();

}  // namespace grub
