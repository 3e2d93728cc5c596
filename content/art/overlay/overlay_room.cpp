#include "overlay_room.h"

namespace grub {

std::span<const StripDrawing> overlayRoom() {
    static const auto strips = joined({panelStrips(), transitionStrips()});
    return strips;
}

}  // namespace grub
