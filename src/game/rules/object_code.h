#pragma once

#include <cstdint>

namespace grub {

/// What a level file places in a cell. Other codes are kept with the cell and place nothing.
namespace object_code {

/// The codes. Keys hang in one picture and lie in another; a lamp is drawn in front of its cell.
inline constexpr std::uint16_t kHero = 8;
inline constexpr std::uint16_t kDog = 9;
inline constexpr std::uint16_t kRat = 10;
inline constexpr std::uint16_t kHangingKey = 20;
inline constexpr std::uint16_t kLongLamp = 21;
inline constexpr std::uint16_t kShortLamp = 22;
inline constexpr std::uint16_t kLady = 24;
inline constexpr std::uint16_t kKey = 25;
inline constexpr std::uint16_t kHeart = 27;
inline constexpr std::uint16_t kDrops = 28;
inline constexpr std::uint16_t kTorchLeft = 29;
inline constexpr std::uint16_t kTorchRight = 30;

/// Whether the code calls for an actor, a heart or a decoration.
[[nodiscard]] constexpr bool isObject(std::uint16_t code) {
    return code == kDog || code == kRat || code == kLady || (code >= kHeart && code <= kTorchRight);
}
/// Whether the code puts a key into the cell.
[[nodiscard]] constexpr bool isKey(std::uint16_t code) { return code == kHangingKey || code == kKey; }

}  // namespace object_code

}  // namespace grub
