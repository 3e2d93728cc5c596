#include "sound_capture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "drawn_world.h"
#include "memory_source.h"
#include "sound_keys.h"
#include "wav_writer.h"

namespace grub {
namespace {

/// Left and right, so many times.
Bytes silence(std::size_t samples) { return Bytes(4 * samples, 0); }

/// One loud sample; as every effect it makes seen when the effect was started.
Bytes click() {
    Bytes samples;
    append(samples, 20000, 2);
    append(samples, 20000, 2);
    return samples;
}

/// How loud the wave is, and the largest step between two of its samples.
constexpr double kWavePeak = 8000;
constexpr double kWaveStep = 80;

/// A slow wave that streams, since 300 KiB of it are longer than the ring, and comes round without a seam.
Bytes wave() {
    constexpr std::size_t kSamples = std::size_t{300} * 1024 / 4;
    constexpr double kTurn = 2 * 3.14159265358979 * 122 / kSamples;
    Bytes samples;
    for (std::size_t i = 0; i < kSamples; ++i) {
        const auto value = static_cast<std::int16_t>(kWavePeak * std::sin(static_cast<double>(i) * kTurn));
        append(samples, static_cast<std::uint16_t>(value), 2);
        append(samples, static_cast<std::uint16_t>(value), 2);
    }
    return samples;
}

/// Every effect becomes a click and every track the same music.
void fill(MemorySource& package, const Bytes& music) {
    std::string table = "[sound]\n";
    for (const char* key : kEffectKeys) table += std::string(key) + "=click\n";
    table += "[music]\n";
    for (const char* key : kMusicKeys) table += std::string(key) + "=music\n";
    package.put("sound\\sound.ini", table);
    package.put("sound\\click", writeWav({.channels = 2, .samples = click()}));
    package.put("sound\\music", writeWav({.channels = 2, .samples = music}));
}

const Drawing kRoom{". @ . . . k E", ". = = = = = =", ". . . . . . .", "# # # # # # #"};

RecordedGame gameOf(std::vector<KeyEvent> events, int lastFrame) {
    RecordedGame game;
    game.start.seed = 1;
    game.events = std::move(events);
    game.end = RecordedEnd{.frame = lastFrame, .cause = LossCause::Quit};
    return game;
}

/// He digs, walks, takes the key and wins.
RecordedGame livelyGame() {
    return gameOf(
        {{1, KeyAction::Down, PlayKey::Z}, {3, KeyAction::Up, PlayKey::Z}, {20, KeyAction::Down, PlayKey::Right}}, 200);
}

std::vector<std::int16_t> captured(const RecordedGame& game, const Bytes& music) {
    const HandMixedDevice device;
    EXPECT_TRUE(device.isReady());
    MemorySource package;
    fill(package, music);
    SoundBank bank(package);
    DrawnWorld drawn = worldFrom(kRoom, game.start);
    return captureSound(game, drawn.world(), bank);
}

/// Frames in which an effect is asked for, played without sound.
std::vector<int> framesWithEffects(const RecordedGame& game) {
    DrawnWorld drawn = worldFrom(kRoom, game.start);
    for (const KeyEvent& event : game.events) {
        drawn.runTo(event.frame - 1);
        event.action == KeyAction::Down ? drawn.world().keyDown(event.key) : drawn.world().keyUp(event.key);
    }
    while (!drawn.world().ended() && drawn.world().frame() < game.end->frame) drawn.run(1);
    std::vector<int> frames;
    for (const HeardSound& heard : drawn.sounds())
        if (heard.request.action == SoundRequest::Action::Play && (frames.empty() || frames.back() != heard.frame))
            frames.push_back(heard.frame);
    return frames;
}

TEST(SoundCapture, HasEverySoundAtTheFirstSampleOfItsGameFrame) {
    const RecordedGame game = livelyGame();
    const auto samples = captured(game, silence(100));
    std::vector<int> frames;
    for (std::size_t i = 0; i < samples.size(); i += 2) {
        if (samples[i] == 0) continue;
        EXPECT_EQ(i / 2 % kSamplesPerFrame, 0U) << "sample " << i / 2;
        EXPECT_EQ(samples[i], samples[i + 1]);
        frames.push_back(static_cast<int>(i / 2 / kSamplesPerFrame));
    }
    EXPECT_GE(frames.size(), 5U) << "a dig, steps, a key";
    EXPECT_EQ(frames, framesWithEffects(game));
}

// 300 KiB last 1.7 s: twelve seconds need the streaming threads over and over, and each run has to wait for them.
TEST(SoundCapture, IsTheSameOnEveryRunAndItsMusicGoesOnWithoutASeam) {
    const RecordedGame game = gameOf({}, 300);
    const Bytes music = wave();
    const auto first = captured(game, music);
    EXPECT_EQ(first.size(), std::size_t{2} * kSamplesPerFrame * (1 + 300 + kTailFrames));
    EXPECT_EQ(first, captured(game, music));
    int largestStep = 0;
    std::size_t silent = 0;
    const std::size_t playing = std::size_t{2} * kSamplesPerFrame * 300;
    for (std::size_t i = 2; i < playing; i += 2) {
        largestStep = std::max(largestStep, std::abs(first[i] - first[i - 2]));
        silent = first[i] == 0 ? silent + 1 : 0;
        ASSERT_LT(silent, 400U) << "a hole before sample " << i / 2;
    }
    const double musicGain = std::pow(10.0, -29.0 / 20);  // level 3 is 71 per cent
    EXPECT_LE(largestStep, kWaveStep * musicGain + 2);
    EXPECT_GT(*std::max_element(first.begin(), first.end()), kWavePeak * musicGain - 2);
}

}  // namespace
}  // namespace grub
