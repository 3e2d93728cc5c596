#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of Grub. Strips with a mirrored twin in the game face left.
std::span<const StripDrawing> grubRoom();

// Its tables; each function stands in the file of its own name.

/// Grub walks, climbs, falls, hangs, digs, stands, and looks at the player.
std::span<const StripDrawing> grubStrips();

/// Grub's strips once more, inside a glass bubble: what is shown while he has a shield. Each has as many frames as his
/// own strip of the same number.
std::span<const StripDrawing> shieldStrips();

}  // namespace grub
