#pragma once

#include <optional>
#include <string>

#include "checked_level.h"
#include "win_measures.h"

namespace grub {

/// The heading of the table of measures, and the row of a level; each ends in a line end. What comes from a win is `-`
/// without one.
[[nodiscard]] std::string measureHeading();
[[nodiscard]] std::string measureRow(const std::string& name, const CheckedLevel& level,
                                     const std::optional<WinMeasures>& win);

}  // namespace grub
