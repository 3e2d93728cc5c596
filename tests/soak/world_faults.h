#pragma once

#include <string>

#include "world.h"

namespace grub {

/// What is wrong with a world after a frame of play, in a line; empty when all is well. Actors are inside the map or
/// dead, speeds and timers are within their ranges, the keys that remain are those that lie, and every cell has a type
/// that it can have.
[[nodiscard]] std::string faultOf(const World& world);

/// The same for the step from one world to the next: what only grows, and what counts down by one.
[[nodiscard]] std::string faultOfStep(const World& before, const World& after);

}  // namespace grub
