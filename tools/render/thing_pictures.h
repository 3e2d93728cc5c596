#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What the play is about: the keys.
std::span<const PictureEntry> thingPictures();

}  // namespace grub
