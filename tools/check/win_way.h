#pragma once

#include <vector>

#include "map_cell.h"
#include "world.h"

namespace grub {

/// Where a win goes, as far as it makes it another win.
struct WinWay {
    std::vector<CellPosition> keys;  ///< in the order in which he takes them
    std::vector<CellPosition> digs;  ///< the floors that he breaks, in order
};

/// Whether two wins take the keys in the same order and dig the same cells.
[[nodiscard]] bool isSameWay(const WinWay& one, const WinWay& other);

/// Notes the way of a game: sees the world after each game frame.
class WayWatcher {
public:
    /// The world after a frame.
    void look(const World& world);
    /// The way so far.
    [[nodiscard]] const WinWay& way() const { return way_; }

private:
    WinWay way_;
    bool wasDigging_ = false;
};

}  // namespace grub
