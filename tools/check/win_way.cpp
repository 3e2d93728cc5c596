#include "win_way.h"

#include <algorithm>

namespace grub {

bool isSameWay(const WinWay& one, const WinWay& other) {
    const auto digsAllOf = [](const WinWay& way, const WinWay& those) {
        return std::ranges::all_of(
            those.digs, [&](CellPosition cell) { return std::ranges::find(way.digs, cell) != way.digs.end(); });
    };
    return one.keys == other.keys && digsAllOf(one, other) && digsAllOf(other, one);
}

void WayWatcher::look(const World& world) {
    const Hero& hero = world.hero();
    const int side = hero.facing() == Facing::Left ? -1 : 1;
    if (hero.isDigging() && !wasDigging_) way_.digs.push_back({hero.cellX() + side, hero.cellY() + 1});
    wasDigging_ = hero.isDigging();
    // Only what is new: a world that is won has forgotten its keys.
    const auto taken = world.collectedKeys();
    for (std::size_t i = way_.keys.size(); i < taken.size(); ++i) way_.keys.push_back(taken[i]);
}

}  // namespace grub
