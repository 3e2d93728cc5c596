#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "book_level.h"
#include "game_player.h"
#include "level_check.h"
#include "level_list.h"
#include "play_content.h"
#include "solver.h"

namespace grub {
namespace {

/// Frame counts of the packages of this build.
const AnimationFrameCounts& counts() {
    static std::string error;
    static const std::unique_ptr<PlayContent> content = PlayContent::open(GRUB_DATA_DIR, error);
    static const AnimationFrameCounts none;
    return content != nullptr ? content->frameCounts() : none;
}

/// All levels of the game with their wins; empty when one is missing.
std::vector<BookLevel> allLevels() {
    std::string error;
    auto book = openBook(GRUB_LEVELS_DIR, counts(), error);
    const bool isWhole = book && book->size() == kLevelCount &&
                         std::ranges::none_of(*book, [](const BookLevel& level) { return level.games.empty(); });
    return isWhole ? std::move(*book) : std::vector<BookLevel>{};
}

World settledWorld(const BookLevel& entry) {
    World world(entry.level.map, entry.games.front().start, counts());
    world.step();
    return world;
}

void replayAll(benchmark::State& state) {
    const std::vector<BookLevel> levels = allLevels();
    if (levels.empty()) return state.SkipWithError("a level or its win is missing");
    std::int64_t frames = 0;
    for (auto _ : state) {
        for (const BookLevel& entry : levels) {
            World world = settledWorld(entry);
            if (!replay(entry.games.front(), world)) return state.SkipWithError("a win comes out otherwise");
            frames += world.frame();
        }
    }
    state.SetItemsProcessed(frames);
}
BENCHMARK(replayAll)->Name("replay/all")->Unit(benchmark::kMillisecond);

void checkAll(benchmark::State& state) {
    for (auto _ : state) {
        const std::vector<BookLevel> levels = allLevels();
        if (levels.empty()) return state.SkipWithError("a level or its win is missing");
        for (const BookLevel& entry : levels)
            if (!faultsOf(entry.level).empty()) return state.SkipWithError("a level has a fault");
    }
}
BENCHMARK(checkAll)->Name("check/all")->Unit(benchmark::kMillisecond);

void solveFirstWorld(benchmark::State& state) {
    const std::vector<BookLevel> levels = allLevels();
    std::uint64_t states = 0;
    for (auto _ : state) {
        for (const BookLevel& entry : levels) {
            if (worldOfLevel(entry.index).name != kLevelWorlds.front().name) break;
            const Solution solution = solve(settledWorld(entry), {}, {}, false);
            if (solution.result.verdict != Verdict::Won) return state.SkipWithError("a level is not won");
            states += solution.allStates;
        }
    }
    if (states == 0) state.SkipWithError("a level or its win is missing");
    state.SetItemsProcessed(static_cast<std::int64_t>(states));
}
BENCHMARK(solveFirstWorld)->Name("solve/first_world")->Unit(benchmark::kMillisecond);

void searchLargest(benchmark::State& state) {
    const std::vector<BookLevel> levels = allLevels();
    if (levels.empty()) return state.SkipWithError("a level or its win is missing");
    const World world = settledWorld(
        *std::ranges::max_element(levels, {}, [](const BookLevel& entry) { return entry.level.map.cellCount(); }));
    const Tour tour(world, true);
    SearchShape shape;
    shape.mostStates = 20'000;
    std::uint64_t states = 0;
    for (auto _ : state)
        states += Search(world, tour, {}, shape).run([](const SearchProgress&) { return true; }).reached.states;
    state.SetItemsProcessed(static_cast<std::int64_t>(states));
}
BENCHMARK(searchLargest)->Name("search/largest")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace grub
