#pragma once

#include <cstddef>

namespace grub {

// Every number of play. A "frame" here is a game frame: one step of the world, 25 in a second.

/// Milliseconds of one game frame.
inline constexpr int kGameFrameMs = 40;

/// Pixels along the edge of a cell. All speeds divide it, so that an actor always comes to stand exactly on a cell.
inline constexpr int kCellSize = 64;
/// Half a cell, in pixels: where a key of either cell is in reach.
inline constexpr int kHalfCell = kCellSize / 2;

/// Columns and rows of the largest map.
inline constexpr int kMaxMapSize = 100;
/// Cells of a level that may hold an actor, a heart or a decoration.
inline constexpr std::size_t kMaxObjects = 40;
/// Places of a level where enemies come back.
inline constexpr std::size_t kMaxSpawnPoints = 50;
/// Taken keys that a level remembers after a lost attempt; keys taken beyond these come back.
inline constexpr std::size_t kMaxCollectedKeys = 100;
/// Numbers under which the block table may name a picture.
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
/// Frames each picture of a breaking floor stays, less one.
inline constexpr int kBreakFrameDelay = 2;
/// Frames each picture of a regrowing floor stays, less one.
inline constexpr int kRegrowFrameDelay = 4;

/// Points for a key.
inline constexpr int kKeyScore = 50;
/// Points for reaching the open exit.
inline constexpr int kWinScore = 1000;

/// What the fill refuses: a cell already reached is entered again only when that saves more steps than this.
inline constexpr int kDistanceTolerance = 5;

/// Attempts of a new game.
inline constexpr int kStartLives = 3;

}  // namespace grub
