#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of turma, the stone prison.
std::span<const StripDrawing> turmaRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> turmaWallStrips();

/// Floors, how they break and how they grow again.
std::span<const StripDrawing> turmaFloorStrips();

/// What can be walked on and never dug.
std::span<const StripDrawing> turmaSolidStrips();

/// Ladders and the pipes that Grub hangs from.
std::span<const StripDrawing> turmaClimbingStrips();

/// The exits: shut under a red lamp, then drawn up under a green one.
std::span<const StripDrawing> turmaDoorStrips();

/// Thin pipes that dress the walls; they change no rule.
std::span<const StripDrawing> turmaWallPipeStrips();

/// Torches that burn.
std::span<const StripDrawing> turmaTorchStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> turmaDecorStrips();

}  // namespace grub
