#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of jelezo, the iron works.
std::span<const StripDrawing> jelezoRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> jelezoWallStrips();

/// Floors, how they break and how they grow again.
std::span<const StripDrawing> jelezoFloorStrips();

/// What can be walked on and never dug.
std::span<const StripDrawing> jelezoSolidStrips();

/// Ladders and the pipes that Grub hangs from.
std::span<const StripDrawing> jelezoClimbingStrips();

/// The exits: shut under a red lamp, then drawn up under a green one; and a gate without a use.
std::span<const StripDrawing> jelezoDoorStrips();

/// Thin pipes that dress the walls; they change no rule.
std::span<const StripDrawing> jelezoWallPipeStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> jelezoDecorStrips();

}  // namespace grub
