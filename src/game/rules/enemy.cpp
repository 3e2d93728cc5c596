#include "enemy.h"

#include <algorithm>

#include "attempt.h"
#include "state_hash.h"

namespace grub {

Enemy::Enemy(int cx, int cy, EnemyKind kind) : kind_(kind) { setCell(cx, cy); }

void Enemy::update(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    if (isOutsideMap(map)) die();
    atNode_ = isAligned() && isSupported(map);
    if (isAligned() && decide(attempt) == Then::Stays) return;
    move(map);
}

void Enemy::die() {
    x = 0;
    y = 0;
    vx = 0;
    vy = 0;
    state_ = EnemyState::Dead;
    timer_ = kDeadFrames;
}

bool Enemy::isSupported(const LevelMap& map) const {
    const int cx = cellX();
    const int cy = cellY();
    if (kind_ != EnemyKind::Rat) return map.canStand(cx, cy, View::Physical);
    if (cy >= map.height() - 1) return true;
    const MapCell& below = map.cellAt(cx, cy + 1);
    return below.type == BlockType::Floor || below.type == BlockType::Ladder || below.type == BlockType::Solid ||
           below.holeOccupied;
}

Enemy::Then Enemy::decide(Attempt& attempt) {
    switch (state_) {  // no default: a state without a handler does not compile
        case EnemyState::Roaming: return roam(attempt);
        case EnemyState::Trapped: waitInHole(attempt.map); break;
        case EnemyState::Escaping:
            chooseDirection(attempt);
            state_ = EnemyState::Roaming;
            break;
        case EnemyState::Dead: waitForReturn(attempt); break;
    }
    return Then::Moves;
}

Enemy::Then Enemy::roam(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    if (map.cellAt(cellX(), cellY()).type == BlockType::Solid) {
        die();
        return Then::Stays;
    }
    chooseDirection(attempt);
    if (!isSupported(map) && !map.isPipe(cellX(), cellY())) fall(attempt);
    return Then::Moves;
}

void Enemy::fall(Attempt& attempt) {
    vx = 0;
    vy = speed_;
    MapCell& below = attempt.map.cellAt(cellX(), cellY() + 1);
    const bool isHole = below.breakState != BreakState::Intact;
    if (isHole && !passesThroughHole(attempt.map)) fallIntoHole(attempt, below);
}

/// A lady is too big to be held by a hole with nothing under it.
bool Enemy::passesThroughHole(const LevelMap& map) const {
    const int row = cellY() + 2;
    if (kind_ != EnemyKind::Lady || row >= map.height()) return false;
    const BlockType type = map.cellAt(cellX(), row).type;
    return type != BlockType::Floor && type != BlockType::Solid;
}

// The hole is taken, and carries others, from the moment of the fall. A rat is in it with half a leap.
void Enemy::fallIntoHole(Attempt& attempt, MapCell& hole) {
    hole.holeOccupied = true;
    state_ = EnemyState::Trapped;
    timer_ = kTrappedFrames;
    if (kind_ == EnemyKind::Rat) {
        attempt.sounds.play(SoundId::CaughtRat);
        y += kRatLeap;
    } else {
        attempt.sounds.play(SoundId::Caught);
    }
}

void Enemy::waitInHole(LevelMap& map) {
    MapCell& hole = map.cellAt(cellX(), cellY());
    vx = 0;
    vy = 0;
    --timer_;
    if (hole.type == BlockType::Floor) return die();
    if (timer_ >= 1) return;
    vy = -speed_;
    state_ = EnemyState::Escaping;
    hole.holeOccupied = false;
    if (kind_ == EnemyKind::Rat) y -= kRatLeap;
}

void Enemy::waitForReturn(Attempt& attempt) {
    if (kind_ == EnemyKind::Rat) return;
    vx = 0;
    vy = 0;
    if (timer_ > 0) --timer_;
    if (timer_ == 0 && respawn(attempt)) state_ = EnemyState::Roaming;
}

// A spawn point is not looked at: whoever stands there meets it. On a map without one it drops in from the top row.
bool Enemy::respawn(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    if (const auto point = map.randomSpawnPoint(attempt.random)) {
        setCell(point->x, point->y);
        return true;
    }
    const int column = attempt.random.next() / (WorldRandom::kMax / map.width());
    if (column >= map.width()) return false;
    setCell(column, 0);
    return map.isPassable(column, 0, View::Physical);
}

void Enemy::addTo(StateHash& hash) const {
    Actor::addTo(hash);
    hash.add(kind_, state_, direction_, atNode_, timer_, speed_, picture_.animation, picture_.frame, frameDelay_);
}

void keepApart(std::span<Enemy> enemies) {
    for (auto enemy = enemies.begin(); enemy != enemies.end(); ++enemy) {
        if (!enemy->wasAtNode() || !enemy->keepsDistance()) continue;
        const bool isTaken = std::any_of(enemy + 1, enemies.end(), [enemy](const Enemy& other) {
            return other.keepsDistance() && other.cellX() == enemy->cellX() && other.cellY() == enemy->cellY();
        });
        if (isTaken) enemy->undoMove();
    }
}

}  // namespace grub
