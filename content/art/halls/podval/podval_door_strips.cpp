#include "podval_room.h"

#include <array>

#include "door.h"
#include "palette.h"

namespace grub {

namespace {

constexpr auto kRust = glossy(material(0x8f5a40, 0x43263a, 0xd09068), 0.3F);
constexpr DoorKind kWoodArch{doorStone(kPodval.solid[0]), doorWood(0x7a6038, 0x3a2c2c, 0xb89a60), drawPlankLeaf,
                             DoorShape::Arch};
constexpr DoorKind kWoodSquare{doorStone(kPodval.solid[1]), doorWood(0x746a5e, 0x37303a, 0xa89c8c), drawPlankLeaf,
                               DoorShape::Square};
constexpr DoorKind kBarArch{doorStone(kPodval.solid[0]), kRust, drawBarLeaf, DoorShape::Arch, true};
constexpr DoorKind kBarSquare{doorStone(kPodval.solid[1]), kDarkMetal, drawBarLeaf, DoorShape::Square, true};

constexpr std::array kStrips{
    //            name                 px  px frames
    StripDrawing{"dveri\\dverfin1", 64, 64, kOpening, Ground::Clear, drawOpening<kWoodArch>},
    StripDrawing{"dveri\\dverfin2", 64, 64, kOpening, Ground::Clear, drawOpening<kWoodSquare>},
    StripDrawing{"dveri\\dverfin3", 64, 64, kOpening, Ground::Clear, drawOpening<kBarArch>},
    StripDrawing{"dveri\\dverfin4", 64, 64, kOpening, Ground::Clear, drawOpening<kBarSquare>},
    StripDrawing{"dveri\\dverfin2-red", 64, 64, 1, Ground::Clear, drawShut<kWoodSquare>},
};

}  // namespace

std::span<const StripDrawing> podvalDoorStrips() { return kStrips; }

}  // namespace grub
