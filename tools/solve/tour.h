#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "level_map.h"
#include "relaxed_map.h"
#include "world.h"

namespace grub {

/// How far the hero still has to go: over all keys that lie, in the best order, and to the door. The ways are those of
/// the relaxed map, so a tour that does not exist there does not exist in play.
class Tour {
public:
    /// For a settled world of the level; `digs` says whether floors can open.
    Tour(const World& world, bool digs);

    /// Prefers an order of the keys: those of these cells first, in this order. What is out of reach stays so. Has no
    /// effect with very many keys.
    void preferOrder(std::span<const CellPosition> order);
    /// Prefers an order by chance, one of its own for each number.
    void preferChanceOrder(std::uint32_t number);
    /// Ends with the last key instead of at the door. Before any other wish.
    void endWithKeys();
    /// Leads over these cells, one after the other, and then over the keys that are left.
    void leadOver(std::span<const CellPosition> way);
    /// How many cells of the way he has passed, when he had passed so many before.
    [[nodiscard]] std::size_t passedAt(const World& world, std::size_t before) const;
    /// Game frames, about, when he has passed so many cells of the way; kNoWay when a key, a cell of the way or the
    /// door cannot be reached any more.
    [[nodiscard]] int lengthFrom(const World& world, std::size_t passed = 0) const;
    /// What he cannot reach from here, as "the key 3,4" and "a door". Empty when each of them can be reached, even if
    /// no order joins them all.
    [[nodiscard]] std::vector<std::string> outOfReach(const World& world) const;
    /// Cells whose keys lay in the settled world.
    [[nodiscard]] const std::vector<CellPosition>& keys() const { return keys_; }

private:
    using Keys = std::uint32_t;  // a bit for each key

    void solveAll();
    [[nodiscard]] int& restBehind(Keys left, std::size_t key) { return rests_[left * keys_.size() + key]; }
    [[nodiscard]] int restBehind(Keys left, std::size_t key) const { return rests_[left * keys_.size() + key]; }
    [[nodiscard]] int shortest(Keys left, std::size_t cell) const;
    [[nodiscard]] int nearestFirst(const LevelMap& map, std::size_t cell) const;
    [[nodiscard]] int lengthOverKeys(const LevelMap& map, std::size_t cell) const;
    [[nodiscard]] std::size_t cellOf(CellPosition place) const;
    Keys takeAfter(Keys before, CellPosition place);
    [[nodiscard]] int detour(Keys left, std::size_t key) const;

    int width_;
    std::vector<CellPosition> keys_;
    std::vector<std::vector<int>> toKeys_;  // for each key, from each cell
    std::vector<Keys> earlier_;             // for each key, those that are better taken before it
    std::vector<int> toExit_;               // from each cell, with all ladders
    RelaxedMap after_;                      // with all ladders
    std::vector<std::size_t> way_;          // cells
    std::vector<std::vector<int>> toWay_;   // for each cell of the way, from each cell
    std::vector<int> rests_;  // for each set of keys left and each key just taken; empty when there are too many keys
};

}  // namespace grub
