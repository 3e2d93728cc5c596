#pragma once

#include <map>
#include <string>

#include "game_text.h"
#include "world.h"

namespace grub {

/// How often each event has been seen in played games: "end Won", "bonus 2" (kinds as numbers), "dig", "regrown",
/// "trapped 9", "escaped 9", "buried 9", "struck 9" and "returned 9" (enemies by their object codes).
using Happenings = std::map<std::string, int>;

/// Dug floors that have not grown back.
[[nodiscard]] inline int holesIn(const LevelMap& map) {
    int holes = 0;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) holes += map.cellAt(x, y).breakState != BreakState::Intact ? 1 : 0;
    }
    return holes;
}

/// Counts what has become of an enemy in one game frame.
inline void addFate(Happenings& seen, const Enemy& before, const Enemy& after) {
    if (before.state() == after.state()) return;
    const std::string kind = " " + std::to_string(static_cast<int>(after.kind()));
    if (after.state() == EnemyState::Trapped) ++seen["trapped" + kind];
    if (after.state() == EnemyState::Escaping) ++seen["escaped" + kind];
    if (before.state() == EnemyState::Dead) ++seen["returned" + kind];
    if (after.state() == EnemyState::Dead) ++seen[(before.state() == EnemyState::Trapped ? "buried" : "struck") + kind];
}

/// Adds what has happened in the step from one world to the next.
inline void addHappenings(Happenings& seen, const World& before, const World& after) {
    for (std::size_t slot = 0; slot < kBonusSlots; ++slot) {
        const auto& was = before.bonuses().slots[slot];
        const auto& is = after.bonuses().slots[slot];
        // A bonus that has run out is no longer active either, but has no time left.
        if (was && was->isActive() && is && !is->isActive() && is->lifetime() > 0)
            ++seen["bonus " + std::to_string(static_cast<int>(is->bonusKind()))];
    }
    for (std::size_t i = 0; i < after.enemies().size(); ++i) addFate(seen, before.enemies()[i], after.enemies()[i]);
    if (after.hero().isDigging() && !before.hero().isDigging()) ++seen["dig"];
    if (holesIn(after.map()) < holesIn(before.map())) ++seen["regrown"];
    if (after.ended()) ++seen["end " + std::string(nameOf(after.cause()))];
}

}  // namespace grub
