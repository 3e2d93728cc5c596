#pragma once

#include <string>
#include <vector>

#include "level_map.h"
#include "pixel_image.h"
#include "resource_source.h"

namespace grub {

/// A level as one picture, 64 pixels a cell.
struct LevelPicture {
    PixelImage image;
    std::vector<std::string> missing;  ///< files of the loading list that the picture source lacks; they are not drawn
};

/// Draws a level as the game first shows it, by the game's own drawing. `pictures` knows the picture files by the names
/// of the loading list. Installs a renderer of its own for the time of the call.
[[nodiscard]] LevelPicture drawLevelPicture(const LevelMap& map, ResourceSource& pictures);

}  // namespace grub
