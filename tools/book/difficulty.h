#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "book_level.h"

namespace grub {

/// How hard a level is by its measures: the sum of the points that `kDifficultyRule` names. Nothing without a win.
[[nodiscard]] std::optional<double> difficultyOf(const BookLevel& entry);

/// The rule of `difficultyOf` in words, as lines of a document.
inline constexpr std::string_view kDifficultyRule =
    R"(
- the seconds of the win / 10, its digs / 4, and the keys / 2;
- 1 for each enemy, and 1 for each late start that loses;
- 1 for each 16 pixels by which the closest enemy comes nearer than 96, at most 4.
)";

/// Each value's mean with its neighbours, up to two at each side.
[[nodiscard]] std::vector<double> smoothed(const std::vector<double>& values);

}  // namespace grub
