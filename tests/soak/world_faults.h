#pragma once

#include <string>

#include "world.h"

namespace grub {

/// What is wrong with a world after a frame of play, or with the step to it from the world before, in a line; empty
/// when all is well. Actors are inside the map or dead, speeds and timers are within their ranges, the keys that remain
/// are those that lie, every cell has a type that it can have, and points and taken keys only grow.
[[nodiscard]] std::string faultOf(const World& before, const World& after);

}  // namespace grub
