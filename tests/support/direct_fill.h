#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "level_map.h"
#include "rules.h"

namespace grub {

/// The distance fill as it is defined: a recursion over the map's queries. What the game's own fill must agree with,
/// cell for cell, and what it must be faster than.
class DirectFill {
public:
    /// The map must outlive this; changes of it count at once.
    explicit DirectFill(const LevelMap& map)
        : map_(map),
          distances_(static_cast<std::size_t>(map.width()) * static_cast<std::size_t>(map.height()), kNone) {}

    /// As LevelMap::resetDistances and fillDistances.
    void reset() { std::ranges::fill(distances_, kNone); }
    void fill(int x, int y, int distance) {  // NOLINT(misc-no-recursion)
        if (!map_.isPassable(x, y, View::Planned)) return;
        int& known = distances_[indexOf(x, y)];
        if (known != kNone && distance - known >= -kDistanceTolerance) return;
        known = distance;
        if (y > 0 && map_.isPassable(x, y - 1, View::Planned)) fill(x, y - 1, distance + 1);
        if (y < map_.height() - 1 && map_.cellAt(x, y + 1).type == BlockType::Ladder) fill(x, y + 1, distance + 1);
        if (x < map_.width() - 1 && isWalkable(x + 1, y)) fill(x + 1, y, distance + 1);
        if (x > 0 && isWalkable(x - 1, y)) fill(x - 1, y, distance + 1);
    }

    /// -1 or the distance.
    [[nodiscard]] int at(int x, int y) const { return distances_[indexOf(x, y)]; }

private:
    static constexpr int kNone = -1;

    [[nodiscard]] std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(map_.width()) + static_cast<std::size_t>(x);
    }
    [[nodiscard]] bool isWalkable(int x, int y) const {
        return map_.isPassable(x, y, View::Planned) && (map_.canStand(x, y, View::Planned) || map_.isPipe(x, y));
    }

    const LevelMap& map_;
    std::vector<int> distances_;
};

}  // namespace grub
