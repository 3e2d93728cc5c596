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

bool isInside(const Actor& actor, const LevelMap& map) {
    return isWithin(actor.x, 0, (map.width() - 1) * kCellSize) && isWithin(actor.y, 0, (map.height() - 1) * kCellSize);
}

/// Actors leave a row only where a column is, and the other way round.
bool isOnGrid(const Actor& actor) { return actor.x % kCellSize == 0 || actor.y % kCellSize == 0; }

Fault faultOfHero(const World& world) {
    const Hero& hero = world.hero();
    const bool speedIsHis = std::abs(hero.vx) + std::abs(hero.vy) == kHeroSpeed || (hero.vx == 0 && hero.vy == 0);
    return firstUnmet({
        {isInside(hero, world.map()), "the hero is outside the map"},
        {isOnGrid(hero), "the hero is off the grid"},
        {speedIsHis, "the hero has another speed"},
        {isWithin(hero.shieldTimer(), 0, kShieldFrames), "the shield's timer"},
        {hero.isShielded() == (hero.shieldTimer() > 0), "a shield without time or time without a shield"},
    });
}

Fault faultOf(const Enemy& enemy, const World& world) {
    const int speed = world.bonuses().anchorTimer > 0 ? kAnchoredSpeed : kEnemySpeed;
    const int fastest = std::max(std::abs(enemy.vx), std::abs(enemy.vy));
    const bool isDead = enemy.state() == EnemyState::Dead;
    const int timerLimit = isDead ? kDeadFrames : enemy.state() == EnemyState::Trapped ? kTrappedFrames : 0;
    return firstUnmet({
        {isInside(enemy, world.map()), "an enemy is outside the map"},
        {isOnGrid(enemy), "an enemy is off the grid"},
        {enemy.speed() == speed, "an enemy's speed is not that of the anchor's timer"},
        {isWithin(enemy.stripFrame().frame, 0, 7), "an enemy's picture"},
        {isWithin(enemy.timer(), 0, timerLimit), "an enemy's timer"},
        {fastest == 0 || fastest == kEnemySpeed || fastest == kAnchoredSpeed, "an enemy has another speed"},
        {fastest == 0 || (enemy.x % fastest == 0 && enemy.y % fastest == 0), "an enemy will miss its cell"},
        {!isDead || fastest == 0, "a dead enemy moves"},
        {!isDead || (enemy.y == 0 && enemy.isAligned()), "a dead enemy lies about"},
    });
}

Fault faultOfBonuses(const World& world) {
    const Bonuses& bonuses = world.bonuses();
    for (const auto& slot : bonuses.slots) {
        if (!slot) continue;
        const Fault fault = firstUnmet({
            {isWithin(slot->lifetime(), 1, kBonusFrames), "a bonus outlives its time"},
            {slot->isAligned() && isInside(*slot, world.map()), "a bonus lies beside a cell"},
        });
        if (fault != nullptr) return fault;
    }
    return firstUnmet({
        {isWithin(bonuses.anchorTimer, 0, kAnchorFrames), "the anchor's timer"},
        {isWithin(bonuses.invisibilityTimer, 0, kInvisibleFrames), "the timer of invisibility"},
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
        {cell.baseType == BlockType::Floor || cell.breakState == BreakState::Intact,
         "something broke that is no floor"},
        {isWithin(cell.timer, 0, kHoleFrames - 1), "a cell's timer"},
        {cell.frame >= 0 && isWithin(cell.frameDelay, 0, cell.frameDelayReload), "a cell's picture"},
    });
}

Fault faultOfMap(const World& world) {
    const LevelMap& map = world.map();
    const int cells = map.width() * map.height();
    int keys = 0;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            const MapCell& cell = map.cellAt(x, y);
            keys += cell.keyPresent ? 1 : 0;
            if (const Fault fault = faultOf(cell, map.keysRemaining() > 0); fault != nullptr) return fault;
            if (!isWithin(map.distanceAt(x, y), DistanceField::kUnreached, cells - 1)) return "a distance is too long";
        }
    }
    return firstUnmet({
        {keys == map.keysRemaining(), "keys that remain are not the keys that lie"},
        {std::ranges::none_of(map.collectedKeys(), [&](CellPosition p) { return map.cellAt(p.x, p.y).keyPresent; }),
         "a key lies that is remembered as taken"},
    });
}

}  // namespace

std::string faultOf(const World& before, const World& after) {
    const int keysTaken = before.keysRemaining() - after.keysRemaining();
    Fault fault = firstUnmet({
        {isWithin(keysTaken, 0, 2), "keys came back or went by the dozen"},
        {after.score() >= before.score() + keysTaken * kKeyScore, "points are missing"},
        {after.lives() >= before.lives(), "a life is lost within an attempt"},
        {std::abs(after.hero().x - before.hero().x) + std::abs(after.hero().y - before.hero().y) <= kHeroSpeed,
         "the hero jumped"},
    });
    for (const Enemy& enemy : after.enemies())
        if (fault == nullptr) fault = faultOf(enemy, after);
    for (const Fault other : {faultOfHero(after), faultOfBonuses(after), faultOfMap(after)})
        if (fault == nullptr) fault = other;
    return fault == nullptr ? std::string() : fault;
}

}  // namespace grub
