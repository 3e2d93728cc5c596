#include <benchmark/benchmark.h>

#include "bench_levels.h"
#include "direct_fill.h"
#include "level_writer.h"
#include "rules.h"

namespace grub {
namespace {

bool agree(LevelMap& map, DirectFill& direct, CellPosition start) {
    map.resetDistances();
    map.fillDistances(start.x, start.y, 0);
    direct.reset();
    direct.fill(start.x, start.y, 0);
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            if (map.distanceAt(x, y) != direct.at(x, y)) return false;
        }
    }
    return true;
}

using Level = Drawing (*)(int size);

void distances(benchmark::State& state, Level level, bool ours) {
    const int size = static_cast<int>(state.range(0));
    LevelMap map = mapFrom(level(size));
    DirectFill direct(map);
    const CellPosition start = map.heroStart();
    if (!agree(map, direct, start)) return state.SkipWithError("the distances differ");
    for (auto _ : state) {
        if (ours) {
            map.resetDistances();
            map.fillDistances(start.x, start.y, 0);
            benchmark::DoNotOptimize(map.distanceAt(0, 0));
        } else {
            direct.reset();
            direct.fill(start.x, start.y, 0);
            benchmark::DoNotOptimize(direct.at(0, 0));
        }
    }
}

Drawing emptyHouse(int size) { return house(size, size, 0); }
Drawing emptyLadders(int size) { return onlyLadders(size, 0); }

void sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgName("size")->Arg(30)->Arg(100)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(distances, house_ours, emptyHouse, true)->Name("distances/house/ours")->Apply(sizes);
BENCHMARK_CAPTURE(distances, house_direct, emptyHouse, false)->Name("distances/house/direct")->Apply(sizes);
BENCHMARK_CAPTURE(distances, floorsAndLadders_ours, floorsAndLadders, true)
    ->Name("distances/floorsAndLadders/ours")
    ->Apply(sizes);
BENCHMARK_CAPTURE(distances, floorsAndLadders_direct, floorsAndLadders, false)
    ->Name("distances/floorsAndLadders/direct")
    ->Apply(sizes);
BENCHMARK_CAPTURE(distances, onlyLadders_ours, emptyLadders, true)->Name("distances/onlyLadders/ours")->Apply(sizes);
BENCHMARK_CAPTURE(distances, onlyLadders_direct, emptyLadders, false)
    ->Name("distances/onlyLadders/direct")
    ->Apply(sizes);

}  // namespace
}  // namespace grub
