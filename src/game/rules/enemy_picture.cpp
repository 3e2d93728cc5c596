// Which picture an enemy shows.

#include <algorithm>

#include "enemy.h"

namespace grub {

namespace {

/// Pictures of an enemy's strip, whatever the loaded strip has.
constexpr int kStripFrames = 8;
/// Pictures of the rat's two short strips, in and out of a hole.
constexpr int kRatHoleFrames = 4;
/// Frames each picture stays, less one.
constexpr int kPictureDelay = 1;

}  // namespace

void Enemy::updateAnimation(const LevelMap& map) {
    if (isOutsideMap(map)) return die();
    if (frameDelay_ > 0) {
        --frameDelay_;
        return;
    }
    frameDelay_ = kPictureDelay;
    const bool isInHole = state_ == EnemyState::Trapped || state_ == EnemyState::Escaping;
    picture_ = isInHole ? inHole() : moving(map);
    if (picture_.frame >= kStripFrames) picture_.frame = 0;
}

int Enemy::sided(EnemyAnimations::Pair pair) const {
    return direction_ == EnemyDirection::Right ? pair.right : pair.left;
}

// Going either way it looks at the pipe to its right.
bool Enemy::isHanging(const LevelMap& map) const {
    return map.hangsAt(cellX(), cellY()) || map.hangsAt(cellX() + 1, cellY());
}

AnimationFrame Enemy::moving(const LevelMap& map) const {
    const EnemyAnimations& strips = animationsOf(kind_);
    if (vy != 0) {
        const bool falls = vy > 0 && !isSupported(map);
        return picture_.continuedBy(sided(falls ? strips.still : strips.climb));
    }
    const EnemyAnimations::Pair hang = strips.pipe;
    const bool hanging = isHanging(map);
    if (vx == 0) return {sided(hanging ? hang : strips.still), 0};
    const EnemyAnimations::Pair way = hanging ? hang : strips.walk;
    return picture_.continuedBy(vx < 0 ? way.left : way.right);
}

/// Falling in and climbing out hold their last picture.
AnimationFrame Enemy::inHole() const {
    const EnemyAnimations& strips = animationsOf(kind_);
    AnimationFrame shown = picture_.continuedBy(sided(state_ == EnemyState::Trapped ? strips.trapped : strips.escape));
    const int count = kind_ == EnemyKind::Rat ? kRatHoleFrames : kStripFrames;
    shown.frame = std::min(shown.frame, count - 1);
    return shown;
}

}  // namespace grub
