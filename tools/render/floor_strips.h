#pragma once

#include <cstdint>

#include "floor_kind.h"
#include "picture_entry.h"

namespace grub {

/// A floor cell that is hit, breaks and falls, until a hole with ragged walls is left. `seed` chooses how it falls.
void drawBreaking(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey, std::uint32_t seed);

/// The same cell growing again: it rises from below in a warm seam; the last picture is the floor, still glowing.
void drawGrowing(Canvas& canvas, FrameOf frame, const FloorKind& kind, Storey storey);

}  // namespace grub
