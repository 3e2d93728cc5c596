#pragma once

#include <string_view>

#include "board.h"
#include "font.h"

namespace grub {

/// Height of a key's cap that stands in running text.
inline constexpr double kCapHeight = 24;

/// From the top of such a cap to the middle of the face that bears the letters.
inline constexpr double kCapFaceMiddle = 10.5;

/// Width of such a cap. `key` is what the cap bears: a word, a letter, or Left, Right, Up, Down for an arrow-head.
double keyCapWidth(const Font& font, std::string_view key);

/// A cap that fills `area`; the baseline of its letters lies whole pixels below the top where the area does.
void drawKeyCap(Canvas& canvas, const Rect& area, const Font& font, std::string_view key);

}  // namespace grub
