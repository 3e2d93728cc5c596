#pragma once

#include <cstdint>

namespace grub {

/// The keys that steer the hero.
enum class PlayKey : std::uint8_t { Up, Down, Left, Right, Space, Enter, Z, X, A, B };

}  // namespace grub
