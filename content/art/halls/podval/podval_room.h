#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of podval, the cellar.
std::span<const StripDrawing> podvalRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> podvalWallStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> podvalDecorStrips();

}  // namespace grub
