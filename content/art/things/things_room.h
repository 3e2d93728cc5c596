#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// What Grub takes, and the digits of what it is worth.
std::span<const StripDrawing> thingsRoom();

// Its tables; each function stands in the file of its own name.

/// The keys, and the six bonuses that appear for a while.
std::span<const StripDrawing> thingStrips();

/// The digits 0 to 9 of score and panel, one a frame.
std::span<const StripDrawing> digitStrips();

}  // namespace grub
