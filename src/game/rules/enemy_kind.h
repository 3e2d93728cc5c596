#pragma once

#include <cstdint>

#include "object_code.h"

namespace grub {

/// The three enemies. The numbers are the object codes by which a level file places them.
enum class EnemyKind : std::uint16_t { Dog = object_code::kDog, Rat = object_code::kRat, Lady = object_code::kLady };

/// Whether a level file's object code places an enemy.
[[nodiscard]] constexpr bool isEnemy(std::uint16_t code) {
    return code == object_code::kDog || code == object_code::kRat || code == object_code::kLady;
}

}  // namespace grub
