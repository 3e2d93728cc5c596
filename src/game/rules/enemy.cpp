#include "enemy.h"

#include <algorithm>

#include "attempt.h"
#include "state_hash.h"

namespace grub {

Enemy::Enemy(int cx, int cy, EnemyKind kind) : kind_(kind), speed_(traits().speed) { setCell(cx, cy); }

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
    if (traits().holdsLadders) return map.canStand(cx, cy, View::Physical);
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

bool Enemy::passesThroughHole(const LevelMap& map) const {
    const int row = cellY() + 2;
    if (!traits().fallsThroughHoles || row >= map.height()) return false;
    const BlockType type = map.cellAt(cellX(), row).type;
    return type != BlockType::Floor && type != BlockType::Solid;
}

// The hole is taken, and carries others, from the moment of the fall.
void Enemy::fallIntoHole(Attempt& attempt, MapCell& hole) {
    hole.holeOccupied = true;
    state_ = EnemyState::Trapped;
    timer_ = kTrappedFrames;
    attempt.sounds.play(traits().caughtSound);
    y += traits().leap;
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
    y -= traits().leap;
}

void Enemy::waitForReturn(Attempt& attempt) {
    if (!traits().comesBack) return;
    vx = 0;
    vy = 0;
    if (timer_ > 0) --timer_;
    if (timer_ == 0 && respawn(attempt)) state_ = EnemyState::Roaming;
}

// An actor at the spawn point does not stop it. On a map without spawn points it drops in from the top row.
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
    hash.add(kind_, state_, direction_, atNode_, timer_, speed_, stripFrame_.animation, stripFrame_.frame, frameDelay_);
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

// Where an enemy goes from the cell it stands on.

namespace {

/// One of four chances. The generator's largest numbers give 4, which no choice knows.
int drawOfFour(WorldRandom& random) { return random.next() / kQuarterOfRandom; }

}  // namespace

void Enemy::chooseDirection(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    vx = 0;
    vy = 0;
    if (!traits().hunts) return patrol(map);
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

// Which frame an enemy shows.

void Enemy::updateAnimation(const LevelMap& map) {
    if (isOutsideMap(map)) return die();
    if (frameDelay_ > 0) {
        --frameDelay_;
        return;
    }
    frameDelay_ = kEnemyFrameDelay;
    const bool isInHole = state_ == EnemyState::Trapped || state_ == EnemyState::Escaping;
    stripFrame_ = isInHole ? inHole() : moving(map);
    if (stripFrame_.frame >= kEnemyStripFrames) stripFrame_.frame = 0;
}

int Enemy::sided(EnemyTraits::StripPair pair) const {
    return direction_ == EnemyDirection::Right ? pair.right : pair.left;
}

// Going either way it looks at the pipe to its right.
bool Enemy::isHanging(const LevelMap& map) const {
    return map.hangsAt(cellX(), cellY()) || map.hangsAt(cellX() + 1, cellY());
}

AnimationFrame Enemy::moving(const LevelMap& map) const {
    const EnemyTraits& strips = traits();
    if (vy != 0) {
        const bool falls = vy > 0 && !isSupported(map);
        return stripFrame_.continuedBy(sided(falls ? strips.still : strips.climb));
    }
    const EnemyTraits::StripPair hang = strips.pipe;
    const bool hanging = isHanging(map);
    if (vx == 0) return {sided(hanging ? hang : strips.still), 0};
    const EnemyTraits::StripPair way = hanging ? hang : strips.walk;
    return stripFrame_.continuedBy(vx < 0 ? way.left : way.right);
}

/// Falling in and climbing out hold their last frame.
AnimationFrame Enemy::inHole() const {
    const EnemyTraits& strips = traits();
    AnimationFrame shown =
        stripFrame_.continuedBy(sided(state_ == EnemyState::Trapped ? strips.trapped : strips.escape));
    shown.frame = std::min(shown.frame, strips.holeFrames - 1);
    return shown;
}

}  // namespace grub
