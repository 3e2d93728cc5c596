#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "distance_cache.h"

namespace grub {

/// Steps that lead out of a cell, as bits. The order of the bits is the order in which the fill takes them, and that
/// order decides which distances come out.
enum RouteStep : std::uint8_t { kStepUp = 1, kStepDown = 2, kStepRight = 4, kStepLeft = 8 };

/// A cell that is entered from one neighbour only and leads nowhere but back and to dead ends of its own: the air above
/// a floor, the end of a corridor. In every fill the cell ends up one step behind its entrance.
struct DeadEnd {
    std::uint16_t cell;
    std::uint16_t entrance;
    bool leadsBack;

    friend bool operator==(const DeadEnd&, const DeadEnd&) = default;
};

/// Takes away the steps into dead ends and out of them, so that what is left of `steps` (RouteStep bits of a cell each,
/// row by row, `stride` cells a row; no step leads out of the field) joins the other cells. The dead ends come in an
/// order that has each behind its entrance.
[[nodiscard]] std::vector<DeadEnd> cutDeadEnds(std::span<std::uint8_t> steps, std::size_t stride);

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

    /// The steps out of a cell (RouteStep bits). No step may lead out of the field. Call `stepsAreSet` after the last
    /// one.
    void setSteps(int x, int y, unsigned steps);
    /// Looks at all steps, to make fills short.
    void stepsAreSet();
    /// Takes fills of a fresh field from a cache, and adds to it those that it lacks. The cache must outlive this field
    /// and its copies, which use it too.
    void useCache(DistanceCache& cache) { cache_.cache = &cache; }
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
    void fillFresh(std::size_t cell, std::uint32_t length);
    void fillAlong(const std::vector<std::uint8_t>& allSteps, std::size_t start, std::uint32_t length);
    bool leaveDeadEnds(std::size_t& cell, std::uint32_t& length);
    void fillDeadEnds();

    int stride_;
    bool isFresh_ = true;  // no cell has a distance
    DistanceCachePointer cache_;
    std::uint64_t routes_ = 0;  // hash of the steps
    // With a border of one cell on each side, so that all four neighbours of a cell can be read without a test.
    std::vector<std::uint8_t> steps_;
    std::vector<std::uint8_t> throughSteps_;  // without those of dead ends
    std::vector<DeadEnd> deadEnds_;           // each behind its entrance
    std::vector<std::uint16_t> distances_;    // unreached is the largest number: one comparison covers both cases
};

}  // namespace grub
