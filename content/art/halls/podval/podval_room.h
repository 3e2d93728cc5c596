#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of podval, the cellar; its ladders and pipes to hang from are those of turma.
std::span<const StripDrawing> podvalRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> podvalWallStrips();

/// Floors, how they break and how they grow again.
std::span<const StripDrawing> podvalFloorStrips();

/// What can be walked on and never dug.
std::span<const StripDrawing> podvalSolidStrips();

/// The exits: shut under a red lamp, then drawn up under a green one.
std::span<const StripDrawing> podvalDoorStrips();

/// Thin pipes that dress the walls; they change no rule.
std::span<const StripDrawing> podvalWallPipeStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> podvalDecorStrips();

}  // namespace grub
