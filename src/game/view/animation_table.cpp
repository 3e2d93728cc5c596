#include "animation_table.h"

#include <memory>

#include "log_file.h"
#include "rules.h"

namespace grub {

static_assert(kAnimationSlots == kAnimationIds, "the rules count frames of the same ids");

AnimationTable::~AnimationTable() {
    for (auto& slot : slots_) delete slot.load();
}

bool AnimationTable::add(const LoadEntry& entry) {
    const EngineString file(entry.path().c_str());
    return entry.kind == LoadEntry::Kind::Block
               ? addBlockAnimationFile(file, entry.id, entry.spriteNumber, entry.colourKey)
               : addAnimationFile(file, entry.id, entry.frameHeight, entry.transform, entry.colourKey);
}

bool AnimationTable::addAnimationFile(const EngineString& file, int id, std::uint16_t frameHeight,
                                      TextureTransform transform, Colour colourKey) {
    if (stopped_) return false;
    if (!source_.exists(file)) {
        missing_ = id;
        return false;
    }
    return addAnimationImage(source_.load(file), id, frameHeight, transform, colourKey);
}

bool AnimationTable::addBlockAnimationFile(const EngineString& file, int id, int spriteNumber, Colour colourKey) {
    if (stopped_ || !source_.exists(file)) return false;
    return addBlockAnimationImage(source_.load(file), id, spriteNumber, colourKey);
}

bool AnimationTable::addAnimationImage(const SharedBuffer& image, int id, std::uint16_t frameHeight,
                                       TextureTransform transform, Colour colourKey) {
    if (stopped_ || id < 0 || id >= kAnimationSlots) return false;
    auto strip = std::make_unique<FrameStrip>(image, frameHeight, transform);
    strip->setColourKey(colourKey);
    strip->acquire();
    if (!strip->fault().empty()) logLine("The picture file of animation %d: %s", id, strip->fault().c_str());
    // A strip that stood here may be in use; the loading list names each id once, so its place is empty.
    delete slots_[static_cast<std::size_t>(id)].exchange(strip.release(), std::memory_order_acq_rel);
    int count = count_.load();
    while (count < id + 1 && !count_.compare_exchange_weak(count, id + 1)) continue;
    return true;
}

bool AnimationTable::addBlockAnimationImage(const SharedBuffer& image, int id, int spriteNumber, Colour colourKey) {
    if (stopped_) return false;
    if (spriteNumber != kNoSpriteNumber) numbers_.addSpriteNumber(spriteNumber, static_cast<std::int16_t>(id));
    return addAnimationImage(image, id, kCellSize, TextureTransform::Identity, colourKey);
}

FrameStrip* AnimationTable::strip(int id) const {
    if (id < 0 || id >= kAnimationSlots) return nullptr;
    return slots_[static_cast<std::size_t>(id)].load(std::memory_order_acquire);
}

AnimationFrameCounts AnimationTable::frameCounts() const {
    AnimationFrameCounts counts;
    for (int id = 0; id < kAnimationSlots; ++id)
        if (const FrameStrip* found = strip(id)) counts.set(id, found->frameCount());
    return counts;
}

void AnimationTable::acquireAll() {
    for (int id = 0; id < kAnimationSlots; ++id)
        if (FrameStrip* found = strip(id)) found->acquire();
}

void AnimationTable::releaseAll() {
    for (int id = 0; id < kAnimationSlots; ++id)
        if (FrameStrip* found = strip(id)) found->release();
}

}  // namespace grub
