#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "level_writer.h"
#include "world.h"

namespace grub {
namespace {

/// A hall of this many columns: floors four rows apart, a ladder at each end, a key out of reach.
Drawing hall(int columns, int rowCount) {
    std::vector<std::string> rows;
    for (int y = 0; y < rowCount; ++y) {
        std::string row(static_cast<std::size_t>(columns), y % 4 == 3 ? '=' : '.');
        row.front() = row.back() = 'H';
        rows.push_back(row);
    }
    rows[0][1] = 'k';
    rows[2][2] = '@';
    return Drawing(rows);
}

World builtWorld(int columns, int rows) {
    World world(mapFrom(hall(columns, rows)), {}, AnimationFrameCounts::all(4));
    world.step();
    return world;
}

/// Grub runs to and fro and digs whenever he has turned.
void worldStep(benchmark::State& state) {
    World world = builtWorld(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    int frame = 0;
    for (auto _ : state) {
        switch (++frame % 400) {
            case 1: world.keyDown(PlayKey::Right); break;
            case 150: world.keyDown(PlayKey::Space); break;
            case 200: world.keyDown(PlayKey::Left); break;
            case 350: world.keyDown(PlayKey::Space); break;
            default: break;
        }
        world.step();
        world.finishFrame(true);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(worldStep)
    ->Name("world/step")
    ->ArgNames({"columns", "rows"})
    ->Args({12, 8})
    ->Args({30, 20})
    ->Args({100, 100});

void worldCopy(benchmark::State& state) {
    const World world = builtWorld(30, 20);
    for (auto _ : state) {
        World copy = world;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(worldCopy)->Name("world/copy");

}  // namespace
}  // namespace grub
