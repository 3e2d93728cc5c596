#pragma once

#include <cstdint>
#include <vector>

#include "world.h"

namespace grub {

/// Where the generator may stand after the step that led from `before` to `after`, counted by the plain rule of who
/// draws: the bonus whose time has come, then in list order the enemies that wander at a cell or come back. Nearly
/// always one state; more when it depends on a hole that another enemy may have left or taken in that step.
[[nodiscard]] std::vector<std::uint32_t> forecastDraws(const World& before, const World& after);

}  // namespace grub
