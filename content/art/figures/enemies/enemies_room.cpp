#include "enemies_room.h"

namespace grub {

std::span<const StripDrawing> enemiesRoom() {
    static const auto strips = joined({dogStrips(), ladyStrips(), ratStrips()});
    return strips;
}

}  // namespace grub
