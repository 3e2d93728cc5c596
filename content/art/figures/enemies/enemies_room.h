#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of the enemies. Strips with a mirrored twin in the game face left.
std::span<const StripDrawing> enemiesRoom();

// Its tables; each function stands in the file of its own name.

std::span<const StripDrawing> dogStrips();
std::span<const StripDrawing> ladyStrips();
std::span<const StripDrawing> ratStrips();

}  // namespace grub
