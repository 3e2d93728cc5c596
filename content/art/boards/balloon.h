#pragma once

#include <optional>

#include "board.h"

namespace grub {

/// A speech balloon that fills `area`. Its tail is a curved horn from the nearest side to `speaker`; without a speaker,
/// or with one inside the area, there is no tail.
void drawBalloon(Canvas& canvas, const Rect& area, std::optional<Point> speaker);

}  // namespace grub
