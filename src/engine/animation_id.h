#pragma once

/// The animation ids that code names. The loading list (render/animations) gives each id its picture file by the same
/// name; the strips that only the block table names have bare numbers there.
namespace grub::animation {

/// What a cell shows whose block names no strip, by the cell's type.
inline constexpr int kPlainWall = 0;
inline constexpr int kPlainSolid = 2;
inline constexpr int kPlainFloor = 3;
inline constexpr int kPlainPipe = 4;
inline constexpr int kPlainLadder = 5;

/// The digits 0 to 9 of points that rise.
inline constexpr int kScoreDigits = 6;
/// The digits 0 to 9 of the panel.
inline constexpr int kPanelDigits = 117;

/// Grub. A view from behind or from the front serves both directions.
inline constexpr int kHeroWalkLeft = 1;
inline constexpr int kHeroWalkRight = 76;
inline constexpr int kHeroHangLeft = 77;
inline constexpr int kHeroHangRight = 78;
inline constexpr int kHeroClimb = 79;
inline constexpr int kHeroDigLeft = 80;
inline constexpr int kHeroDigRight = 81;
inline constexpr int kHeroFront = 151;
inline constexpr int kHeroFall = 152;
inline constexpr int kHeroFrontBlink = 153;  // loaded; no rule chooses a front view
inline constexpr int kHeroStandLeft = 333;
inline constexpr int kHeroStandRight = 334;

/// Grub inside the shield.
inline constexpr int kShieldWalkLeft = 132;
inline constexpr int kShieldWalkRight = 133;
inline constexpr int kShieldClimb = 136;
inline constexpr int kShieldHangLeft = 137;
inline constexpr int kShieldHangRight = 138;
inline constexpr int kShieldDigLeft = 139;
inline constexpr int kShieldDigRight = 140;
inline constexpr int kShieldStandLeft = 144;
inline constexpr int kShieldStandRight = 145;
inline constexpr int kShieldFront = 155;
inline constexpr int kShieldFall = 156;
inline constexpr int kShieldFrontBlink = 157;

/// The dog.
inline constexpr int kDogWalkLeft = 90;
inline constexpr int kDogWalkRight = 91;
inline constexpr int kDogHangLeft = 92;
inline constexpr int kDogHangRight = 93;
inline constexpr int kDogClimb = 94;
inline constexpr int kDogTrapped = 95;
inline constexpr int kDogStill = 96;
inline constexpr int kDogEscape = 244;

/// The lady.
inline constexpr int kLadyWalkLeft = 103;
inline constexpr int kLadyWalkRight = 104;
inline constexpr int kLadyHangLeft = 105;
inline constexpr int kLadyHangRight = 106;
inline constexpr int kLadyClimb = 107;
inline constexpr int kLadyTrapped = 108;
inline constexpr int kLadyStill = 109;
inline constexpr int kLadyEscape = 154;

/// The rat. It has three strips for everything it does.
inline constexpr int kRatWalkLeft = 110;
inline constexpr int kRatWalkRight = 111;
inline constexpr int kRatUpLeft = 112;
inline constexpr int kRatUpRight = 113;
inline constexpr int kRatDownLeft = 114;
inline constexpr int kRatDownRight = 115;

/// Things that lie, hang or move in a level.
inline constexpr int kHangingKey = 97;
inline constexpr int kLyingKey = 98;
inline constexpr int kLongLamp = 118;
inline constexpr int kShortLamp = 119;
inline constexpr int kTorchLeft = 126;
inline constexpr int kTorchRight = 127;
inline constexpr int kDrops = 128;
inline constexpr int kHeart = 129;
inline constexpr int kShieldBonus = 131;
inline constexpr int kBomb = 141;
inline constexpr int kInvisibility = 142;
inline constexpr int kAnchor = 143;
inline constexpr int kSkull = 163;

}  // namespace grub::animation
