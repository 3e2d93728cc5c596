#include "grub_room.h"

namespace grub {

std::span<const StripDrawing> grubRoom() {
    static const auto strips = joined({grubStrips(), shieldStrips()});
    return strips;
}

}  // namespace grub
