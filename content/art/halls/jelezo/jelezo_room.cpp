#include "jelezo_room.h"

namespace grub {

std::span<const StripDrawing> jelezoRoom() {
    static const auto strips =
        joined({jelezoWallStrips(), jelezoFloorStrips(), jelezoSolidStrips(), jelezoClimbingStrips(),
                jelezoDoorStrips(), jelezoWallPipeStrips(), jelezoDecorStrips()});
    return strips;
}

}  // namespace grub
