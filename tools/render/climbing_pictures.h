#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// Ladders and the pipes that are hung from. Rungs lie at y 8 of every 16 rows; the axis of a pipe lies at y 10.
std::span<const PictureEntry> climbingPictures();

}  // namespace grub
