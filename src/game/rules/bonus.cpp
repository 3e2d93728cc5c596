#include "bonus.h"

#include <cstdlib>

#include "attempt.h"
#include "hero.h"
#include "state_hash.h"
#include "terrain.h"

namespace grub {

namespace {

constexpr ItemKind itemKindOf(BonusKind kind) {
    switch (kind) {
        case BonusKind::Invisibility: return ItemKind::Invisibility;
        case BonusKind::Skull: return ItemKind::Skull;
        case BonusKind::Anchor: return ItemKind::Anchor;
        case BonusKind::Bomb: return ItemKind::Bomb;
        case BonusKind::Shield: return ItemKind::Shield;
        case BonusKind::Heart: break;
    }
    return ItemKind::Heart;
}

// The generator's very largest numbers stand for no bonus.
std::optional<BonusKind> drawKind(WorldRandom& random) {
    const int drawn = random.next() / kSixthOfRandom;
    if (drawn > static_cast<int>(BonusKind::Heart)) return std::nullopt;
    return static_cast<BonusKind>(drawn);
}

void spawnRandomBonus(Attempt& attempt, const Hero& hero) {
    const auto place = attempt.map.randomFreeCell(attempt.random);
    if (!place || *place == CellPosition{hero.cellX(), hero.cellY()}) return;
    if (const auto kind = drawKind(attempt.random)) spawnBonus(attempt.bonuses, place->x, place->y, *kind);
}

void updateSlots(Bonuses& bonuses) {
    for (auto& slot : bonuses.slots) {
        if (!slot) continue;
        slot->stepAnimation();
        slot->age();
        if (slot->isExpired()) slot.reset();
    }
}

}  // namespace

Bonus::Bonus(int cx, int cy, BonusKind kind) : AnimatedItem(cx, cy, itemKindOf(kind)), kind_(kind) {}

void Bonus::age() {
    --lifetime_;
    if (lifetime_ < 1) take();
}

void Bonus::take() {
    active_ = false;
    expired_ = true;
}

void Bonus::addTo(StateHash& hash) const {
    AnimatedItem::addTo(hash);
    hash.add(kind_, active_, expired_, lifetime_);
}

void Bonuses::addTo(StateHash& hash) const {
    for (const auto& slot : slots) {
        hash.add(slot.has_value());
        if (slot) slot->addTo(hash);
    }
    hash.add(countdown, anchorTimer, invisibilityTimer);
}

void spawnBonus(Bonuses& bonuses, int cx, int cy, BonusKind kind) {
    for (auto& slot : bonuses.slots) {
        if (slot) continue;
        slot.emplace(cx, cy, kind);
        return;
    }
}

// Timers run out before any actor acts in the frame. Nothing appears by chance in the first level of the game.
void updateBonuses(Attempt& attempt, const Hero& hero) {
    Bonuses& bonuses = attempt.bonuses;
    updateSlots(bonuses);
    if (--bonuses.countdown < 1) {
        if (attempt.levelIndex != 0) spawnRandomBonus(attempt, hero);
        bonuses.countdown = kBonusInterval;
    }
    if (bonuses.anchorTimer > 0 && --bonuses.anchorTimer == 0) setAnchored(attempt, false);
    if (bonuses.invisibilityTimer > 0) --bonuses.invisibilityTimer;
}

// What taken bonuses do.

namespace {

void apply(BonusKind kind, Attempt& attempt, Hero& hero) {
    switch (kind) {  // no default: a bonus without an effect does not compile
        case BonusKind::Invisibility:
            attempt.sounds.play(SoundId::Invisible);
            attempt.bonuses.invisibilityTimer = kInvisibleFrames;
            return;
        case BonusKind::Skull: attempt.sounds.play(SoundId::Skull); return killNearestEnemy(attempt, hero);
        case BonusKind::Anchor:
            attempt.sounds.play(SoundId::Anchor);
            attempt.bonuses.anchorTimer = kAnchorFrames;
            return setAnchored(attempt, true);
        case BonusKind::Bomb: attempt.sounds.play(SoundId::Bomb); return blast(attempt.map, hero.cellX(), hero.cellY());
        case BonusKind::Shield: attempt.sounds.play(SoundId::Shield); return hero.giveShield();
        case BonusKind::Heart:
            attempt.sounds.play(SoundId::Heart);
            ++attempt.lives;
            return;
    }
}

}  // namespace

void pickUpBonuses(Attempt& attempt, Hero& hero) {
    const CellPosition here{hero.cellX(), hero.cellY()};
    for (auto& slot : attempt.bonuses.slots) {
        if (!slot || !slot->isActive() || CellPosition{slot->cellX(), slot->cellY()} != here) continue;
        slot->take();
        attempt.addScore(kBonusScore, here.x, here.y);
        apply(slot->bonusKind(), attempt, hero);
    }
}

void killNearestEnemy(Attempt& attempt, const Hero& hero) {
    constexpr int kFartherThanAnyMap = 100000;
    Enemy* nearest = nullptr;
    int best = kFartherThanAnyMap;
    for (Enemy& enemy : attempt.enemies) {
        const int distance = std::abs(hero.x - enemy.x) + std::abs(hero.y - enemy.y);
        if (enemy.state() == EnemyState::Dead || distance >= best) continue;
        nearest = &enemy;
        best = distance;
    }
    if (nearest != nullptr) nearest->die();
}

void setAnchored(Attempt& attempt, bool anchored) {
    for (Enemy& enemy : attempt.enemies) enemy.setSpeed(anchored ? kAnchoredSpeed : enemy.traits().speed);
}

// Row by row from the top: a floor that breaks opens the one under it, so the crater grows downwards.
void blast(LevelMap& map, int cx, int cy) {
    for (int dy = -kBlastReach; dy <= kBlastReach; ++dy) {
        for (int dx = -kBlastReach; dx <= kBlastReach; ++dx) {
            const bool underHisFeet = dx == 0 && dy == 1;
            if (!underHisFeet && map.isDiggable(cx + dx, cy + dy)) breakFloor(map, cx + dx, cy + dy);
        }
    }
}

}  // namespace grub
