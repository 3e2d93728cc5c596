#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// What lies over the halls: the panel along the lower edge, and the pictures with which one screen follows another.
std::span<const StripDrawing> overlayRoom();

// Its tables; each function stands in the file of its own name.

/// The four panels, as wide as the screen.
std::span<const StripDrawing> panelStrips();

/// A slat of the shutter, and the tiles that open and close over the whole screen.
std::span<const StripDrawing> transitionStrips();

}  // namespace grub
