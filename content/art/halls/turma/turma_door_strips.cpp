#include "turma_room.h"

#include <array>

#include "door.h"
#include "palette.h"

namespace grub {

namespace {

constexpr auto kBrass = glossy(material(0x8a6f4a, 0x40303a, 0xd8b070), 0.7F);
constexpr DoorKind kWoodArch{doorStone(kTurma.solid[0]), doorWood(0x8a4f34, 0x48263a, 0xc98450), drawPlankLeaf,
                             DoorShape::Arch};
constexpr DoorKind kWoodSquare{doorStone(kTurma.solid[1]), doorWood(0x6b3d3a, 0x351f36, 0xa8705a), drawPlankLeaf,
                               DoorShape::Square};
constexpr DoorKind kBarArch{doorStone(kTurma.solid[0]), kDarkMetal, drawBarLeaf, DoorShape::Arch, true};
constexpr DoorKind kBarSquare{doorStone(kTurma.solid[1]), kBrass, drawBarLeaf, DoorShape::Square, true};

constexpr std::array kStrips{
    //            name                 px  px frames
    StripDrawing{"dveri\\door_a", 64, 64, kOpening, Ground::Clear, drawOpening<kWoodArch>},
    StripDrawing{"dveri\\door_b", 64, 64, kOpening, Ground::Clear, drawOpening<kWoodSquare>},
    StripDrawing{"dveri\\door_c", 64, 64, kOpening, Ground::Clear, drawOpening<kBarArch>},
    StripDrawing{"dveri\\door_d", 64, 64, kOpening, Ground::Clear, drawOpening<kBarSquare>},
};

}  // namespace

std::span<const StripDrawing> turmaDoorStrips() { return kStrips; }

}  // namespace grub
