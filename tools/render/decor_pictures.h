#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// What dresses the first world and changes no rule: lights, furniture, bones, cobwebs, the shadow under floors.
std::span<const PictureEntry> decorPictures();

}  // namespace grub
