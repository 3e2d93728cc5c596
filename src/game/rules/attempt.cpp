#include "attempt.h"

#include "rules.h"
#include "state_hash.h"

namespace grub {

void ScorePopups::add(int points, int cx, int cy) {
    for (ScorePopup& entry : entries_) {
        if (entry.ttl >= 1) continue;
        entry = {cx * kCellSize + kHalfCell, cy * kCellSize + kHalfCell, points, kPopupFrames, false};
        return;
    }
}

void ScorePopups::finishFrame() {
    for (ScorePopup& entry : entries_) {
        entry.shown = entry.ttl > 0;
        if (!entry.shown) continue;
        --entry.ttl;
        --entry.y;
    }
}

void Attempt::addScore(int points, int cx, int cy) {
    score += points;
    popups.add(points, cx, cy);
}

void Attempt::rewardKey(int cx, int cy) {
    addScore(kKeyScore, cx, cy);
    sounds.play(map.keysRemaining() == 0 ? SoundId::OpenDoor : SoundId::GetKey);
}

void Attempt::end(LossCause why) {
    ended = true;
    cause = why;
}

void Attempt::addTo(StateHash& hash) const {
    map.addTo(hash);
    hash.add(random.state(), levelIndex, score, lives, ended, cause, enemies.size(), decorations.size());
    for (const Enemy& enemy : enemies) enemy.addTo(hash);
    for (const AnimatedItem& item : decorations) item.addTo(hash);
    bonuses.addTo(hash);
}

}  // namespace grub
