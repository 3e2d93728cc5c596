#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

#include "bench_levels.h"
#include "level_writer.h"
#include "world.h"

namespace grub {
namespace {

World builtWorld(const Drawing& level) {
    WorldStart start;
    start.levelIndex = 1;  // with random bonuses
    World world(mapFrom(level), start, AnimationFrameCounts::all(4));
    world.step();
    return world;
}

/// Grub under random keys, mostly to and fro. Whenever an attempt ends, another begins; the keys go on, so no two are
/// alike.
class Game {
public:
    explicit Game(const Drawing& level) : start_(builtWorld(level)), world_(start_) {}

    void playFrame() {
        if (--keyLeft_ < 0) pressAnother();
        world_.step();
        world_.finishFrame(true);
        if (world_.ended()) world_ = start_;
    }
    [[nodiscard]] const World& world() const { return world_; }

private:
    void pressAnother() {
        constexpr std::array kKeys{PlayKey::Left, PlayKey::Right, PlayKey::Left, PlayKey::Right,
                                   PlayKey::Up,   PlayKey::Down,  PlayKey::Z,    PlayKey::X};
        world_.keyUp(key_);
        key_ = kKeys[static_cast<std::size_t>(random_.next()) % kKeys.size()];
        world_.keyDown(key_);
        keyLeft_ = 8 + random_.next() % 64;
    }

    World start_;
    World world_;
    WorldRandom random_{7};
    PlayKey key_ = PlayKey::Left;
    int keyLeft_ = 0;
};

/// What a game does, so that no figure is that of a world that sleeps: the share of frames in which Grub comes to
/// another cell, and of enemies who know the way to him.
void countActivity(benchmark::State& state, Game game) {
    constexpr int kFrames = 3000;
    int arrivals = 0;
    int hunters = 0;
    int enemies = 0;
    for (int frame = 0; frame < kFrames; ++frame) {
        const World& world = game.world();
        arrivals += world.hero().isAligned() && world.map().distanceAt(world.hero().cellX(), world.hero().cellY()) != 0;
        for (const Enemy& enemy : world.enemies()) {
            hunters += world.map().distanceAt(enemy.cellX(), enemy.cellY()) != DistanceField::kUnreached;
            ++enemies;
        }
        game.playFrame();
    }
    state.counters["arrivals"] = static_cast<double>(arrivals) / kFrames;
    if (enemies > 0) state.counters["hunting"] = static_cast<double>(hunters) / enemies;
    if (arrivals < kFrames / 100 || hunters < enemies / 2) state.SkipWithError("hardly an actor moves");
}

void frame(benchmark::State& state, const Drawing& level) {
    Game game(level);
    countActivity(state, game);
    for (auto _ : state) game.playFrame();
    state.SetItemsProcessed(state.iterations());
}

/// The same cells, with one counter in each to count down: what a frame costs that looks at every cell.
void pass(benchmark::State& state, const Drawing& level) {
    const LevelMap map = mapFrom(level);
    std::vector<MapCell> cells;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) cells.push_back(map.cellAt(x, y));
    }
    for (auto _ : state) {
        for (MapCell& cell : cells) --cell.timer;
        benchmark::DoNotOptimize(cells.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

Drawing houseOf(const benchmark::State& state) {
    return house(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), static_cast<int>(state.range(2)));
}

/// A frame grows with the cells and with the enemies; the pass has no enemies.
void houses(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"columns", "rows", "enemies"});
    bench->Args({10, 10, 5})->Args({30, 20, 5})->Args({60, 40, 5})->Args({100, 100, 5});
    bench->Args({30, 20, 0})->Args({30, 20, 10})->Args({30, 20, 20})->Args({100, 100, 20});
}

void frameInHouse(benchmark::State& state) { frame(state, houseOf(state)); }
BENCHMARK(frameInHouse)->Name("frame/ours")->Apply(houses);
void passOverHouse(benchmark::State& state) { pass(state, houseOf(state)); }
BENCHMARK(passOverHouse)
    ->Name("frame/limit")
    ->ArgNames({"columns", "rows", "enemies"})
    ->Args({10, 10, 0})
    ->Args({30, 20, 0})
    ->Args({60, 40, 0})
    ->Args({100, 100, 0});

/// No key is pressed: there is no fill, and only the enemies move, until they have come.
void frameHeroStands(benchmark::State& state) {
    const World start = builtWorld(houseOf(state));
    World world = start;
    for (auto _ : state) {
        world.step();
        world.finishFrame(true);
        if (world.ended()) world = start;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(frameHeroStands)->Name("frame/standing")->ArgNames({"columns", "rows", "enemies"})->Args({100, 100, 20});

/// No bound: a fill that enters every cell several times.
void frameWorst(benchmark::State& state) { frame(state, onlyLadders(static_cast<int>(state.range(0)), 20)); }
BENCHMARK(frameWorst)->Name("frame/worst")->ArgName("size")->Arg(30)->Arg(100)->Unit(benchmark::kMicrosecond);

void worldCopy(benchmark::State& state) {
    const World world = builtWorld(house(30, 20, 5));
    for (auto _ : state) {
        World copy = world;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(worldCopy)->Name("world/copy");

}  // namespace
}  // namespace grub
