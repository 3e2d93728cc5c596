#include "sound_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "drawn_world.h"
#include "memory_source.h"
#include "sound_bank.h"
#include "tone.h"
#include "wav_writer.h"

namespace grub {
namespace {

/// How loud the wave is, and the largest step between two of its samples.
constexpr double kWavePeak = 8000;
constexpr double kWaveStep = 80;

/// A slow wave that streams, since 300 KiB of it are longer than the ring, and comes round without a seam.
Bytes wave() {
    constexpr std::size_t kSamples = std::size_t{300} * 1024 / 2;
    return sampleBytes(tone(122, kSamples, kSamples, kWavePeak / 32768));
}

/// The samples of a game in which every effect is one loud sample, which shows when the effect was started.
std::vector<std::int16_t> captured(std::vector<KeyEvent> keys, int lastFrame, const Bytes& music) {
    RecordedGame game;
    game.start.seed = 1;
    game.events = std::move(keys);
    game.end = RecordedEnd{.frame = lastFrame, .cause = LossCause::Quit};
    std::string table = "[sound]\n";
    for (const char* key : kEffectKeys) table += std::string(key) + "=click\n";
    table += "[music]\n";
    for (const char* key : kMusicKeys) table += std::string(key) + "=music\n";
    MemorySource package;
    package.put("sound\\sound.ini", table);
    package.put("sound\\click", writeWav({.channels = 2, .samples = Bytes(4, 78)}));
    package.put("sound\\music", writeWav({.samples = music}));
    const HandMixedDevice device;
    EXPECT_TRUE(device.isReady());
    SoundBank bank(package);
    const Drawing room{". @ . . . k E", "= = = = = = =", ". . . . . . .", "# # # # # # #"};
    return captureSound(game, worldFrom(room, game.start).world(), bank);
}

// He digs, which breaks a floor, walks, takes the key and wins.
TEST(SoundCapture, HasEverySoundAtTheFirstSampleOfItsGameFrame) {
    const auto samples = captured(
        {{1, KeyAction::Down, PlayKey::Z}, {3, KeyAction::Up, PlayKey::Z}, {20, KeyAction::Down, PlayKey::Right}}, 200,
        Bytes(400, 0));
    std::vector<int> frames;
    for (std::size_t i = 0; i < samples.size(); i += 2) {
        if (samples[i] == 0) continue;
        EXPECT_EQ(i / 2 % kSamplesPerFrame, 0U) << "sample " << i / 2;
        EXPECT_EQ(samples[i], samples[i + 1]);
        frames.push_back(static_cast<int>(i / 2 / kSamplesPerFrame));
    }
    EXPECT_EQ(frames, (std::vector{1, 24, 28, 32, 36, 40, 44, 48, 51, 52, 56, 60}));
}

// 300 KiB last 1.7 s: twelve seconds need the streaming threads over and over, and each run has to wait for them.
TEST(SoundCapture, IsTheSameOnEveryRunAndItsMusicGoesOnWithoutASeam) {
    const Bytes music = wave();
    const auto first = captured({}, 300, music);
    EXPECT_EQ(first.size(), std::size_t{2} * kSamplesPerFrame * (1 + 300 + kTailFrames));
    EXPECT_EQ(first, captured({}, 300, music));
    int largestStep = 0;
    for (std::size_t i = 2; i < std::size_t{2} * kSamplesPerFrame * 300; i += 2) {
        largestStep = std::max(largestStep, std::abs(first[i] - first[i - 2]));
        ASSERT_TRUE(i < 800 || std::any_of(&first[i - 800], &first[i], [](int v) { return v != 0; })) << i / 2;
    }
    const double musicGain = std::pow(10.0, -29.0 / 20);  // level 3 is 71 per cent
    EXPECT_LE(largestStep, kWaveStep * musicGain + 2);
    EXPECT_GT(*std::max_element(first.begin(), first.end()), kWavePeak * musicGain - 2);
}

}  // namespace
}  // namespace grub
