#include "things_room.h"

namespace grub {

std::span<const StripDrawing> thingsRoom() {
    static const auto strips = joined({thingStrips(), digitStrips()});
    return strips;
}

}  // namespace grub
