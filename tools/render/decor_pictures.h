#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What dresses the first world and changes no rule: windows, furniture, bones, cobwebs, dripping water.
std::span<const PictureEntry> decorPictures();

}  // namespace grub
