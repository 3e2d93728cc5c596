// Where an enemy goes from the cell it stands on.

#include "attempt.h"
#include "enemy.h"

namespace grub {

namespace {

/// One of four chances. The generator's largest numbers give 4, which no choice knows.
int drawOfFour(WorldRandom& random) { return random.next() / kQuarterOfRandom; }

}  // namespace

void Enemy::chooseDirection(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    vx = 0;
    vy = 0;
    if (kind_ == EnemyKind::Rat) return patrol(map);
    if (map.distanceAt(cellX(), cellY()) != DistanceField::kUnreached) return hunt(map);
    wander(attempt);
}

/// Sets the velocity of a step to a neighbouring cell.
void Enemy::go(EnemyDirection way) {
    vx = way == EnemyDirection::Left ? -speed_ : way == EnemyDirection::Right ? speed_ : 0;
    vy = way == EnemyDirection::Up ? -speed_ : way == EnemyDirection::Down ? speed_ : 0;
}

// Among neighbours that are equally near the order decides. Whether a step is possible is not asked again: distances
// reach only cells that can be walked. Looking left or right outlasts a climb.
void Enemy::hunt(const LevelMap& map) {
    const int cx = cellX();
    const int cy = cellY();
    int best = map.distanceAt(cx, cy);
    const auto isNearer = [&](int column, int row) {
        const int distance = map.distanceAt(column, row);
        if (distance == DistanceField::kUnreached || distance >= best) return false;
        best = distance;
        return true;
    };
    if (cy > 0 && map.cellAt(cx, cy).type == BlockType::Ladder && isNearer(cx, cy - 1)) go(EnemyDirection::Up);
    if (cy < map.height() - 1 && isNearer(cx, cy + 1)) go(EnemyDirection::Down);
    if (cx < map.width() - 1 && isNearer(cx + 1, cy)) go(direction_ = EnemyDirection::Right);
    if (cx > 0 && isNearer(cx - 1, cy)) go(direction_ = EnemyDirection::Left);
}

/// The rat turns where its floor ends, without a look at the other side.
void Enemy::patrol(const LevelMap& map) {
    const bool left = direction_ == EnemyDirection::Left;
    const int ahead = cellX() + (left ? -1 : 1);
    const bool goesOn = map.isPassable(ahead, cellY(), View::Physical) && map.canStand(ahead, cellY(), View::Planned);
    if (!goesOn) direction_ = left ? EnemyDirection::Right : EnemyDirection::Left;
    go(direction_);
}

void Enemy::wander(Attempt& attempt) {
    if (direction_ == EnemyDirection::Undecided)
        direction_ = static_cast<EnemyDirection>(drawOfFour(attempt.random) + 1);
    const EnemyDirection wanted = direction_;
    direction_ = EnemyDirection::Undecided;
    switch (wanted) {
        case EnemyDirection::Left:
        case EnemyDirection::Right: return wanderSideways(attempt, wanted);
        case EnemyDirection::Up:
        case EnemyDirection::Down: return wanderUpright(attempt.map, wanted);
        case EnemyDirection::Undecided:
        case EnemyDirection::Nowhere: return;
    }
}

// On the way left it looks for a ladder even when the way is shut; on the way right only when it is open.
void Enemy::wanderSideways(Attempt& attempt, EnemyDirection side) {
    const bool left = side == EnemyDirection::Left;
    const bool open = attempt.map.isPassable(cellX() + (left ? -1 : 1), cellY(), View::Physical);
    if (open) go(direction_ = side);
    if (open || left) perhapsTakeLadder(attempt);
}

// Nothing looks whether the ladder's upper end is open: an enemy can climb into the floor above it.
void Enemy::perhapsTakeLadder(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    const int cx = cellX();
    const int cy = cellY();
    const auto isLadder = [&](int row) { return map.cellAt(cx, row).type == BlockType::Ladder; };
    if (isLadder(cy) && drawOfFour(attempt.random) == 0) go(direction_ = EnemyDirection::Up);
    if (cy < map.height() - 1 && isLadder(cy + 1) && drawOfFour(attempt.random) == 0)
        go(direction_ = EnemyDirection::Down);
}

void Enemy::wanderUpright(const LevelMap& map, EnemyDirection way) {
    const int cx = cellX();
    const int cy = cellY();
    const bool up = way == EnemyDirection::Up;
    const bool possible = !up || map.cellAt(cx, cy).type == BlockType::Ladder;
    if (possible && map.isPassable(cx, up ? cy - 1 : cy + 1, View::Physical)) go(direction_ = way);
}

}  // namespace grub
