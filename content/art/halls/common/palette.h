#pragma once

#include <array>

#include "material.h"

namespace grub {

/// The colours of one world; everything here that belongs to a world bears its name. Brightness climbs from backdrop
/// over floor, solid, ladder and pipe to the caps that are walked on.
struct WorldPalette {
    std::array<Rgb, 3> backdrop;
    Rgb backdropMortar;
    std::array<Rgb, 3> floor;
    Rgb floorMortar;
    Rgb cap;
    Rgb capShade;
    std::array<Rgb, 2> solid;
    Rgb ladder;
    Rgb pipe;
    Rgb accent;
    Rgb glow;
};

/// Turma, the stone prison.
inline constexpr WorldPalette kTurma{{rgb(0x323b61), rgb(0x2d365a), rgb(0x374068)},
                                     rgb(0x20274a),
                                     {rgb(0xb0735c), rgb(0xa0654f), rgb(0xbd8064)},
                                     rgb(0x4a2c3f),
                                     rgb(0xe8bd88),
                                     rgb(0xa8705a),
                                     {rgb(0x8b93ae), rgb(0x7b839f)},
                                     rgb(0xd9a255),
                                     rgb(0xd08a4c),
                                     rgb(0x7fd0c0),
                                     rgb(0xffb45a)};

/// Jelezo, the iron works.
inline constexpr WorldPalette kJelezo{{rgb(0x24444e), rgb(0x1f3a45), rgb(0x2a4d57)},
                                      rgb(0x10222c),
                                      {rgb(0xa85f4a), rgb(0x985340), rgb(0xb56d52)},
                                      rgb(0x3a2033),
                                      rgb(0xe3b79a),
                                      rgb(0x8d5b55),
                                      {rgb(0x93a9b4), rgb(0x8399a6)},
                                      rgb(0xdcb24c),
                                      rgb(0xb8cdd8),
                                      rgb(0xff8d4a),
                                      rgb(0xff8a3c)};

/// Podval, the cellar.
inline constexpr WorldPalette kPodval{{rgb(0x34362f), rgb(0x2f312a), rgb(0x3a3a31)},
                                      rgb(0x1c1d1c),
                                      {rgb(0x8f7450), rgb(0x826845), rgb(0x9c8159)},
                                      rgb(0x3a2b2c),
                                      rgb(0xa8c65c),
                                      rgb(0x5f7f3a),
                                      {rgb(0x8a8f80), rgb(0x7b8173)},
                                      rgb(0xc79a5e),
                                      rgb(0xc87d50),
                                      rgb(0xa8c65c),
                                      rgb(0xe8e07a)};

}  // namespace grub
