#pragma once

#include <span>

#include "strip.h"

namespace grub {

/// All strips of turma, the stone prison.
std::span<const StripDrawing> turmaRoom();

// Its tables; each function stands in the file of its own name.

/// The walls behind the play. All variants join without seams in any mixture.
std::span<const StripDrawing> turmaWallStrips();

/// What stands and hangs about; it changes no rule.
std::span<const StripDrawing> turmaDecorStrips();

}  // namespace grub
