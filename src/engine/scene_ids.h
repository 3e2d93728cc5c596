#pragma once

#include <cstdint>

namespace grub {

/// Numbers under which the program registers its scenes.
inline constexpr std::uint32_t kLevelSceneId = 1;
inline constexpr std::uint32_t kMenuShellId = 2;

}  // namespace grub
