#include "jelezo_room.h"

#include <array>

#include "common_parts.h"
#include "door.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

/// Two riveted plates with a wheel between them.
void drawPlateLeaf(Canvas& canvas, const Material& leaf, const Mask& opening) {
    const PartStyle edge{.bevel = 3, .line = 0.9, .shadow = 0.15F, .clip = &opening};
    for (const double x : {8.0, 32.3}) canvas.part(rectangle(x, -4, 23.7, 72, 1.6), leaf, edge);
    for (const double x : {13.5, 28.0, 36.0, 50.5}) {
        for (const double y : {18.0, 29.0, 47.0, 58.0})
            canvas.part(circle({x, y}, 1.4), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F, .clip = &opening});
    }
    const PartStyle spoke{.bevel = 1.2, .line = 0.9, .stroke = 2.6, .clip = &opening};
    canvas.part(polyline({{24.4, 38}, {39.6, 38}}), kMetal, spoke);
    canvas.part(polyline({{32, 30.4}, {32, 45.6}}), kMetal, spoke);
    canvas.part(ring({32, 38}, 9, 6), kMetal, {.bevel = 1.5, .line = 1, .clip = &opening});
}

constexpr auto kSteel = glossy(material(0x6d8792, 0x2d4252, 0xb8ced6), 0.5F);
constexpr auto kBrass = glossy(material(0x8a6f4a, 0x40303a, 0xd8b070), 0.7F);
constexpr auto kRust = glossy(material(0x8f5a40, 0x43263a, 0xd09068), 0.3F);
constexpr DoorKind kSteelArch{doorStone(kJelezo.solid[0]), kSteel, drawPlateLeaf, DoorShape::Arch};
constexpr DoorKind kRustSquare{doorStone(kJelezo.solid[1]), kRust, drawPlateLeaf, DoorShape::Square};
constexpr DoorKind kBarArch{doorStone(kJelezo.solid[0]), kSteel, drawBarLeaf, DoorShape::Arch, true};
constexpr DoorKind kBarSquare{doorStone(kJelezo.solid[1]), kBrass, drawBarLeaf, DoorShape::Square, true};

/// A quarter of a gate of two by two cells that is only looked at: it has no lamp.
template <int Column, int Row>
void drawGate(Canvas& canvas, FrameOf) {
    const auto large = canvas.placed({-kCellSize * Column, -kCellSize * Row}, 0, 2, 2);
    drawDoorway(canvas, kRustSquare, 0);
}

constexpr std::array kStrips{
    //            name                 px  px frames
    StripDrawing{"dveri\\animation_door_iron_01", 64, 64, kOpening, Ground::Clear, drawOpening<kSteelArch>},
    StripDrawing{"dveri\\animation_door_iron_02", 64, 64, kOpening, Ground::Clear, drawOpening<kRustSquare>},
    StripDrawing{"dveri\\animation_door_iron_03", 64, 64, kOpening, Ground::Clear, drawOpening<kBarArch>},
    StripDrawing{"dveri\\animation_door_iron_04", 64, 64, kOpening, Ground::Clear, drawOpening<kBarSquare>},
    StripDrawing{"dveri\\d11", 64, 64, 1, Ground::Joined, drawGate<0, 0>},
    StripDrawing{"dveri\\d12", 64, 64, 1, Ground::Joined, drawGate<1, 0>},
    StripDrawing{"dveri\\d21", 64, 64, 1, Ground::Joined, drawGate<0, 1>},
    StripDrawing{"dveri\\d22", 64, 64, 1, Ground::Joined, drawGate<1, 1>},
};

}  // namespace

std::span<const StripDrawing> jelezoDoorStrips() { return kStrips; }

}  // namespace grub
