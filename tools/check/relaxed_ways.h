#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "level_map.h"

namespace grub {

/// A set of cells of one map.
class CellSet {
public:
    explicit CellSet(const LevelMap& map) : width_(map.width()), cells_(map.cellCount()) {}

    /// The cell must be inside the map, here and in `add`.
    [[nodiscard]] bool has(CellPosition cell) const { return cells_[indexOf(cell)] != 0; }
    /// Adds a cell; false when the set has it already.
    bool add(CellPosition cell) { return std::exchange(cells_[indexOf(cell)], 1) == 0; }

private:
    [[nodiscard]] std::size_t indexOf(CellPosition cell) const {
        return static_cast<std::size_t>(cell.y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(cell.x);
    }

    int width_;
    std::vector<std::uint8_t> cells_;
};

/// What is taken for granted on the way.
struct WayRules {
    bool digs = false;    ///< every floor that can be dug from its side stays open for ever
    bool isOpen = false;  ///< no key is left: hidden ladders have risen
    std::optional<CellPosition> avoiding = std::nullopt;  ///< a cell that is not entered
};

/// The cells that the hero could reach from `starts` if he had all the time in the world and no enemies: walking,
/// hanging, climbing, falling and, by the rules, digging. What he cannot reach so, he cannot reach in play without a
/// bomb. Without digging it holds for enemies that hunt, too.
[[nodiscard]] CellSet reachableFrom(const LevelMap& map, std::span<const CellPosition> starts, const WayRules& rules);

/// The cells that lead into `goal` by walking, hanging, climbing and falling; `goal` itself is among them.
[[nodiscard]] CellSet leadingInto(const LevelMap& map, const CellSet& goal);

/// Whether somebody who stands here can dig at his side.
[[nodiscard]] bool canDigFrom(const LevelMap& map, CellPosition cell);

}  // namespace grub
