// What taken bonuses do.

#include <cstdlib>

#include "attempt.h"
#include "bonus.h"
#include "hero.h"
#include "terrain.h"

namespace grub {

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
            return setEnemySpeed(attempt, kAnchoredSpeed);
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

void setEnemySpeed(Attempt& attempt, int speed) {
    for (Enemy& enemy : attempt.enemies) enemy.setSpeed(speed);
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
