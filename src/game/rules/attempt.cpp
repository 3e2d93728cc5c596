#include "attempt.h"

#include "rules.h"
#include "state_hash.h"

namespace grub {

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
