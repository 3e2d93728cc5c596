#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What the play is about: keys and the doors that they open.
std::span<const PictureEntry> thingPictures();

}  // namespace grub
