#pragma once

#include <string_view>
#include <vector>

#include "picture_entry.h"

namespace grub {

/// Every picture, in a fixed order: those with a drawing, then a label for every other file of the loading list.
const std::vector<PictureEntry>& allPictures();

/// The picture of that name, or null.
const PictureEntry* findPicture(std::string_view name);

}  // namespace grub
