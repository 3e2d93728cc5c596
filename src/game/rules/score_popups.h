#pragma once

#include <array>

#include "rules.h"

namespace grub {

/// The points of a moment, rising from where they were earned.
struct ScorePopup {
    int x = 0;  // pixels in the level
    int y = 0;  // where the next picture shows it
    int value = 0;
    int ttl = 0;         // pictures it still has; below 1 the entry is free
    bool shown = false;  // in the picture of this frame, one pixel below `y`

    friend bool operator==(const ScorePopup&, const ScorePopup&) = default;
};

/// The rising numbers. They live with the pictures of a level, behind dialogs too, and play does not depend on them.
class ScorePopups {
public:
    /// Shows points at a cell; nothing when every entry is in use.
    void add(int points, int cx, int cy);
    /// The pictures of one frame: whoever lives is shown, then rises and grows older.
    void finishFrame();
    /// All entries, for drawing those that are `shown`.
    [[nodiscard]] const std::array<ScorePopup, kPopupCount>& entries() const { return entries_; }

    friend bool operator==(const ScorePopups&, const ScorePopups&) = default;

private:
    std::array<ScorePopup, kPopupCount> entries_{};
};

}  // namespace grub
