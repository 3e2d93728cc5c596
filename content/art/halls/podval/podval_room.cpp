#include "podval_room.h"

namespace grub {

std::span<const StripDrawing> podvalRoom() {
    static const auto strips = joined({podvalWallStrips(), podvalFloorStrips(), podvalSolidStrips(), podvalDoorStrips(),
                                       podvalWallPipeStrips(), podvalDecorStrips()});
    return strips;
}

}  // namespace grub
