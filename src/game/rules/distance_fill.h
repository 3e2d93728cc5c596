#pragma once

#include <cstdint>
#include <vector>

#include "dead_ends.h"

namespace grub {

/// Walking distances from the hero, as enemies see them. A depth-first fill with a tolerance, not a shortest path: a
/// cell that has been reached is entered again only when that saves six steps or more.
class DistanceField {
public:
    /// What `at` gives for a cell that the fill did not reach.
    static constexpr int kUnreached = -1;
    /// The largest distance to start from: the longest way, a step for each cell, then stays clear of the number that
    /// stands for unreached.
    static constexpr int kLargestStart = 50000;

    /// Every cell unreached and without steps.
    DistanceField(int width, int height);

    /// The steps out of a cell (RouteStep bits). None may lead out of the field. `stepsAreSet` follows the last one.
    void setSteps(int x, int y, unsigned steps);
    /// Looks at all steps, to make fills short.
    void stepsAreSet();
    /// Makes every cell unreached.
    void reset();
    /// Fills from a cell that then has distance `distance` (0 to kLargestStart), as far as steps lead. Cells that have
    /// a distance keep it within the tolerance, as if the same fill had reached them.
    void fill(int x, int y, int distance);
    /// kUnreached or the distance.
    [[nodiscard]] int at(int x, int y) const;

    friend bool operator==(const DistanceField&, const DistanceField&) = default;

private:
    [[nodiscard]] std::size_t indexOf(int x, int y) const;
    void fillAlong(const std::vector<std::uint8_t>& allSteps, std::size_t start, std::uint32_t length);
    bool leaveDeadEnds(std::size_t& cell, std::uint32_t& length);
    void fillDeadEnds();

    int stride_;
    bool isFresh_ = true;  // no cell has a distance
    // With a border of one cell on each side, so that all four neighbours of a cell can be read without a test.
    std::vector<std::uint8_t> steps_;
    std::vector<std::uint8_t> throughSteps_;  // without those of dead ends
    std::vector<DeadEnd> deadEnds_;           // each behind its entrance
    std::vector<std::uint16_t> distances_;    // unreached is the largest number: one comparison covers both cases
};

}  // namespace grub
