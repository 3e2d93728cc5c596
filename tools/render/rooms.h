#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "figure_drawing.h"
#include "strip.h"

namespace grub {

/// A folder of content/art: the strips that the build draws in one step.
struct Room {
    std::string_view name;
    std::span<const StripDrawing> (*strips)();
};

/// All rooms; no two have a strip in common.
std::span<const Room> rooms();

/// The room of that name, or null.
const Room* findRoom(std::string_view name);

/// The figures that pages can show.
std::span<const FigureDrawing* const> figures();

/// The figure of that name, or null.
const FigureDrawing* findFigure(std::string_view name);

/// The strips of all rooms.
const std::vector<StripDrawing>& allStrips();

/// The strip of that name, or null.
const StripDrawing* findStrip(std::string_view name);

}  // namespace grub
