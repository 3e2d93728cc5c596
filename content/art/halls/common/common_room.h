#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips that serve every world.
std::span<const StripDrawing> commonRoom();

// Its tables; each function stands in the file of its own name.

/// Cables that dress the walls; they change no rule.
std::span<const StripDrawing> wireStrips();

/// Lamps, the light that they throw on the wall, and the shadow below floors.
std::span<const StripDrawing> lightStrips();

}  // namespace grub
