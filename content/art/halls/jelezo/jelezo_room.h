#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of jelezo, the iron works.
std::span<const StripDrawing> jelezoRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> jelezoWallStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> jelezoDecorStrips();

}  // namespace grub
