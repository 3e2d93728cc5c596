#pragma once

#include <cstdint>

namespace grub {

/// The music tracks by the numbers under which they are loaded.
enum class MusicId : std::uint8_t { Menu = 0, Game1 = 1, Game2 = 2 };

/// How many tracks there are.
inline constexpr int kMusicCount = 3;

}  // namespace grub
