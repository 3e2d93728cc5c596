// How evenly the level's loop ticks and what it costs while nothing moves, on the real clock and without drawing.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <vector>

#include "application_base.h"
#include "bmp_writer.h"
#include "fake_renderer.h"
#include "kest_interface.h"
#include "level_list.h"
#include "level_scene.h"
#include "level_writer.h"
#include "memory_source.h"
#include "recording_scene.h"

namespace grub {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kSettled = 30;   // pictures after which the shutter is open and the level stands
constexpr std::size_t kMeasured = 75;  // ticks: three seconds

double cpuMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The moments at which pictures were presented, and the processor time of the game thread until then.
struct Ticks {
    std::vector<Clock::time_point> times;
    std::vector<double> cpu;
};

Ticks standInALevel() {
    FakeRenderer renderer;
    MemorySource data;
    MemorySource levels;
    levels.put("levels\\typeblok.ini", drawnBlockTable());
    levels.put(std::string(kLevelNames[0]), writeLevelFile(drawnLevel({"@ . . .", "# # # #"})));
    RecordingScene shell;
    KestInterface pages(data, "make_z64", std::make_unique<MemorySource>());
    LevelScene scene(data, levels);
    scene.setGameInterface(pages);
    WindowlessApplication application;
    application.registerScene(kLevelSceneId, scene);
    application.registerScene(kMenuShellId, shell);

    Ticks ticks;
    renderer.onEndFrame = [&] {
        ticks.times.push_back(Clock::now());
        ticks.cpu.push_back(cpuMilliseconds());
        if (ticks.times.size() == kSettled + kMeasured + 1) scene.post(messageOf(MessageType::CloseRequest));
    };
    scene.requestNewGame(0);
    scene.startLoadingPass();
    application.run(kLevelSceneId);
    return ticks;
}

void loopStanding(benchmark::State& state) {
    for (auto _ : state) {
        const Ticks ticks = standInALevel();
        double worst = 0;
        for (std::size_t i = 1; i <= kMeasured; ++i) {
            const std::chrono::duration<double, std::milli> since = ticks.times[kSettled + i] - ticks.times[kSettled];
            worst = std::max(worst, std::abs(since.count() - kGameFrameMs * static_cast<double>(i)));
        }
        const double cpu = ticks.cpu[kSettled + kMeasured] - ticks.cpu[kSettled];
        state.counters["worst_ms"] = worst;  // distance of a tick from its time
        state.counters["core_percent"] = 100 * cpu / (kMeasured * kGameFrameMs);
    }
}

BENCHMARK(loopStanding)->Name("loop/standing")->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace grub
