#pragma once

#include <string>
#include <vector>

#include "book_level.h"
#include "pixel_image.h"
#include "win_path.h"

namespace grub {

/// Levels of a contact sheet.
inline constexpr std::size_t kHallsOfASheet = 9;

/// The page of one level: its hall at half size, under it the title and a line of measures. `picture` has 64 pixels a
/// cell.
[[nodiscard]] PixelImage drawPage(const BookLevel& entry, const PixelImage& picture, const WinPath& path);

/// The level as a tile of a contact sheet, with number and title.
[[nodiscard]] PixelImage drawTile(const BookLevel& entry, const PixelImage& picture, const WinPath& path);

/// Tiles in rows of three.
[[nodiscard]] PixelImage drawSheet(const std::vector<PixelImage>& tiles);

}  // namespace grub
