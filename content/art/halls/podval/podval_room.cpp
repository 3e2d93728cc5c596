#include "podval_room.h"

namespace grub {

std::span<const StripDrawing> podvalRoom() {
    static const auto strips = joined({podvalWallStrips(), podvalDecorStrips()});
    return strips;
}

}  // namespace grub
