#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>

#include "animation_id.h"
#include "map_cell.h"
#include "rules.h"
#include "sound_id.h"

namespace grub {

/// Why an attempt at a level ended. The numbers are those of hashes and traces.
enum class LossCause : std::uint8_t { Dog = 0, Lady = 1, Rat = 2, Pit = 3, Won = 4, Quit = 5, Load = 6 };

/// The enemies. The numbers are the object codes by which a level file places them.
enum class EnemyKind : std::uint16_t { Dog = object_code::kDog, Rat = object_code::kRat, Lady = object_code::kLady };

/// Everything that makes one kind of enemy different from the others.
struct EnemyTraits {
    /// Animation ids of two strips: going or looking left, and right. A strip seen from behind serves both directions.
    struct StripPair {
        int left;
        int right;
    };

    EnemyKind kind;
    LossCause cause;         ///< of an attempt that it ends
    char mark;               ///< its letter in drawings of the field; a capital while it is in a hole
    int speed;               ///< pixels a game frame; divides kCellSize
    bool hunts;              ///< follows the hero or wanders; otherwise it runs to and fro on its floor
    bool holdsLadders;       ///< does not fall from a ladder
    bool fallsThroughHoles;  ///< falls on through a hole that has no floor and no solid block under it
    bool comesBack;          ///< returns kDeadFrames after its death
    int leap;                ///< pixels that it leaps at once into a hole, and out of it
    int holeFrames;          ///< frames of its strips `trapped` and `escape` that are shown; the last one stays
    SoundId caughtSound;     ///< when it falls into a hole

    StripPair walk;
    StripPair pipe;  ///< hangs on a pipe
    StripPair climb;
    StripPair trapped;  ///< falls into a hole and sits in it
    StripPair still;    ///< stands, and falls
    StripPair escape;   ///< climbs out of a hole
};

// clang-format off
/// One row for each enemy.
inline constexpr std::array kEnemyTraits{
    EnemyTraits{.kind = EnemyKind::Dog, .cause = LossCause::Dog, .mark = 'd', .speed = kEnemySpeed,
                .hunts = true, .holdsLadders = true, .fallsThroughHoles = false, .comesBack = true,
                .leap = 0, .holeFrames = kEnemyStripFrames, .caughtSound = SoundId::Caught,
                .walk = {animation::kDogWalkLeft, animation::kDogWalkRight},
                .pipe = {animation::kDogHangLeft, animation::kDogHangRight},
                .climb = {animation::kDogClimb, animation::kDogClimb},
                .trapped = {animation::kDogTrapped, animation::kDogTrapped},
                .still = {animation::kDogStill, animation::kDogStill},
                .escape = {animation::kDogEscape, animation::kDogEscape}},
    EnemyTraits{.kind = EnemyKind::Rat, .cause = LossCause::Rat, .mark = 'r', .speed = kEnemySpeed,
                .hunts = false, .holdsLadders = false, .fallsThroughHoles = false, .comesBack = false,
                .leap = kRatLeap, .holeFrames = kRatHoleFrames, .caughtSound = SoundId::CaughtRat,
                .walk = {animation::kRatWalkLeft, animation::kRatWalkRight},
                .pipe = {animation::kRatWalkLeft, animation::kRatWalkRight},
                .climb = {animation::kRatUpLeft, animation::kRatUpRight},
                .trapped = {animation::kRatDownLeft, animation::kRatDownRight},
                .still = {animation::kRatDownLeft, animation::kRatDownRight},
                .escape = {animation::kRatUpLeft, animation::kRatUpRight}},
    EnemyTraits{.kind = EnemyKind::Lady, .cause = LossCause::Lady, .mark = 'l', .speed = kEnemySpeed,
                .hunts = true, .holdsLadders = true, .fallsThroughHoles = true, .comesBack = true,
                .leap = 0, .holeFrames = kEnemyStripFrames, .caughtSound = SoundId::Caught,
                .walk = {animation::kLadyWalkLeft, animation::kLadyWalkRight},
                .pipe = {animation::kLadyHangLeft, animation::kLadyHangRight},
                .climb = {animation::kLadyClimb, animation::kLadyClimb},
                .trapped = {animation::kLadyTrapped, animation::kLadyTrapped},
                .still = {animation::kLadyStill, animation::kLadyStill},
                .escape = {animation::kLadyEscape, animation::kLadyEscape}},
};
// clang-format on
static_assert(std::ranges::all_of(
                  kEnemyTraits, [](int speed) { return kCellSize % speed == 0; }, &EnemyTraits::speed),
              "an enemy with such a speed would never stand exactly on a cell");

/// The row of a kind.
[[nodiscard]] constexpr const EnemyTraits& traitsOf(EnemyKind kind) {
    const auto row = std::ranges::find(kEnemyTraits, kind, &EnemyTraits::kind);
    assert(row != kEnemyTraits.end());
    return *row;
}

/// Whether a level file's object code places an enemy.
[[nodiscard]] constexpr bool isEnemy(std::uint16_t code) {
    return std::ranges::find(kEnemyTraits, static_cast<EnemyKind>(code), &EnemyTraits::kind) != kEnemyTraits.end();
}

namespace object_code {

/// Whether the code calls for an actor, a heart or a decoration.
[[nodiscard]] constexpr bool isObject(std::uint16_t code) {
    return isEnemy(code) || (code >= kHeart && code <= kTorchRight);
}

}  // namespace object_code

}  // namespace grub
