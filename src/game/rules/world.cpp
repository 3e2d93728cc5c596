#include "world.h"

#include <cstdlib>
#include <utility>

#include "map_cell.h"
#include "state_hash.h"
#include "terrain.h"

namespace grub {

World::World(LevelMap map, const WorldStart& start, const AnimationFrameCounts& counts)
    : attempt_{.map = std::move(map),
               .random = WorldRandom(start.seed),
               .frameCounts = counts,
               .sounds = {},
               .enemies = {},
               .decorations = {},
               .bonuses = {},
               .popups = {},
               .levelIndex = start.levelIndex,
               .score = start.score,
               .lives = start.lives},
      hero_(attempt_.map) {
    attempt_.map.withdrawCollectedKeys(start.collectedKeys);
    placeObjects();
}

void World::placeObjects() {
    for (const LevelObject& object : attempt_.map.objects()) {
        if (isEnemy(object.code)) {
            attempt_.enemies.emplace_back(object.x, object.y, static_cast<EnemyKind>(object.code));
            continue;
        }
        switch (object.code) {
            case object_code::kHeart: spawnBonus(attempt_.bonuses, object.x, object.y, BonusKind::Heart); break;
            case object_code::kDrops: attempt_.decorations.emplace_back(object.x, object.y, ItemKind::Drops); break;
            case object_code::kTorchLeft:
                attempt_.decorations.emplace_back(object.x, object.y, ItemKind::TorchLeft);
                break;
            case object_code::kTorchRight:
                attempt_.decorations.emplace_back(object.x, object.y, ItemKind::TorchRight);
                break;
            default: break;
        }
    }
}

// The order decides what an actor sees: a floor dug in this frame is a hole for the enemies at once, one that closes is
// a floor from the next frame on. A bonus that appears can be taken in the next frame.
void World::step() {
    ++frame_;
    attempt_.sounds.clear();
    updateDecorations();
    updateBonuses(attempt_, hero_);
    hero_.update(attempt_);
    updateEnemies();
    updateCells(attempt_.map, attempt_.frameCounts);
    checkEnd();
}

void World::updateDecorations() {
    for (AnimatedItem& decoration : attempt_.decorations) decoration.stepAnimation();
}

void World::updateEnemies() {
    for (Enemy& enemy : attempt_.enemies) enemy.update(attempt_);
    keepApart(attempt_.enemies);
    for (Enemy& enemy : attempt_.enemies) enemy.updateAnimation(attempt_.map);
}

// Every item is looked at once a frame of play, on the screen or off it.
void World::finishFrame(bool playing) {
    if (playing) {
        finishDecorations();
        for (auto& slot : attempt_.bonuses.slots)
            if (slot) slot->finishFrame(attempt_.frameCounts);
        hero_.updateFrame(attempt_);
    } else {
        attempt_.sounds.clear();
    }
    attempt_.popups.finishFrame();
}

void World::finishDecorations() {
    for (AnimatedItem& item : attempt_.decorations) {
        item.finishFrame(attempt_.frameCounts);
        const bool isNear = std::abs(hero_.cellX() - item.cellX()) <= kDropsHearing &&
                            std::abs(hero_.cellY() - item.cellY()) <= kDropsHearing;
        if (item.itemKind() == ItemKind::Drops && item.animationDone() && isNear) attempt_.sounds.play(SoundId::Water);
    }
}

HeroFrame World::heroFrame() const {
    const AnimationFrame shown = hero_.drawnFrame();
    return {hero_.x, hero_.y, shown.animation, shown.frame, attempt_.bonuses.invisibilityTimer > 0};
}

std::uint64_t World::stateHash() const {
    StateHash hash;
    hash.add(frame_);
    attempt_.addTo(hash);
    hero_.addTo(hash);
    return hash.value();
}

/// Later checks override the cause of earlier ones, and a later enemy that of an earlier one.
void World::checkEnd() {
    if (!hero_.isShielded()) checkCaught();
    checkWin();
    const MapCell* const cell = hero_.cellUnder(attempt_.map);
    if (cell != nullptr && cell->type == BlockType::Floor) attempt_.end(LossCause::Pit);
}

void World::checkCaught() {
    for (const Enemy& enemy : attempt_.enemies) {
        const bool isNear =
            std::abs(hero_.x - enemy.x) < kCatchDistance && std::abs(hero_.y - enemy.y) < kCatchDistance;
        if (isNear && enemy.state() != EnemyState::Dead) attempt_.end(enemy.traits().cause);
    }
}

void World::checkWin() {
    LevelMap& map = attempt_.map;
    if (map.keysRemaining() != 0 || !hero_.isAligned()) return;
    if (!map.cellAt(hero_.cellX(), hero_.cellY()).isExit) return;
    attempt_.end(LossCause::Won);
    attempt_.addScore(kWinScore, hero_.cellX(), hero_.cellY());
    map.clearCollectedKeys();
}

}  // namespace grub
