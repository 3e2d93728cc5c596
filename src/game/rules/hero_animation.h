#pragma once

namespace grub::hero_animation {

/// Animation ids of the hero's strips; what a strip shows stands in its name.
inline constexpr int kWalkLeft = 1;
inline constexpr int kWalkRight = 76;
inline constexpr int kHangLeft = 77;
inline constexpr int kHangRight = 78;
inline constexpr int kClimb = 79;
inline constexpr int kDigLeft = 80;
inline constexpr int kDigRight = 81;
inline constexpr int kNeutral = 151;
inline constexpr int kFall = 152;
inline constexpr int kStandLeft = 333;
inline constexpr int kStandRight = 334;

/// The frame of kClimb in which he rests on a ladder.
inline constexpr int kClimbRestFrame = 5;

}  // namespace grub::hero_animation
