#pragma once

#include <string>

#include "world.h"

namespace grub {

/// What is wrong with a world after a frame of play, one line; empty when nothing is. Everybody is inside the map or
/// dead, speeds and timers are within their ranges, keys that remain are keys that lie, and every cell is of a type
/// that it can have.
[[nodiscard]] std::string faultOf(const World& world);

/// The same for the step from one world to the next: what only grows, and what counts down one by one.
[[nodiscard]] std::string faultOfStep(const World& before, const World& after);

}  // namespace grub
