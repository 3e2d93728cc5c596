#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "control/call_controls.h"
#include "dsound/sound_card.h"
#include "dsound_device.h"
#include "engine_services.h"
#include "sound_decoder.h"
#include "wav_writer.h"

namespace grub {

/// 16-bit samples, channels interleaved.
using Samples = std::vector<std::int16_t>;

/// Equal, or the first place where they are not.
[[nodiscard]] inline testing::AssertionResult sameSamples(const Samples& got, const Samples& wanted) {
    const auto [g, w] = std::ranges::mismatch(got, wanted);
    if (g == got.end() && w == wanted.end()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "sample " << g - got.begin() << " is "
                                       << (g == got.end() ? "absent" : std::to_string(*g)) << ", not "
                                       << (w == wanted.end() ? "absent" : std::to_string(*w));
}

/// A window for the device, which never looks at it.
inline const HWND kAnyWindow = reinterpret_cast<HWND>(std::uintptr_t{1});

/// A sound device whose speakers are the test: `mix` is what they would get next.
class HandMixedDevice : public testing::Test {
public:
    HandMixedDevice() {
        platform::setSoundOutput(platform::SoundOutput::ByHand);
        EXPECT_TRUE(device_.init());
    }
    ~HandMixedDevice() override {
        device_.shutdown();
        platform::setSoundOutput(platform::SoundOutput::Card);
    }
    HandMixedDevice(const HandMixedDevice&) = delete;
    HandMixedDevice& operator=(const HandMixedDevice&) = delete;

protected:
    /// A sound made of a file that plays.
    [[nodiscard]] std::unique_ptr<SoundBuffer> soundOf(const Bytes& file) {
        auto sound = device_.createSound();
        EXPECT_TRUE(sound->create(createSoundDecoder(bufferOf(file))));
        return sound;
    }
    /// The next frames for the left speaker, at 44,100 Hz. The right one must get the same.
    static Samples mixMono(std::size_t frames) {
        Samples stereo(frames * 2);
        platform::mixSound(stereo);
        Samples left;
        for (std::size_t i = 0; i < frames; ++i) {
            if (stereo[2 * i] != stereo[2 * i + 1]) ADD_FAILURE() << "the sides differ in frame " << i;
            left.push_back(stereo[2 * i]);
        }
        return left;
    }
    /// What the device's youngest sound does.
    [[nodiscard]] static platform::testing::VoiceState voice() { return platform::testing::voices().back(); }

    platform::testing::SoundControls controls_;
    DSoundDevice device_{kAnyWindow};
};

/// `count` samples that differ from their neighbours and from those a half buffer away.
[[nodiscard]] inline Samples ramp(std::size_t count) {
    Samples samples;
    for (std::size_t i = 0; i < count; ++i) samples.push_back(static_cast<std::int16_t>(i % 29989 - 14000));
    return samples;
}

/// The samples and silence behind them, `count` in all.
[[nodiscard]] inline Samples padded(Samples samples, std::size_t count) { return samples.resize(count), samples; }

/// A mono file at 44,100 Hz.
[[nodiscard]] inline Bytes monoWav(const Samples& samples) { return writeWav({.samples = sampleBytes(samples)}); }

}  // namespace grub
