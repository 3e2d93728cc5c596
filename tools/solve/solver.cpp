#include "solver.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <optional>
#include <thread>

namespace grub {

namespace {

using Clock = std::chrono::steady_clock;

/// Game frames, more than a minute, after which a narrow search that comes no nearer is given up.
constexpr int kPatience = 1600;

constexpr SearchShape narrow(std::uint32_t keyOrder) {
    return {.width = 100, .groupWidth = 3, .keyOrder = keyOrder, .patience = kPatience};
}
constexpr SearchShape wide(std::size_t width, std::size_t groupWidth) {
    return {.width = width, .groupWidth = groupWidth};
}

/// The searches in their order. Most levels fall to the first; where it loses its way the cause is mostly the order of
/// the keys, so other orders are tried between the wider searches.
// clang-format off
constexpr std::array kShapes{
    narrow(0), narrow(1), narrow(2), narrow(3), narrow(4), narrow(5), wide(500, 6),
    narrow(6), narrow(7), narrow(8), narrow(9), narrow(10), wide(2000, 12),
    narrow(11), narrow(12), narrow(13), narrow(14), narrow(15), narrow(16), wide(8000, 12),
    wide(32000, 50), wide(120000, 200),
};
// clang-format on

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

/// Whether floors can open. A bomb digs too, where bonuses come by chance.
bool canDig(const World& start, const SearchRules& rules) {
    return rules.mostDigs > 0 || (rules.takesBonuses && start.levelIndex() != 0);
}

/// Hands the searches out to threads and collects their results.
class Portfolio {
public:
    Portfolio(const World& start, const SearchRules& rules, const SolverLimits& limits, bool isLoud)
        : start_(start), tour_(start, canDig(start, rules)), rules_(rules), limits_(limits), isLoud_(isLoud) {
        if (rules.keysAreEnough(start.map())) tour_.endWithKeys();
        if (!rules.keyOrder.empty()) tour_.preferOrder(rules.keyOrder);
        tour_.leadOver(rules.way);
    }

    void run() {
        std::vector<std::jthread> others;
        for (int thread = 1; thread < limits_.threads; ++thread) others.emplace_back([this] { work(); });
        work();
    }

    [[nodiscard]] Solution solution() const {
        Solution solution;
        solution.seconds = secondsSince(begin_);
        std::size_t chosen = decided_ < kShapes.size() ? decided_.load() : 0;
        for (std::size_t number = 0; number < kShapes.size(); ++number) {
            if (!results_[number]) continue;
            if (number <= decided_) solution.allStates += results_[number]->reached.states;
            const bool isFarther = results_[number]->reached.mostKeys > results_[chosen]->reached.mostKeys;
            if (decided_ == kShapes.size() && isFarther) chosen = number;
        }
        solution.result = *results_[chosen];
        solution.shape = shapeOf(chosen);
        solution.outOfReach = tour_.outOfReach(start_);
        return solution;
    }

private:
    void work() {
        for (std::size_t number = next_++; number < kShapes.size(); number = next_++) {
            if (number > decided_) return;
            Search search(start_, tour_, rules_, shapeOf(number));
            auto result = search.run([&](const SearchProgress& progress) { return watch(number, progress); });
            if (result.verdict != Verdict::Cut) decide(number);
            results_[number] = std::move(result);
        }
    }

    [[nodiscard]] SearchShape shapeOf(std::size_t number) const {
        SearchShape shape = kShapes[number];
        if (limits_.exact) shape.grain = Grain::exact();
        shape.mostStates = limits_.states;
        shape.mostBytes = limits_.bytes / kMostThreads;
        return shape;
    }

    void decide(std::size_t number) {
        std::size_t known = decided_;
        while (number < known && !decided_.compare_exchange_weak(known, number)) {
        }
    }

    /// Whether a search is still wanted. Tells how far it is, once a second.
    bool watch(std::size_t number, const SearchProgress& progress) {
        const double seconds = secondsSince(begin_);
        const std::lock_guard guard(lock_);
        if (isLoud_ && seconds >= nextReport_) {
            nextReport_ = seconds + 1;
            std::fprintf(stderr,
                         "%.0f s: width %zu, key order %u, game frame %d, %llu states, %zu of %zu keys, best about %d "
                         "game frames to go\n",
                         seconds, kShapes[number].width, kShapes[number].keyOrder, progress.frame,
                         static_cast<unsigned long long>(progress.states), progress.mostKeys, tour_.keys().size(),
                         progress.shortestTour);
        }
        return seconds < limits_.seconds && number <= decided_;
    }

    const World& start_;
    Tour tour_;
    SearchRules rules_;
    SolverLimits limits_;
    bool isLoud_;
    Clock::time_point begin_ = Clock::now();
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> decided_ = kShapes.size();
    std::array<std::optional<SearchResult>, kShapes.size()> results_;
    std::mutex lock_;
    double nextReport_ = 1;
};

}  // namespace

Solution solve(const World& start, const SearchRules& rules, const SolverLimits& limits, bool isLoud) {
    Portfolio portfolio(start, rules, limits, isLoud);
    portfolio.run();
    return portfolio.solution();
}

}  // namespace grub
