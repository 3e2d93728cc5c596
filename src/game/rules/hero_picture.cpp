// Which picture the hero shows.

#include "hero.h"

namespace grub {

using namespace hero_animation;

// Once the attempt is over he keeps his picture. The choice still runs in that frame, so that a dig can end in it, but
// asks for no sound.
void Hero::updatePicture(Attempt& attempt) {
    const SoundRequests askedBefore = attempt.sounds;
    AnimationFrame chosen = choosePicture(attempt);
    if (attempt.ended) {
        chosen = picture_;
        attempt.sounds = askedBefore;
    }
    if (idlePlaying_) chosen = picture_.continuedBy(sided(kStandLeft, kStandRight));
    picture_ = chosen;
    if (chosen.frame >= attempt.frameCounts.of(shownPicture().animation)) {
        picture_.frame = 0;
        idlePlaying_ = false;
    }
}

AnimationFrame Hero::choosePicture(Attempt& attempt) {
    if (vy != 0) return movingUpright(attempt);
    if (vx != 0) return movingSideways(attempt);
    return digging_ ? digging(attempt.frameCounts) : resting(attempt.map);
}

AnimationFrame Hero::shownPicture() const {
    if (shielded_) {
        for (const ShieldVariant& variant : kShieldVariants)
            if (variant.base == picture_.animation) return {variant.shielded, picture_.frame};
    }
    return picture_;
}

// Going either way he looks at the pipe to his right. Each round of the strip is heard, from the picture after its
// first.
AnimationFrame Hero::movingSideways(Attempt& attempt) const {
    const bool hanging = attempt.map.hangsAt(cellX(), cellY()) || attempt.map.hangsAt(cellX() + 1, cellY());
    const bool left = vx < 0;
    if (picture_.frame == 0) attempt.sounds.play(hanging ? SoundId::PipeSteps : SoundId::Steps);
    return hanging ? picture_.continuedBy(left ? kHangLeft : kHangRight)
                   : picture_.continuedBy(left ? kWalkLeft : kWalkRight);
}

AnimationFrame Hero::movingUpright(Attempt& attempt) const {
    if (vy > 0 && !attempt.map.canStand(cellX(), cellY(), View::Physical)) {
        if (picture_.animation != kFall) attempt.sounds.play(SoundId::Falling);
        return picture_.continuedBy(kFall);
    }
    if (picture_.frame == 0) attempt.sounds.play(SoundId::LadderSteps);
    return picture_.continuedBy(kClimb);
}

AnimationFrame Hero::resting(const LevelMap& map) const {
    if (map.hangsAt(cellX(), cellY())) return {sided(kHangLeft, kHangRight), 0};
    if (map.cellAt(cellX(), cellY()).type == BlockType::Ladder) return {kClimb, kClimbRestFrame};
    return picture_.continuedBy(sided(kStandLeft, kStandRight));
}

AnimationFrame Hero::digging(const AnimationFrameCounts& counts) {
    const AnimationFrame chosen = picture_.continuedBy(sided(kDigLeft, kDigRight));
    if (chosen.frame >= counts.of(chosen.animation) - 1) digging_ = false;
    return chosen;
}

}  // namespace grub
