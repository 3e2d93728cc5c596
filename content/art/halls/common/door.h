#pragma once

#include <cstdint>

#include "strip.h"

namespace grub {

/// The opening of a door and the frame around it.
enum class DoorShape { Arch, Square };

/// A door of one cell, drawn up to open. The doors of a world stand in its own folder.
struct DoorKind {
    /// The stone or steel around the opening.
    Material frame;
    Material leaf;
    /// The leaf in the opening, which is 43 px wide and begins at row 12.
    void (*drawLeaf)(Canvas& canvas, const Material& leaf, const Mask& opening);
    DoorShape shape;
    /// Light falls through the leaf while it is shut.
    bool seeThrough = false;
};

/// Rough stone for a frame.
constexpr Material doorStone(Rgb colour) {
    Material stone = stony(colour, 0.8F, 0.1F, 0.2F);
    stone.rim = 0.25F;
    return stone;
}

/// Planks for a leaf.
constexpr Material doorWood(std::uint32_t base, std::uint32_t shadow, std::uint32_t light) {
    Material wood = glossy(material(base, shadow, light), 0.2F);
    wood.bump = 0.35F;
    wood.grain = 0.1F;
    return wood;
}

/// Leaves that more than one world has: planks under two iron bands, and bars with points.
void drawPlankLeaf(Canvas& canvas, const Material& leaf, const Mask& opening);
void drawBarLeaf(Canvas& canvas, const Material& leaf, const Mask& opening);

/// A door without a lamp; `open` is 0 shut, 1 drawn up.
void drawDoorway(Canvas& canvas, const DoorKind& kind, double open);

/// An exit: a door under a lamp, red while `open` is 0, green from then on.
void drawExit(Canvas& canvas, const DoorKind& kind, double open);

/// Frames in which an exit opens.
inline constexpr int kOpening = 10;

// ---- the same for the rows of a table

/// An exit that opens, from shut in the first frame to open in the last.
template <const DoorKind& Kind>
void drawOpening(Canvas& canvas, FrameOf frame) {
    drawExit(canvas, Kind, frame.progress());
}

/// An exit that stays shut.
template <const DoorKind& Kind>
void drawShut(Canvas& canvas, FrameOf) {
    drawExit(canvas, Kind, 0);
}

}  // namespace grub
