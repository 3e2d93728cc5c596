#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// What the halls of all worlds share.
std::span<const StripDrawing> commonRoom();

// Its tables; each function stands in the file of its own name.

/// The floors of all worlds, how they break and how they grow again.
std::span<const StripDrawing> floorStrips();

/// What can be walked on and never dug, in all worlds.
std::span<const StripDrawing> solidStrips();

/// Ladders and the pipes that Grub hangs from. Rungs lie at row 8 of every 16; the axis of a pipe lies at row 10.
std::span<const StripDrawing> climbingStrips();

/// The exits of all worlds: shut under a red lamp, then drawn up under a green one; and a gate without a use.
std::span<const StripDrawing> doorStrips();

/// Thin pipes and cables that dress the walls; they change no rule.
std::span<const StripDrawing> wallPipeStrips();
std::span<const StripDrawing> wireStrips();

/// Torches, lamps, the light that they throw on the wall, and the shadow below floors.
std::span<const StripDrawing> lightStrips();

}  // namespace grub
