#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Torches, lamps, the light that they throw on the wall and the shadow below floors.
std::span<const PictureEntry> lightPictures();

}  // namespace grub
