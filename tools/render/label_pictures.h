#pragma once

#include <span>
#include <vector>

#include "picture_entry.h"

namespace grub {

/// Pictures for the files of the game's loading list that are not among `drawn`: flat tiles with the file's name and
/// each picture's number on them, so that a package is complete before everything has been drawn.
std::vector<PictureEntry> labelsBeside(std::span<const PictureEntry> drawn);

/// Whether a picture is only a label.
bool isLabel(const PictureEntry& entry);

}  // namespace grub
