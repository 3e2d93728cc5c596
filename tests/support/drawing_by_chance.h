#pragma once

#include "level_writer.h"
#include "world_random.h"

namespace grub {

/// A level drawn by chance, the same for the same state of the generator: storeys with holes in their floors, ladders,
/// pipes, walls, keys, an exit, enemies and spawn points in any mixture, within the limits of a level. A thicket has up
/// to eight times the ladders and no storeys: ways meet again and again, and a plain fill of its distances takes long.
[[nodiscard]] Drawing drawingByChance(int width, int height, bool isThicket, WorldRandom& random);

}  // namespace grub
