#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of the enemies. Strips with a mirrored twin in the game face left.
std::span<const StripDrawing> enemiesRoom();

// Its tables; each function stands in the file of its own name.

/// The dog walks, climbs, hangs, falls, is trapped in a hole and escapes from it.
std::span<const StripDrawing> dogStrips();
/// The lady, as the dog.
std::span<const StripDrawing> ladyStrips();
/// The rat runs, falls into a hole and leaps out of it.
std::span<const StripDrawing> ratStrips();

}  // namespace grub
