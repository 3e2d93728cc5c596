#pragma once

#include <string_view>

#include "vector_path.h"

namespace grub {

/// Size of a letter of the built-in alphabet, and from one letter or line to the next. Pixels.
inline constexpr int kLetterWidth = 5;
inline constexpr int kLetterHeight = 7;
inline constexpr int kLetterAdvance = 6;
inline constexpr int kLineAdvance = 9;

/// Text of small letters (drawn as capitals), digits, underline and slash, one square a pixel, its upper left corner at
/// `at`; other letters stay blank. An alphabet of its own, so that no installed font can change a picture.
VectorPath pixelText(Point at, std::string_view text);

}  // namespace grub
