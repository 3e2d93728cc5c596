#include "stream_slots.h"

#include <mutex>

#include "dsound_buffer.h"

namespace grub {

std::optional<std::size_t> StreamSlots::findFree() {
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::lock_guard lock(slots_[i].lock);
        if (slots_[i].sound == nullptr) return i;
    }
    return std::nullopt;
}

void StreamSlots::take(std::size_t slot, DSoundBuffer& sound, bool loop) {
    Slot& taken = slots_[slot];
    const std::lock_guard lock(taken.lock);
    taken.sound = &sound;
    taken.dueHalf = 0;
    taken.looping = loop;
    taken.ending = false;
}

void StreamSlots::release(const DSoundBuffer& sound) {
    for (Slot& slot : slots_) {
        const std::lock_guard lock(slot.lock);
        if (slot.sound == &sound) slot.sound = nullptr;
    }
}

void StreamSlots::stopAll() {
    for (Slot& slot : slots_) {
        const std::lock_guard lock(slot.lock);
        if (slot.sound != nullptr) slot.sound->halt();
        slot.sound = nullptr;
    }
}

void StreamSlots::refill(std::size_t index) {
    Slot& slot = slots_[index];
    const std::lock_guard lock(slot.lock);
    if (slot.sound == nullptr || slot.sound->hasJustEntered(slot.dueHalf)) return;
    if (slot.ending) {
        slot.sound->halt();
        slot.sound = nullptr;
        return;
    }
    slot.ending = !slot.sound->fillHalf(slot.dueHalf, slot.looping);
    slot.dueHalf ^= 1;
}

}  // namespace grub
