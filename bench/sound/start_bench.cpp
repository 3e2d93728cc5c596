#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include <dsound.h>

#include "desktop/video.h"
#include "kernel/objects.h"

// How long a sound that is started waits until the card takes its first samples; from there they are one period of the
// device away from the speakers. The limit is the period of SDL's dummy driver: 512 frames.
namespace {

using std::chrono::duration;
using std::chrono::steady_clock;

constexpr double kPeriodSeconds = 512 / 44'100.0;

/// A short sound on the system's device.
class StartedSound {
public:
    StartedSound() {
        platform::useDummyDrivers();
        IDirectSound8* sound = nullptr;
        if (FAILED(DirectSoundCreate8(nullptr, &sound, nullptr))) return;
        sound_.reset(sound);
        sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), DSSCL_PRIORITY);
        WAVEFORMATEX format{WAVE_FORMAT_PCM, 1, 44'100, 88'200, 2, 16, 0};
        const DSBUFFERDESC description{sizeof(DSBUFFERDESC), 0, 88'200, 0, &format, {}};
        IDirectSoundBuffer* buffer = nullptr;
        sound->CreateSoundBuffer(&description, &buffer, nullptr);
        buffer_.reset(buffer);
    }
    bool isOpen() const { return buffer_ != nullptr; }

    /// Seconds from the call to the first movement of the cursor.
    double secondsToStart() const {
        const auto begin = steady_clock::now();
        buffer_->Play(0, 0, 0);
        for (DWORD position = 0; position == 0; buffer_->GetCurrentPosition(&position, nullptr)) {
            std::this_thread::sleep_for(std::chrono::microseconds(50));  // without it the mixer hardly gets its lock
        }
        const duration<double> waited = steady_clock::now() - begin;
        buffer_->Stop();
        buffer_->SetCurrentPosition(0);
        return waited.count();
    }

private:
    platform::ObjectRef<IDirectSound8> sound_;
    platform::ObjectRef<IDirectSoundBuffer> buffer_;
};

void startSound(benchmark::State& state) {
    const StartedSound sound;
    if (!sound.isOpen()) return state.SkipWithError("no card");
    double worst = 0;
    for (auto _ : state) {
        const double seconds = sound.secondsToStart();
        state.SetIterationTime(seconds);
        worst = std::max(worst, seconds);
        std::this_thread::sleep_for(std::chrono::microseconds(state.iterations() % 11 * 1000));  // anywhere in a period
    }
    state.counters["worst_ms"] = worst * 1000;
    state.counters["period_ms"] = kPeriodSeconds * 1000;
}
BENCHMARK(startSound)->Name("start_sound/ours")->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);

}  // namespace
