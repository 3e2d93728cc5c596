#include "actor.h"

#include <array>
#include <cassert>

#include "animation_id.h"
#include "state_hash.h"

namespace grub {

const MapCell* Actor::cellUnder(const LevelMap& map) const {
    return isOutsideMap(map) ? nullptr : &map.cellAt(cellX(), cellY());
}

bool Actor::isBeyondPixels(const LevelMap& map) const {
    return x > (map.width() - 1) * kCellSize || y > (map.height() - 1) * kCellSize || x < 0 || y < 0;
}

void Actor::move(const LevelMap& map) {
    previousX = x;
    previousY = y;
    x += vx;
    y += vy;
    if (isBeyondPixels(map)) undoMove();
}

void Actor::undoMove() {
    x = previousX;
    y = previousY;
    vx = 0;
    vy = 0;
}

void Actor::addTo(StateHash& hash) const { hash.add(previousX, previousY, x, y, vx, vy); }

namespace {

struct ItemLook {
    ItemKind kind;
    int animation;
    int frameDelay;  // game frames for which each strip frame stays, less one
};

constexpr std::array kItemLooks{
    ItemLook{ItemKind::Heart, animation::kHeart, 2},
    ItemLook{ItemKind::Invisibility, animation::kInvisibility, 1},
    ItemLook{ItemKind::Anchor, animation::kAnchor, 1},
    ItemLook{ItemKind::Shield, animation::kShieldBonus, 1},
    ItemLook{ItemKind::Bomb, animation::kBomb, 1},
    ItemLook{ItemKind::Skull, animation::kSkull, 1},
    ItemLook{ItemKind::TorchLeft, animation::kTorchLeft, 5},
    ItemLook{ItemKind::TorchRight, animation::kTorchRight, 5},
    ItemLook{ItemKind::Drops, animation::kDrops, 2},
};

constexpr const ItemLook& lookOf(ItemKind kind) {
    for (const ItemLook& look : kItemLooks)
        if (look.kind == kind) return look;
    assert(false);
    return kItemLooks[0];
}

}  // namespace

AnimatedItem::AnimatedItem(int cx, int cy, ItemKind kind)
    : kind_(kind), stripFrame_{lookOf(kind).animation, 0}, frameDelayReload_(lookOf(kind).frameDelay) {
    setCell(cx, cy);
}

void AnimatedItem::stepAnimation() {
    if (!playing_) {
        stripFrame_.frame = 0;
        frameDelay_ = frameDelayReload_;
        playing_ = true;
        return;
    }
    --frameDelay_;
    if (frameDelay_ < 0) {
        ++stripFrame_.frame;
        frameDelay_ = frameDelayReload_;
    }
    if (animationDone_) playing_ = false;
}

void AnimatedItem::finishFrame(const AnimationFrameCounts& counts) {
    animationDone_ = stripFrame_.frame + 1 >= counts.of(stripFrame_.animation) && frameDelay_ == 0;
}

void AnimatedItem::addTo(StateHash& hash) const {
    Actor::addTo(hash);
    hash.add(kind_, stripFrame_.animation, stripFrame_.frame, frameDelay_, playing_, animationDone_);
}

}  // namespace grub
