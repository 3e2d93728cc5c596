#include "world.h"

#include <algorithm>
#include <utility>

#include "terrain.h"

namespace grub {

World::World(LevelMap map, const WorldStart& start, const AnimationFrameCounts& counts)
    : attempt_{.map = std::move(map),
               .random = WorldRandom(start.seed),
               .frameCounts = counts,
               .sounds = {},
               .levelIndex = start.levelIndex,
               .score = start.score,
               .lives = start.lives},
      hero_(attempt_.map) {
    attempt_.map.withdrawCollectedKeys(start.collectedKeys);
}

// The order decides who sees what: a floor dug in this frame is a hole at once, one that closes is a floor from the
// next frame on.
void World::step() {
    ++frame_;
    attempt_.sounds.clear();
    hero_.update(attempt_);
    updateCells(attempt_.map, attempt_.frameCounts);
    checkEnd();
}

void World::finishFrame(bool playing) {
    if (playing) {
        hero_.updatePicture(attempt_);
    } else {
        attempt_.sounds.clear();
    }
}

HeroPicture World::heroPicture() const {
    const AnimationFrame shown = hero_.picture();
    const int last = std::max(attempt_.frameCounts.of(shown.animation) - 1, 0);
    return {hero_.x, hero_.y, shown.animation, std::min(shown.frame, last), false};
}

/// Later checks override the cause of earlier ones.
void World::checkEnd() {
    checkWin();
    const MapCell* const cell = hero_.cellUnder(attempt_.map);
    if (cell != nullptr && cell->type == BlockType::Floor) attempt_.end(LossCause::Pit);
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
