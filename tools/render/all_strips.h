#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "strip.h"

namespace grub {

/// Every strip that can be drawn, in a fixed order.
const std::vector<StripDrawing>& allStrips();

/// The strip of that name, or null.
const StripDrawing* findStrip(std::string_view name);

// The strips by what they show. Each function stands in the file of its own name: heroStrips() in hero_strips.cpp.

/// Figures. Strips with a mirrored twin in the game face left; see README.md for what every figure keeps to.
std::span<const StripDrawing> heroStrips();
std::span<const StripDrawing> dogStrips();
std::span<const StripDrawing> ladyStrips();
std::span<const StripDrawing> ratStrips();

/// Grub's strips once more, inside a glass bubble: what is shown while he has a shield. Each has as many frames as his
/// own strip of the same number.
std::span<const StripDrawing> shieldStrips();

/// What Grub takes: the keys, and the six bonuses that appear for a while.
std::span<const StripDrawing> thingStrips();

/// The walls behind the play, by world. The variants of one world join without seams in any mixture.
std::span<const StripDrawing> turmaWallStrips();
std::span<const StripDrawing> jelezoWallStrips();
std::span<const StripDrawing> podvalWallStrips();

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

/// What stands and hangs about in each world; it changes no rule.
std::span<const StripDrawing> turmaDecorStrips();
std::span<const StripDrawing> jelezoDecorStrips();
std::span<const StripDrawing> podvalDecorStrips();

/// The digits 0 to 9 of score and panel, one a frame.
std::span<const StripDrawing> digitStrips();

}  // namespace grub
