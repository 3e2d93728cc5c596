#include "attempt.h"

#include "rules.h"

namespace grub {

void Attempt::addScore(int points, int /*cx*/, int /*cy*/) { score += points; }

void Attempt::rewardKey(int cx, int cy) {
    addScore(kKeyScore, cx, cy);
    sounds.play(map.keysRemaining() == 0 ? SoundId::OpenDoor : SoundId::GetKey);
}

void Attempt::end(LossCause why) {
    ended = true;
    cause = why;
}

}  // namespace grub
