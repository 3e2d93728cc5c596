#include "slot_lines.h"

namespace grub {

void drawSlotLines(KestInterface& pages, const SaveSlots& slots, int dx, int dy) {
    for (int slot = 0; slot < kSaveSlots; ++slot) {
        const SaveSlotInfo& info = slots.info(slot);
        pages.drawText("game_levels", info.exists ? info.levelLabel : "EMPTY", dx, dy, slot);
        if (info.exists) pages.drawText("game_time", info.dateTimeLabel, dx, dy, slot);
    }
}

}  // namespace grub
