#pragma once

#include "animation_frames.h"
#include "level_map.h"

namespace grub {

/// Opens a floor. It grows back by itself: after kHoleFrames its regrowth starts, and when that animation has ended it
/// carries again. The cell must be inside the map.
void breakFloor(LevelMap& map, int x, int y);

/// One frame of every cell: floors that break and grow back, ladders that appear and exits that open once no key lies,
/// and the animations.
void updateCells(LevelMap& map, const AnimationFrameCounts& counts);

}  // namespace grub
