#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <deque>
#include <vector>

#include "dsound/sound_mixer.h"

// The busiest second that the game can ask for: all streaming slots and a handful of effects, so many milliseconds of a
// second are the share of a core that sound costs.
namespace {

using platform::SampleFormat;
using platform::SampleMemory;
using platform::SoundMixer;
using platform::SoundVoice;

constexpr std::size_t kStreams = 16;
constexpr std::size_t kEffects = 8;
constexpr std::size_t kStreamBytes = 262'144;
constexpr std::size_t kEffectBytes = 60'000;
constexpr std::size_t kPeriod = 512;  // frames that a card asks for at once

/// Noise that is quiet enough for all sounds together.
std::shared_ptr<SampleMemory> makeSound(const SampleFormat& format, std::size_t bytes, unsigned seed) {
    auto memory = std::make_shared<SampleMemory>(format, bytes);
    std::uint32_t random = seed;
    for (std::size_t i = 0; i + 1 < bytes; i += 2) {
        random = random * 214'013 + 2'531'011;
        const auto sample = static_cast<std::int16_t>(static_cast<int>(random >> 21U) - 1024);
        std::memcpy(&memory->bytes()[i], &sample, sizeof sample);
    }
    return memory;
}

/// All sounds, playing round and round.
struct BusyMixer {
    BusyMixer(DWORD cardRate, DWORD soundRate) : mixer(cardRate) {
        for (std::size_t i = 0; i < kStreams; ++i) add({soundRate, 2, 16}, kStreamBytes);
        for (std::size_t i = 0; i < kEffects; ++i) add({soundRate, 1, 16}, kEffectBytes);
    }

    void add(const SampleFormat& format, std::size_t bytes) {
        const auto seed = static_cast<unsigned>(voices.size() + 1);
        auto& voice = voices.emplace_back(makeSound(format, bytes, seed), mixer.filterFrom(format.rate));
        voice.setVolume(-600);
        voice.play(true);
        mixer.add(voice);
    }

    void mixSecond(std::vector<float>& stereo) {
        stereo.resize(std::size_t{2} * mixer.rate());
        for (std::size_t at = 0; at < stereo.size(); at += 2 * kPeriod) {
            mixer.mix(std::span(stereo).subspan(at, std::min(2 * kPeriod, stereo.size() - at)));
        }
    }

    SoundMixer mixer;
    std::deque<SoundVoice> voices;
};

/// What cannot be done without: each stored sample becomes a number and is added up, a period at a time.
class PlainSum {
public:
    explicit PlainSum(const std::deque<SoundVoice>& voices) {
        for (const SoundVoice& voice : voices) {
            const auto bytes = voice.memory().bytes();
            sounds_.emplace_back(bytes.size() / 2);
            std::memcpy(sounds_.back().data(), bytes.data(), bytes.size());
            channels_.push_back(voice.memory().format().channels);
        }
        at_.resize(sounds_.size());
    }

    void sumSecond(std::vector<float>& stereo, DWORD rate) {
        stereo.assign(std::size_t{2} * rate, 0);
        for (std::size_t at = 0; at < stereo.size(); at += 2 * kPeriod) {
            const auto period = std::span(stereo).subspan(at, std::min(2 * kPeriod, stereo.size() - at));
            for (std::size_t i = 0; i < sounds_.size(); ++i)
                channels_[i] == 2 ? addStereo(period, i) : addMono(period, i);
        }
    }

private:
    void addStereo(std::span<float> sum, std::size_t index) {
        const std::vector<std::int16_t>& sound = sounds_[index];
        for (std::size_t done = 0; done < sum.size();) {
            const std::size_t count = std::min(sum.size() - done, sound.size() - at_[index]);
            const std::int16_t* samples = &sound[at_[index]];
            for (std::size_t i = 0; i < count; ++i) sum[done + i] += static_cast<float>(samples[i]) * gain_;
            done += count;
            at_[index] = (at_[index] + count) % sound.size();
        }
    }
    void addMono(std::span<float> sum, std::size_t index) {
        const std::vector<std::int16_t>& sound = sounds_[index];
        for (std::size_t done = 0; done < sum.size() / 2;) {
            const std::size_t count = std::min(sum.size() / 2 - done, sound.size() - at_[index]);
            const std::int16_t* samples = &sound[at_[index]];
            for (std::size_t i = 0; i < count; ++i) {
                const float sample = static_cast<float>(samples[i]) * gain_;
                sum[2 * (done + i)] += sample;
                sum[2 * (done + i) + 1] += sample;
            }
            done += count;
            at_[index] = (at_[index] + count) % sound.size();
        }
    }

    std::vector<std::vector<std::int16_t>> sounds_;
    std::vector<int> channels_;
    std::vector<std::size_t> at_;
    float gain_ = platform::gainOf(-600) / 0x8000;
};

bool sameSecond() {
    BusyMixer busy(44'100, 44'100);
    PlainSum plain(busy.voices);
    std::vector<float> mixed;
    std::vector<float> summed;
    busy.mixSecond(mixed);
    plain.sumSecond(summed, 44'100);
    return std::ranges::equal(mixed, summed, [](float a, float b) { return std::abs(a - b) < 1e-5F; }) &&
           std::ranges::max(mixed) > 0.1F;
}

void mixOurs(benchmark::State& state, DWORD cardRate, DWORD soundRate) {
    if (!sameSecond()) return state.SkipWithError("the sums differ");
    BusyMixer busy(cardRate, soundRate);
    std::vector<float> stereo;
    for (auto _ : state) busy.mixSecond(stereo);
    benchmark::DoNotOptimize(stereo.data());
}
BENCHMARK_CAPTURE(mixOurs, same_rate, 44'100, 44'100)->Name("mix_second/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(mixOurs, to_48000, 48'000, 44'100)
    ->Name("mix_second_44100_to_48000/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(mixOurs, from_22050, 44'100, 22'050)
    ->Name("mix_second_22050_to_44100/ours")
    ->Unit(benchmark::kMillisecond);

void mixLimit(benchmark::State& state) {
    const BusyMixer busy(44'100, 44'100);
    PlainSum plain(busy.voices);
    std::vector<float> stereo;
    for (auto _ : state) plain.sumSecond(stereo, 44'100);
    benchmark::DoNotOptimize(stereo.data());
}
BENCHMARK(mixLimit)->Name("mix_second/limit")->Unit(benchmark::kMillisecond);

}  // namespace
