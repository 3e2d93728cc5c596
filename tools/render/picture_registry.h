#pragma once

#include <string_view>
#include <vector>

#include "picture_entry.h"

namespace grub {

/// Every picture that can be drawn, in a fixed order.
const std::vector<PictureEntry>& allPictures();

/// The picture of that name, or null.
const PictureEntry* findPicture(std::string_view name);

}  // namespace grub
