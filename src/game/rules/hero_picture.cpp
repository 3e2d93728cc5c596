#include "hero.h"

namespace grub {

using namespace hero_animation;

namespace {

/// Whether an actor in this cell hangs on a pipe with nothing under him.
bool hangsAt(const LevelMap& map, int cx, int cy) {
    return map.isPipe(cx, cy) && !map.canStand(cx, cy, View::Physical);
}

/// Whether the picture is the first of its strip, also by coming round again.
bool startsCycle(AnimationFrame chosen, const AnimationFrameCounts& counts) {
    return chosen.frame == 0 || chosen.frame >= counts.of(chosen.animation);
}

}  // namespace

void Hero::updatePicture(Attempt& attempt) {
    AnimationFrame chosen{kNeutral, 0};
    if (vx != 0) chosen = movingSideways(attempt);
    if (vy != 0) chosen = movingUpright(attempt);
    if (vx == 0 && vy == 0) chosen = digging_ ? digging(attempt.frameCounts) : standing(attempt.map);
    if (attempt.ended) chosen = picture_;
    if (idlePlaying_) chosen = continued(sided(kStandLeft, kStandRight));
    if (chosen.frame >= attempt.frameCounts.of(chosen.animation)) {
        chosen.frame = 0;
        idlePlaying_ = false;
    }
    picture_ = chosen;
}

/// The next frame of an animation that is running, the first of another one.
AnimationFrame Hero::continued(int animation) const {
    return {animation, animation == picture_.animation ? picture_.frame + 1 : 0};
}

// Going either way he looks at the pipe to his right.
AnimationFrame Hero::movingSideways(Attempt& attempt) const {
    const bool hanging = hangsAt(attempt.map, cellX(), cellY()) || hangsAt(attempt.map, cellX() + 1, cellY());
    const bool left = vx < 0;
    const AnimationFrame chosen =
        hanging ? continued(left ? kHangLeft : kHangRight) : continued(left ? kWalkLeft : kWalkRight);
    if (startsCycle(chosen, attempt.frameCounts)) attempt.sounds.play(hanging ? SoundId::PipeSteps : SoundId::Steps);
    return chosen;
}

AnimationFrame Hero::movingUpright(Attempt& attempt) const {
    if (vy > 0 && !attempt.map.canStand(cellX(), cellY(), View::Physical)) {
        if (picture_.animation != kFall) attempt.sounds.play(SoundId::Falling);
        return continued(kFall);
    }
    const AnimationFrame chosen = continued(kClimb);
    if (startsCycle(chosen, attempt.frameCounts)) attempt.sounds.play(SoundId::LadderSteps);
    return chosen;
}

AnimationFrame Hero::standing(const LevelMap& map) const {
    if (hangsAt(map, cellX(), cellY())) return {sided(kHangLeft, kHangRight), 0};
    if (map.cellAt(cellX(), cellY()).type == BlockType::Ladder) return {kClimb, kClimbRestFrame};
    return continued(sided(kStandLeft, kStandRight));
}

AnimationFrame Hero::digging(const AnimationFrameCounts& counts) {
    const AnimationFrame chosen = continued(sided(kDigLeft, kDigRight));
    if (chosen.frame >= counts.of(chosen.animation) - 1) digging_ = false;
    return chosen;
}

}  // namespace grub
