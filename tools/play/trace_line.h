#pragma once

#include <string>

#include "world.h"

namespace grub {

/// A world after a game frame as a line of a trace, without its end (docs/formats/games.md).
[[nodiscard]] std::string traceLine(const World& world);

}  // namespace grub
