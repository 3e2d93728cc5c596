#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The six things that appear for a while and change the rules: gold-rimmed, afloat.
std::span<const PictureEntry> bonusPictures();

}  // namespace grub
