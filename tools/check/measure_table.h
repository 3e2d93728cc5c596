#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checked_level.h"
#include "win_measures.h"

namespace grub {

/// The heading of the table of measures, and the row of a level; each ends in a line end. What comes from a win is `-`
/// without one.
[[nodiscard]] std::string measureHeading();
[[nodiscard]] std::string measureRow(const std::string& name, const CheckedLevel& level,
                                     const std::optional<WinMeasures>& win);

/// A column of the table, as it says it of one level.
struct Measure {
    std::string heading;
    std::string text;
};

/// All columns behind the name, in their order.
[[nodiscard]] std::vector<Measure> measuresOf(const CheckedLevel& level, const std::optional<WinMeasures>& win);

/// The enemies that a level places.
[[nodiscard]] int enemiesOf(const LevelMap& map);

}  // namespace grub
