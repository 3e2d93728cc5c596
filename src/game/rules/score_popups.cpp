#include "score_popups.h"

namespace grub {

void ScorePopups::add(int points, int cx, int cy) {
    for (ScorePopup& entry : entries_) {
        if (entry.ttl >= 1) continue;
        entry = {cx * kCellSize + kHalfCell, cy * kCellSize + kHalfCell, points, kPopupFrames, false};
        return;
    }
}

void ScorePopups::finishFrame() {
    for (ScorePopup& entry : entries_) {
        entry.shown = entry.ttl > 0;
        if (!entry.shown) continue;
        --entry.ttl;
        --entry.y;
    }
}

}  // namespace grub
