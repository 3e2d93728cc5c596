#include "common_room.h"

namespace grub {

std::span<const StripDrawing> commonRoom() {
    static const auto strips = joined({wireStrips(), lightStrips()});
    return strips;
}

}  // namespace grub
