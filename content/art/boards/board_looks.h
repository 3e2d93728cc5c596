#pragma once

#include "board.h"
#include "material.h"

namespace grub {

/// The colours that all boards share: lines and dark letters, light letters, titles.
inline constexpr Rgb kBoardInk = rgb(0x2e1f33);
inline constexpr Rgb kBoardCream = rgb(0xfff1cf);
inline constexpr Rgb kBoardGold = rgb(0xffc93a);

/// A surface of a board: its line is ink.
constexpr Material boardMaterial(std::uint32_t base, std::uint32_t shadow, std::uint32_t light, float gloss, float rim,
                                 float bump, float grain) {
    Material m = glossy(material(base, shadow, light), gloss, rim);
    m.ink = kBoardInk;
    m.bump = bump;
    m.grain = grain;
    return m;
}

//                                                        base      shadow    light     gloss  rim    bump   grain
inline constexpr Material kPlankWood = boardMaterial(0x7a4a2c, 0x40232a, 0xb27c48, 0.20F, 0.30F, 0.12F, 0.035F);
inline constexpr Material kTanWood = boardMaterial(0xd9a765, 0x9a6545, 0xf6d79c, 0.20F, 0.30F, 0.10F, 0.025F);
inline constexpr Material kGoldPlate = boardMaterial(0xffc93a, 0xc9741f, 0xfff2ae, 0.75F, 0.50F, 0.00F, 0.000F);
inline constexpr Material kNoticePaper = boardMaterial(0xf1dfb8, 0xc39f72, 0xfff7e0, 0.00F, 0.10F, 0.06F, 0.018F);
inline constexpr Material kCaptionStrap = boardMaterial(0xffe2a0, 0xcb9148, 0xfff6d8, 0.00F, 0.15F, 0.00F, 0.010F);
inline constexpr Material kBalloonSkin = boardMaterial(0xfffaf0, 0xc9c3dc, 0xffffff, 0.00F, 0.00F, 0.00F, 0.000F);
inline constexpr Material kSlate = boardMaterial(0x2b2f4a, 0x151730, 0x59608a, 0.15F, 0.20F, 0.10F, 0.040F);
inline constexpr Material kIron = boardMaterial(0x8d97ad, 0x3c4260, 0xe4ecf6, 0.80F, 0.40F, 0.00F, 0.000F);

/// The colour that letters on the board must stand out from.
constexpr Rgb groundOf(BoardKind kind) {
    switch (kind) {
        case BoardKind::Plank: return kPlankWood.base;
        case BoardKind::Tray: return kPlankWood.shadow;
        case BoardKind::Gold: return kGoldPlate.base;
        case BoardKind::Tan: return kTanWood.base;
        case BoardKind::Paper:
        case BoardKind::Hint: return kNoticePaper.base;
        case BoardKind::Caption: return kCaptionStrap.base;
        case BoardKind::Balloon: return kBalloonSkin.base;
        case BoardKind::Slate: return kSlate.base;
        case BoardKind::Wall: return rgb(0x2d365a);
        case BoardKind::Night: return rgb(0x1b2038);
    }
    return {};
}

}  // namespace grub
