#include "hero.h"

#include "animation_id.h"
#include "rules.h"
#include "state_hash.h"
#include "terrain.h"

namespace grub {

Hero::Hero(const LevelMap& map) {
    setCell(map.heroStart().x, map.heroStart().y);
    stripFrame_ = {animation::kHeroStandLeft, 0};
}

void Hero::keyDown(PlayKey key) {
    restartIdleTimer();
    switch (key) {
        case PlayKey::Up: command_ = HeroCommand::Up; break;
        case PlayKey::Down: command_ = HeroCommand::Down; break;
        case PlayKey::Left:
            if (facing_ == Facing::Right && vx == 0) turnDelay_ = kTurnDelay;
            command_ = HeroCommand::Left;
            break;
        case PlayKey::Right:
            if (facing_ == Facing::Left && vx == 0) turnDelay_ = kTurnDelay;
            command_ = HeroCommand::Right;
            break;
        case PlayKey::Space:
        case PlayKey::Enter: command_ = facing_ == Facing::Right ? HeroCommand::DigRight : HeroCommand::DigLeft; break;
        case PlayKey::Z:
        case PlayKey::A: command_ = HeroCommand::DigLeft; break;
        case PlayKey::X:
        case PlayKey::B: command_ = HeroCommand::DigRight; break;
    }
}

// A release takes back its own command only. Space and Enter have no release: a tap between cells digs at the next one.
void Hero::keyUp(PlayKey key) {
    const auto takeBack = [this](HeroCommand command) {
        if (command_ == command) command_ = HeroCommand::None;
    };
    switch (key) {
        case PlayKey::Up: return takeBack(HeroCommand::Up);
        case PlayKey::Down: return takeBack(HeroCommand::Down);
        case PlayKey::Left: return takeBack(HeroCommand::Left);
        case PlayKey::Right: return takeBack(HeroCommand::Right);
        case PlayKey::Z:
        case PlayKey::A: return takeBack(HeroCommand::DigLeft);
        case PlayKey::X:
        case PlayKey::B: return takeBack(HeroCommand::DigRight);
        case PlayKey::Space:
        case PlayKey::Enter: return;
    }
}

void Hero::restartIdleTimer() {
    idleTimer_ = kIdleFrames;
    idlePlaying_ = false;
}

void Hero::update(Attempt& attempt) {
    const bool wasFalling = vy > 0;
    if (isHalfAligned()) takeKeysInReach(attempt);
    if (isAligned()) arriveAtCell(attempt);
    decide(attempt);
    countShield();
    countIdle(attempt.map);
    move(attempt.map);
    if (wasFalling && vy == 0) {
        attempt.sounds.stop(SoundId::Falling);
        attempt.sounds.play(SoundId::Landing);
    }
}

/// Half-way between two cells he takes the keys of both, and they stay taken.
void Hero::takeKeysInReach(Attempt& attempt) const {
    const int cx = cellX();
    const int cy = cellY();
    const bool betweenRows = x % kCellSize == 0;
    const CellPosition other = betweenRows ? CellPosition{cx, cy + 1} : CellPosition{cx + 1, cy};
    for (const CellPosition place : {CellPosition{cx, cy}, other}) {
        if (attempt.map.collectKey(place.x, place.y)) attempt.rewardKey(place.x, place.y);
    }
}

// Invisibility begins at the next cell: the distances that he leaves stay until then.
void Hero::arriveAtCell(Attempt& attempt) {
    const int cx = cellX();
    const int cy = cellY();
    if (attempt.map.takeKeyForNow(cx, cy)) attempt.rewardKey(cx, cy);
    if (attempt.map.distanceAt(cx, cy) != 0) {
        attempt.map.resetDistances();
        if (attempt.bonuses.invisibilityTimer == 0) attempt.map.fillDistances(cx, cy, 0);
    }
    pickUpBonuses(attempt, *this);
}

void Hero::decide(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    if (!isAligned() || digging_) return turnBack(map);
    vx = 0;
    vy = 0;
    if (map.canStand(cellX(), cellY(), View::Physical) || map.isPipe(cellX(), cellY())) {
        obey(attempt);
    } else {
        vy = kHeroSpeed;
    }
}

/// Between cells. He cannot climb back out of a fall: only on a ladder or a support he can turn up again.
void Hero::turnBack(const LevelMap& map) {
    switch (command_) {
        case HeroCommand::Left:
            if (vx > 0) vx = -kHeroSpeed;
            break;
        case HeroCommand::Right:
            if (vx < 0) vx = kHeroSpeed;
            break;
        case HeroCommand::Up:
            if (vy > 0 && map.canStand(cellX(), cellY(), View::Physical)) vy = -kHeroSpeed;
            break;
        case HeroCommand::Down:
            if (vy < 0) vy = kHeroSpeed;
            break;
        default: break;
    }
}

void Hero::obey(Attempt& attempt) {
    const LevelMap& map = attempt.map;
    const int cx = cellX();
    const int cy = cellY();
    switch (command_) {
        case HeroCommand::None: return;
        case HeroCommand::Left: return walk(map, Facing::Left);
        case HeroCommand::Right: return walk(map, Facing::Right);
        case HeroCommand::Up:
            if (map.isClimbableLadder(cx, cy, View::Physical) && map.isPassable(cx, cy - 1, View::Physical))
                vy = -kHeroSpeed;
            return;
        case HeroCommand::Down:
            if (map.isPassable(cx, cy + 1, View::Physical)) vy = kHeroSpeed;
            return;
        case HeroCommand::DigLeft: return dig(attempt, Facing::Left);
        case HeroCommand::DigRight: return dig(attempt, Facing::Right);
    }
}

void Hero::walk(const LevelMap& map, Facing direction) {
    const int step = direction == Facing::Left ? -1 : 1;
    facing_ = direction;
    if (turnDelay_ > 0) {
        --turnDelay_;
    } else if (map.isPassable(cellX() + step, cellY(), View::Physical)) {
        vx = step * kHeroSpeed;
    }
}

void Hero::dig(Attempt& attempt, Facing side) {
    const int column = cellX() + (side == Facing::Left ? -1 : 1);
    const int row = cellY() + 1;
    command_ = HeroCommand::None;
    facing_ = side;
    if (!attempt.map.isDiggable(column, row)) return;
    breakFloor(attempt.map, column, row);
    digging_ = true;
    attempt.sounds.play(SoundId::Break);
}

void Hero::giveShield() {
    shieldTimer_ = kShieldFrames;
    shielded_ = true;
}

void Hero::countShield() {
    if (!shielded_) return;
    --shieldTimer_;
    if (shieldTimer_ < 1) shielded_ = false;
}

void Hero::countIdle(const LevelMap& map) {
    if (idleTimer_ < 1) {
        idlePlaying_ = true;
        idleTimer_ = kIdleFrames;
        stripFrame_.frame = 0;
    } else {
        --idleTimer_;
    }
    const bool onLadder = map.cellAt(cellX(), cellY()).type == BlockType::Ladder;
    if (vx != 0 || vy != 0 || onLadder || map.isPipe(cellX(), cellY())) idlePlaying_ = false;
}

void Hero::addTo(StateHash& hash) const {
    Actor::addTo(hash);
    hash.add(command_, facing_, stripFrame_.animation, stripFrame_.frame, idleTimer_, shieldTimer_, turnDelay_,
             digging_, idlePlaying_, shielded_);
}

// Which frame the hero shows.

using namespace animation;

// When the attempt is over he keeps his strip frame. The choice still runs in that game frame, so that a dig can end in
// it, but asks for no sound.
void Hero::updateFrame(Attempt& attempt) {
    const SoundRequests askedBefore = attempt.sounds;
    AnimationFrame chosen = chooseFrame(attempt);
    if (attempt.ended) {
        chosen = stripFrame_;
        attempt.sounds = askedBefore;
    }
    if (idlePlaying_) chosen = stripFrame_.continuedBy(sided(kHeroStandLeft, kHeroStandRight));
    stripFrame_ = chosen;
    if (chosen.frame >= attempt.frameCounts.of(drawnFrame().animation)) {
        stripFrame_.frame = 0;
        idlePlaying_ = false;
    }
}

AnimationFrame Hero::chooseFrame(Attempt& attempt) {
    if (vy != 0) return movingUpright(attempt);
    if (vx != 0) return movingSideways(attempt);
    return digging_ ? digging(attempt.frameCounts) : resting(attempt.map);
}

AnimationFrame Hero::drawnFrame() const {
    if (shielded_) {
        for (const ShieldVariant& variant : kShieldVariants)
            if (variant.base == stripFrame_.animation) return {variant.shielded, stripFrame_.frame};
    }
    return stripFrame_;
}

// In both directions he looks at the pipe to his right. Each round of the strip is heard once, after its first frame.
AnimationFrame Hero::movingSideways(Attempt& attempt) const {
    const bool hanging = attempt.map.hangsAt(cellX(), cellY()) || attempt.map.hangsAt(cellX() + 1, cellY());
    const bool left = vx < 0;
    if (stripFrame_.frame == 0) attempt.sounds.play(hanging ? SoundId::PipeSteps : SoundId::Steps);
    return hanging ? stripFrame_.continuedBy(left ? kHeroHangLeft : kHeroHangRight)
                   : stripFrame_.continuedBy(left ? kHeroWalkLeft : kHeroWalkRight);
}

AnimationFrame Hero::movingUpright(Attempt& attempt) const {
    if (vy > 0 && !attempt.map.canStand(cellX(), cellY(), View::Physical)) {
        if (stripFrame_.animation != kHeroFall) attempt.sounds.play(SoundId::Falling);
        return stripFrame_.continuedBy(kHeroFall);
    }
    if (stripFrame_.frame == 0) attempt.sounds.play(SoundId::LadderSteps);
    return stripFrame_.continuedBy(kHeroClimb);
}

AnimationFrame Hero::resting(const LevelMap& map) const {
    if (map.hangsAt(cellX(), cellY())) return {sided(kHeroHangLeft, kHeroHangRight), 0};
    if (map.cellAt(cellX(), cellY()).type == BlockType::Ladder) return {kHeroClimb, kClimbRestFrame};
    return stripFrame_.continuedBy(sided(kHeroStandLeft, kHeroStandRight));
}

AnimationFrame Hero::digging(const AnimationFrameCounts& counts) {
    const AnimationFrame chosen = stripFrame_.continuedBy(sided(kHeroDigLeft, kHeroDigRight));
    if (chosen.frame >= counts.of(chosen.animation) - 1) digging_ = false;
    return chosen;
}

}  // namespace grub
