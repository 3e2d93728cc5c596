#include "world_faults.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <utility>

namespace grub {

namespace {

/// What is wrong; null when all is well.
using Fault = const char*;

/// Of demands and what is wrong when they are not met.
Fault firstUnmet(std::initializer_list<std::pair<bool, Fault>> demands) {
    const auto unmet = std::ranges::find(demands, false, &std::pair<bool, Fault>::first);
    return unmet == demands.end() ? nullptr : unmet->second;
}

bool isWithin(int value, int low, int high) { return value >= low && value <= high; }

/// Actors leave a row only where a column is, and the other way round.
Fault faultOfMove(const Actor& actor, const LevelMap& map, std::initializer_list<int> speeds) {
    const int speed = std::abs(actor.vx) + std::abs(actor.vy);
    return firstUnmet({
        {isWithin(actor.x, 0, (map.width() - 1) * kCellSize) && isWithin(actor.y, 0, (map.height() - 1) * kCellSize),
         "an actor is outside the map"},
        {actor.x % kCellSize == 0 || actor.y % kCellSize == 0, "an actor is off the grid"},
        {speed == 0 || std::ranges::find(speeds, speed) != speeds.end(), "an actor has another speed"},
        {speed == 0 || (actor.x % speed == 0 && actor.y % speed == 0), "an actor will miss its cell"},
    });
}

Fault faultOf(const Enemy& enemy, const World& world) {
    if (const Fault fault = faultOfMove(enemy, world.map(), {kEnemySpeed, kAnchoredSpeed})) return fault;
    const bool isDead = enemy.state() == EnemyState::Dead;
    const int timerLimit = isDead ? kDeadFrames : enemy.state() == EnemyState::Trapped ? kTrappedFrames : 0;
    return firstUnmet({
        {enemy.speed() == (world.bonuses().anchorTimer > 0 ? kAnchoredSpeed : kEnemySpeed), "an enemy's speed"},
        {isWithin(enemy.stripFrame().frame, 0, 7), "an enemy's picture"},
        {isWithin(enemy.timer(), 0, timerLimit), "an enemy's timer"},
        {!isDead || (enemy.vx == 0 && enemy.vy == 0 && enemy.y == 0), "a dead enemy moves or lies about"},
    });
}

/// The type that a cell must have now.
BlockType typeDueTo(const MapCell& cell, bool keysLie) {
    switch (cell.baseType) {
        case BlockType::Floor: return cell.breakState == BreakState::Intact ? BlockType::Floor : BlockType::Empty;
        case BlockType::HiddenLadder: return keysLie ? BlockType::Empty : BlockType::Ladder;
        case BlockType::Exit: return BlockType::Empty;
        default: return cell.baseType;
    }
}

Fault faultOf(const MapCell& cell, bool keysLie) {
    return firstUnmet({
        {cell.type == typeDueTo(cell, keysLie), "a cell has a type that it cannot have"},
        {isWithin(cell.timer, 0, kHoleFrames - 1), "a cell's timer"},
        {cell.frame >= 0 && isWithin(cell.frameDelay, 0, cell.frameDelayReload), "a cell's picture"},
    });
}

Fault faultOf(const LevelMap& map) {
    int keys = 0;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            keys += map.cellAt(x, y).keyPresent ? 1 : 0;
            if (const Fault fault = faultOf(map.cellAt(x, y), map.keysRemaining() > 0)) return fault;
        }
    }
    return keys == map.keysRemaining() ? nullptr : "keys that remain are not the keys that lie";
}

}  // namespace

std::string faultOf(const World& before, const World& after) {
    const Hero& hero = after.hero();
    const int keysTaken = before.keysRemaining() - after.keysRemaining();
    Fault fault = firstUnmet({
        {isWithin(keysTaken, 0, 2), "keys came back or went by the dozen"},
        {after.score() >= before.score() + keysTaken * kKeyScore, "points are missing"},
        {std::abs(hero.x - before.hero().x) + std::abs(hero.y - before.hero().y) <= kHeroSpeed, "the hero jumped"},
        {hero.isShielded() == (hero.shieldTimer() > 0), "a shield without time or time without a shield"},
    });
    if (fault == nullptr) fault = faultOfMove(hero, after.map(), {kHeroSpeed});
    for (const Enemy& enemy : after.enemies())
        if (fault == nullptr) fault = faultOf(enemy, after);
    if (fault == nullptr) fault = faultOf(after.map());
    return fault == nullptr ? std::string() : fault;
}

}  // namespace grub
