#pragma once

#include <cstdint>

namespace grub {

/// Why an attempt at a level ended.
enum class LossCause : std::uint8_t { Dog = 0, Lady = 1, Rat = 2, Pit = 3, Won = 4, Quit = 5, Load = 6 };

}  // namespace grub
