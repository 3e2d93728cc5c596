#include "sprite_numbers.h"

#include <algorithm>

#include "rules.h"

namespace grub {

void SpriteNumbers::addSpriteNumber(std::int32_t number, std::int16_t animationId) {
    const std::lock_guard guard(lock_);
    if (pairs_.size() < kMaxSpriteNumbers) pairs_.push_back({number, animationId});
}

std::int16_t SpriteNumbers::spriteIdOf(std::int32_t number) const {
    const std::lock_guard guard(lock_);
    const auto found = std::ranges::find(pairs_, number, &Pair::number);
    return found == pairs_.end() ? kUnknown : found->animationId;
}

}  // namespace grub
