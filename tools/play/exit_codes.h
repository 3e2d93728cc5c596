#pragma once

namespace grub {

/// Exit codes: the game differs, or the level is refused; something cannot be read or is wrongly asked for.
inline constexpr int kDiffers = 1;
inline constexpr int kRefused = 1;
inline constexpr int kCannotPlay = 2;

}  // namespace grub
