#pragma once

#include <span>

#include "picture_entry.h"

namespace grub {

/// The rat's strips, all facing left. The two for holes are 4 pictures long, since the rat covers only half a cell in
/// them.
std::span<const PictureEntry> ratPictures();

}  // namespace grub
