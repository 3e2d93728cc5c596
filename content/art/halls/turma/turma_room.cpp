#include "turma_room.h"

namespace grub {

std::span<const StripDrawing> turmaRoom() {
    static const auto strips =
        joined({turmaWallStrips(), turmaFloorStrips(), turmaSolidStrips(), turmaClimbingStrips(), turmaDoorStrips(),
                turmaWallPipeStrips(), turmaTorchStrips(), turmaDecorStrips()});
    return strips;
}

}  // namespace grub
