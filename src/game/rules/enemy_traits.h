#pragma once

#include <array>
#include <cassert>
#include <cstdint>

#include "map_cell.h"

namespace grub {

/// The three enemies. The numbers are the object codes by which a level file places them.
enum class EnemyKind : std::uint16_t { Dog = object_code::kDog, Rat = object_code::kRat, Lady = object_code::kLady };

/// Whether a level file's object code places an enemy.
[[nodiscard]] constexpr bool isEnemy(std::uint16_t code) {
    return code == object_code::kDog || code == object_code::kRat || code == object_code::kLady;
}

/// Animation ids of an enemy, a pair for each thing it does: going or looking left, and right.
struct EnemyAnimations {
    struct Pair {
        int left;
        int right;
    };
    EnemyKind kind;
    Pair walk;
    Pair pipe;
    Pair climb;
    Pair trapped;
    Pair still;
    Pair escape;
};

/// Who looks how. A strip seen from behind serves both directions.
inline constexpr std::array kEnemyAnimations{
    //              kind             walk        pipe        climb       trapped     still       escape
    EnemyAnimations{EnemyKind::Dog, {90, 91}, {92, 93}, {94, 94}, {95, 95}, {96, 96}, {244, 244}},
    EnemyAnimations{EnemyKind::Rat, {110, 111}, {110, 111}, {112, 113}, {114, 115}, {114, 115}, {112, 113}},
    EnemyAnimations{EnemyKind::Lady, {103, 104}, {105, 106}, {107, 107}, {108, 108}, {109, 109}, {154, 154}},
};

/// The row of a kind.
[[nodiscard]] constexpr const EnemyAnimations& animationsOf(EnemyKind kind) {
    for (const EnemyAnimations& row : kEnemyAnimations)
        if (row.kind == kind) return row;
    assert(false);
    return kEnemyAnimations[0];
}

/// The animation of an enemy that has done nothing yet, whatever its kind.
inline constexpr int kFirstEnemyAnimation = 90;

}  // namespace grub
