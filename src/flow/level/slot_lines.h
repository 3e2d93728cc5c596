#pragma once

#include "kest_interface.h"
#include "save_slots.h"

namespace grub {

/// Draws what each slot holds into the text items "game_levels" and "game_time" of the current layout, moved by (`dx`,
/// `dy`) pixels.
void drawSlotLines(KestInterface& pages, const SaveSlots& slots, int dx, int dy);

}  // namespace grub
