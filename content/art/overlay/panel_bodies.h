#pragma once

#include "canvas.h"

namespace grub {

/// What a panel is made of.
struct PanelBody {
    /// The rims of its recesses.
    Material rim;
    /// Fills 800 x 64 pixels and what lies around them.
    void (*draw)(Canvas& canvas);
};

/// Grey-brown rubble, for the first halls of turma and the last of podval.
extern const PanelBody kRoughStonePanel;
/// Dressed stone, with barred openings between the numbers.
extern const PanelBody kBarredPanel;
/// Oak planks under iron bands, for the way from the iron works to the cellar.
extern const PanelBody kOakPanel;
/// Riveted steel plates, for jelezo.
extern const PanelBody kRivetedPanel;

}  // namespace grub
