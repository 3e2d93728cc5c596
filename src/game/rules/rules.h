#pragma once

#include <cstddef>

namespace grub {

// Every number of play. Times are counted in game frames ("frames"): one step of the world, 25 in a second. A frame of
// a strip is always called so.

/// Milliseconds of one game frame.
inline constexpr int kGameFrameMs = 40;

/// Pixels along the edge of a cell. All speeds divide it, so that an actor always comes to stand exactly on a cell.
inline constexpr int kCellSize = 64;
/// Half a cell, in pixels: half-way between two cells the hero reaches the keys of both.
inline constexpr int kHalfCell = kCellSize / 2;

/// Columns and rows of the largest map.
inline constexpr int kMaxMapSize = 100;
/// Cells of a level that may hold an actor, a heart or a decoration.
inline constexpr std::size_t kMaxObjects = 40;
/// Places of a level where enemies come back.
inline constexpr std::size_t kMaxSpawnPoints = 50;
/// Taken keys that a level remembers after a lost attempt; keys taken beyond these come back.
inline constexpr std::size_t kMaxCollectedKeys = 100;
/// Numbers under which the block table may name a strip.
inline constexpr std::size_t kMaxSpriteNumbers = 400;
/// Animation ids are 0 to 399.
inline constexpr int kAnimationIds = 400;
/// Levels of the game.
inline constexpr std::size_t kLevelCount = 50;

/// The hero's pixels a frame along either axis: eight frames for a cell, a third of a second.
inline constexpr int kHeroSpeed = 8;
/// Frames in which the hero, standing, only turns round before he walks: a tap turns him on the spot.
inline constexpr int kTurnDelay = 3;
/// Frames without a key until the hero grows restless: 5 s.
inline constexpr int kIdleFrames = 125;

/// Frames from the dig of a floor until it starts to grow back: 10 s.
inline constexpr int kHoleFrames = 250;
/// Frames for which each strip frame of a breaking floor stays, less one.
inline constexpr int kBreakFrameDelay = 2;
/// Frames for which each strip frame of a regrowing floor stays, less one.
inline constexpr int kRegrowFrameDelay = 4;

/// An enemy's pixels a frame: half the hero's. enemy_traits.h gives it to each kind of enemy, and may give another.
inline constexpr int kEnemySpeed = 4;
/// Pixels a frame of every enemy while the anchor works.
inline constexpr int kAnchoredSpeed = 2;
/// Enemies of a level.
inline constexpr std::size_t kMaxEnemies = 20;
/// Closer than this in both axes, in pixels, an enemy has the hero.
inline constexpr int kCatchDistance = 32;
/// Frames an enemy sits in a hole: 5 s, half of what the hole stays open.
inline constexpr int kTrappedFrames = 125;
/// Frames until a dead dog or lady comes back: 15 s.
inline constexpr int kDeadFrames = 375;
/// Pixels a rat leaps at once when it falls into a hole, and when it comes out.
inline constexpr int kRatLeap = 32;
/// Strip frames of an enemy that are shown, also when the loaded strip has another number.
inline constexpr int kEnemyStripFrames = 8;
/// Strip frames of the rat's two short strips, into a hole and out of it.
inline constexpr int kRatHoleFrames = 4;
/// Frames for which each strip frame of an enemy stays, less one.
inline constexpr int kEnemyFrameDelay = 1;
/// The generator's numbers (0 to 32767) divided by this give 0 to 3 evenly, and 4 once in 8192.
inline constexpr int kQuarterOfRandom = 8191;

/// Bonuses that can lie at once.
inline constexpr std::size_t kBonusSlots = 20;
/// Frames from one random bonus to the next: 10 s.
inline constexpr int kBonusInterval = 250;
/// Frames a bonus lies: 8 s.
inline constexpr int kBonusFrames = 200;
/// The generator's numbers divided by this give 0 to 5, the six bonuses, evenly, and 6, no bonus, twice in 32768.
inline constexpr int kSixthOfRandom = 5461;
/// Frames that a shield, an anchor and invisibility last: 20 s.
inline constexpr int kShieldFrames = 500;
inline constexpr int kAnchorFrames = 500;
inline constexpr int kInvisibleFrames = 500;
/// Cells that a bomb reaches in each direction.
inline constexpr int kBlastReach = 2;
/// How far from drops, in cells of both axes, the hero still hears them.
inline constexpr int kDropsHearing = 2;

/// Score numbers that can rise at once.
inline constexpr std::size_t kPopupCount = 20;
/// Frames for which a score number is shown: 2 s; it rises one pixel in each.
inline constexpr int kPopupFrames = 50;

/// Points for a bonus.
inline constexpr int kBonusScore = 100;
/// Points for a key.
inline constexpr int kKeyScore = 50;
/// Points for reaching the open exit.
inline constexpr int kWinScore = 1000;

/// The fill of distances enters a cell again only when that saves more steps than this.
inline constexpr int kDistanceTolerance = 5;

/// Attempts of a new game.
inline constexpr int kStartLives = 3;

}  // namespace grub
