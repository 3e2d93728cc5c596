#include "actor.h"

#include <array>
#include <cassert>

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
    ItemLook{ItemKind::Heart, 129, 2},     ItemLook{ItemKind::Invisibility, 142, 1}, ItemLook{ItemKind::Anchor, 143, 1},
    ItemLook{ItemKind::Shield, 131, 1},    ItemLook{ItemKind::Bomb, 141, 1},         ItemLook{ItemKind::Skull, 163, 1},
    ItemLook{ItemKind::TorchLeft, 126, 5}, ItemLook{ItemKind::TorchRight, 127, 5},   ItemLook{ItemKind::Drops, 128, 2},
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
