#include "table_source.h"

#include "loading_list.h"

namespace grub {

void addListedSpriteNumbers(SpriteNumbers& numbers) {
    for (const LoadEntry& entry : loadingList())
        if (entry.spriteNumber != kNoSpriteNumber)
            numbers.addSpriteNumber(entry.spriteNumber, static_cast<std::int16_t>(entry.id));
}

}  // namespace grub
