#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "level_map.h"

namespace grub {

/// What the hero may do in a relaxed map.
struct RelaxedRules {
    bool digs = true;
    bool laddersRisen = false;
};

/// A way that is too long for any level: there is none.
inline constexpr int kNoWay = 1 << 24;

/// A map without enemies and clocks: each floor that has room above it can be open or shut, as it suits. What is out of
/// reach here is out of reach in play too; the lengths of ways are about those of play.
class RelaxedMap {
public:
    RelaxedMap(const LevelMap& map, RelaxedRules rules);

    /// Game frames from every cell to this one, row by row; kNoWay where there is no way.
    [[nodiscard]] std::vector<int> distancesTo(CellPosition target) const;

private:
    /// A step into `to`, known at that cell for the search backwards.
    struct StepIn {
        std::uint16_t from;
        std::uint16_t frames;
    };

    void findOpenings(const LevelMap& map, bool digs);
    [[nodiscard]] std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }
    [[nodiscard]] bool isOpen(int x, int y) const;
    [[nodiscard]] bool holds(const LevelMap& map, int x, int y) const;
    [[nodiscard]] bool isLadder(const LevelMap& map, int x, int y) const;
    void addStepsFrom(const LevelMap& map, int x, int y);
    void addStep(int x, int y, int toX, int toY);

    int width_;
    int height_;
    bool laddersRisen_;
    std::vector<std::uint8_t> frames_;  // to enter a cell; 0 when it cannot be entered
    std::vector<std::vector<StepIn>> steps_;
};

}  // namespace grub
