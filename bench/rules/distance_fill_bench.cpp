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

/// Arguments: whether the map is nothing but ladders, and its columns and rows.
void maps(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"onlyLadders", "size"})->Unit(benchmark::kMicrosecond);
    for (const int ladders : {0, 1}) bench->Args({ladders, 30})->Args({ladders, 100});
}

void distances(benchmark::State& state, bool ours) {
    const int size = static_cast<int>(state.range(1));
    LevelMap map = mapFrom(state.range(0) != 0 ? onlyLadders(size) : floorsAndLadders(size));
    DirectFill direct(map);
    const CellPosition start{size / 2, size / 4 * 2};  // in an even row: on a floor, not in it
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
BENCHMARK_CAPTURE(distances, ours, true)->Apply(maps);
BENCHMARK_CAPTURE(distances, direct, false)->Apply(maps);

}  // namespace
}  // namespace grub
