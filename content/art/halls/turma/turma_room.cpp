#include "turma_room.h"

namespace grub {

std::span<const StripDrawing> turmaRoom() {
    static const auto strips = joined({turmaWallStrips(), turmaDecorStrips()});
    return strips;
}

}  // namespace grub
