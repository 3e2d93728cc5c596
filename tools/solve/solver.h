#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "search.h"

namespace grub {

/// Threads that a solver may use. Its memory is divided by this number, however many there are: each search then has
/// the same limit, and the answer does not depend on the threads.
inline constexpr int kMostThreads = 4;

/// What a solver may spend.
struct SolverLimits {
    std::uint64_t states = std::numeric_limits<std::uint64_t>::max();  // of each search
    std::size_t bytes = std::size_t{8} << 30U;                         // of all searches together
    int seconds = 600;
    int threads = 1;
    bool exact = false;  // only states that will play the same are one
};

/// Of the search that gave the answer, or that came farthest.
struct Solution {
    SearchResult result;
    SearchShape shape;
    std::uint64_t allStates = 0;  // of this search and of those before it
    double seconds = 0;
    std::vector<std::string> outOfReach;  // from the start, even in the relaxed map (Tour::outOfReach)
};

/// Looks for a win with searches of growing width. The first of them, in this order, that wins or exhausts its states
/// gives the answer; so it is the same with any number of threads unless the time runs out. `start` is a settled world.
/// Progress goes to standard error when `isLoud`.
[[nodiscard]] Solution solve(const World& start, const SearchRules& rules, const SolverLimits& limits, bool isLoud);

}  // namespace grub
