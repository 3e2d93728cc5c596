#pragma once

#include <span>
#include <string_view>

#include "canvas.h"

namespace grub {

/// A place that a page shows behind and around its figures. It holds no figures and no words.
struct SetDrawing {
    /// One word, as pages write it.
    std::string_view name;
    /// Its natural size, in pixels of the page.
    int width;
    int height;
    /// Fills `area`, whose corner lies at the origin, with what the place shows at its natural size: a smaller area
    /// shows its upper left part. It may draw beyond the area; drawSet cuts that off.
    void (*draw)(Canvas& canvas, const Rect& area);
    /// It lies in front of figures and leaves places clear.
    bool inFront = false;
};

/// Draws the set into `area` of the canvas; nothing of it shows outside.
void drawSet(Canvas& canvas, const SetDrawing& set, const Rect& area);

/// The sets of all pages; no two have the same name.
std::span<const SetDrawing> allSets();

/// The set of that name, or null.
const SetDrawing* findSet(std::string_view name);

// Its tables; each function stands in the file of its own name.

/// The walls behind the menus.
std::span<const SetDrawing> menuWallSets();

/// The night that the game opens with.
std::span<const SetDrawing> openingSets();

/// How Grub got in: his tunnel, the kitchen above it, the cell that they gave him.
std::span<const SetDrawing> tunnelSets();
std::span<const SetDrawing> kitchenSets();
std::span<const SetDrawing> cellSets();

/// How Grub digs on: the cell by moonlight, the corridor of the rats, the hall with a door.
std::span<const SetDrawing> prisonSets();

/// The iron works: where Grub falls in, the hole above him, the way down.
std::span<const SetDrawing> worksSets();

/// The end of the cellar.
std::span<const SetDrawing> cellarSets();

/// The meadow outside, at sunrise and at noon.
std::span<const SetDrawing> meadowSets();

/// Where an attempt ends: the dog's kitchen; walls on which shadows fall; a floor that has closed; an open door.
std::span<const SetDrawing> dogKitchenSets();
std::span<const SetDrawing> shadowWallSets();
std::span<const SetDrawing> closedFloorSets();
std::span<const SetDrawing> openDoorSets();

}  // namespace grub
