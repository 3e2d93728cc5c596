#pragma once

#include <array>

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
inline constexpr int kUnused = 153;  // has its strips; nothing chooses it
inline constexpr int kStandLeft = 333;
inline constexpr int kStandRight = 334;

/// A strip and the same poses inside the shield.
struct ShieldVariant {
    int base;
    int shielded;
};
inline constexpr std::array kShieldVariants{
    ShieldVariant{kWalkLeft, 132},  ShieldVariant{kWalkRight, 133}, ShieldVariant{kHangLeft, 137},
    ShieldVariant{kHangRight, 138}, ShieldVariant{kClimb, 136},     ShieldVariant{kDigLeft, 139},
    ShieldVariant{kDigRight, 140},  ShieldVariant{kNeutral, 155},   ShieldVariant{kFall, 156},
    ShieldVariant{kUnused, 157},    ShieldVariant{kStandLeft, 144}, ShieldVariant{kStandRight, 145},
};

/// The frame of kClimb in which he rests on a ladder.
inline constexpr int kClimbRestFrame = 5;

}  // namespace grub::hero_animation
