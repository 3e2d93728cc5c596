#include <gmock/gmock.h>

#include <cstring>

#include "hand_mixed_device.h"
#include "ogg_writer.h"

namespace grub {
namespace {

using platform::Call;

using Streaming = HandMixedDevice;

constexpr std::size_t kHalf = 65536;  // samples of a mono sound in half a ring
constexpr std::size_t kRing = 2 * kHalf;
constexpr std::size_t k300KiB = 153600;

// `count` samples of a sound that goes round and round, from sample `first` on.
Samples lapsOf(const Samples& sound, std::size_t first, std::size_t count) {
    Samples laps;
    for (std::size_t i = first; i < first + count; ++i) laps.push_back(sound[i % sound.size()]);
    return laps;
}

Samples padded(Samples samples, std::size_t count) { return samples.resize(count), samples; }

TEST_F(Streaming, AStreamPlaysAllItsSamplesAndThenSilence) {
    for (const std::size_t count : {k300KiB, kRing, kRing + 1, 3 * kHalf, 5 * kHalf + 12345}) {
        const auto sound = soundOf(monoWav(ramp(count)));
        ASSERT_TRUE(device_.play(*sound, false));
        EXPECT_TRUE(sameSamples(mixMono(count + 2 * kRing), padded(ramp(count), count + 2 * kRing))) << count;
        EXPECT_FALSE(voice().playing) << count;
    }
}

TEST_F(Streaming, ALoopHasNoSeam) {
    for (const std::size_t count : {k300KiB, kRing}) {
        const Samples sound = ramp(count);
        const auto music = soundOf(monoWav(sound));
        ASSERT_TRUE(device_.playLooped(*music));
        const std::size_t laps = 3 * count + kRing;
        EXPECT_TRUE(sameSamples(mixMono(laps), lapsOf(sound, 0, laps))) << count;
        ASSERT_TRUE(device_.stopMusic(*music));
    }
}

TEST_F(Streaming, AnOggLoopHasNoSeamEither) {
    const Bytes file = writeOgg({sine(20000, 441, 44100)});  // much shorter than the ring
    const auto decoder = createSoundDecoder(bufferOf(file));
    SharedBuffer pcm = SharedBuffer::create(100000);
    ASSERT_EQ(decoder->read(pcm), 40000U);
    Samples sound(20000);
    std::memcpy(sound.data(), pcm.data(), 40000);

    const auto music = soundOf(file);
    ASSERT_TRUE(device_.playLooped(*music));
    EXPECT_TRUE(sameSamples(mixMono(2 * kRing), lapsOf(sound, 0, 2 * kRing)));
}

TEST_F(Streaming, AVeryShortLoopIsBoundedAndAnEmptyOneEnds) {
    const auto shortest = soundOf(writeOgg({sine(50, 441, 44100)}));
    ASSERT_TRUE(device_.playLooped(*shortest));
    const auto count = std::ranges::count_if(mixMono(2 * kRing), [](std::int16_t sample) { return sample != 0; });
    EXPECT_GT(count, 1000);
    EXPECT_TRUE(voice().playing);
    ASSERT_TRUE(device_.stop(*shortest));

    const auto empty = soundOf(monoWav({}));
    ASSERT_TRUE(device_.playLooped(*empty));
    EXPECT_TRUE(sameSamples(mixMono(2 * kRing), Samples(2 * kRing)));
    EXPECT_FALSE(voice().playing);
}

TEST_F(Streaming, AFileThatEndsWithinAFrameLoopsWithItsWholeFrames) {
    Bytes bytes = sampleBytes(ramp(k300KiB));
    bytes.push_back(99);
    const auto music = soundOf(writeWav({.samples = bytes}));
    ASSERT_TRUE(device_.playLooped(*music));
    EXPECT_TRUE(sameSamples(mixMono(2 * k300KiB), lapsOf(ramp(k300KiB), 0, 2 * k300KiB)));
}

TEST_F(Streaming, SixteenStreamsPlayAndASeventeenthDoesNotStart) {
    std::vector<std::unique_ptr<SoundBuffer>> streams;
    for (std::size_t i = 0; i < StreamSlots::kCount; ++i) {
        streams.push_back(soundOf(monoWav(Samples(k300KiB, 100))));
        EXPECT_TRUE(device_.play(*streams[i], false)) << i;
    }
    const auto late = soundOf(monoWav(Samples(k300KiB, 10)));
    EXPECT_FALSE(device_.play(*late, false));
    const auto effect = soundOf(monoWav(Samples(1000, 1)));
    EXPECT_TRUE(device_.play(*effect, false));
    EXPECT_TRUE(sameSamples(mixMono(1000), Samples(1000, 1601)));

    EXPECT_TRUE(device_.stop(*streams[3]));
    EXPECT_TRUE(device_.play(*late, false));
    EXPECT_EQ(mixMono(1).back(), 1510);
    mixMono(3 * kRing);  // all end
    EXPECT_TRUE(sameSamples(mixMono(100), Samples(100)));
    for (const auto& stream : streams) EXPECT_TRUE(device_.play(*stream, false));
}

// A stream of 300 KiB is stopped before its start, in the first half, after a refill, while it ends, and after its end.
TEST_F(Streaming, StopEndsAStreamInEveryState) {
    for (const std::size_t played : {std::size_t{0}, std::size_t{1000}, kHalf + 1000, kRing + 1000, 3 * kHalf + 1000}) {
        SCOPED_TRACE(played);
        const auto sound = soundOf(monoWav(ramp(k300KiB)));
        ASSERT_TRUE(device_.play(*sound, false));
        mixMono(played);
        EXPECT_EQ(voice().playing, played < 3 * kHalf) << "it ends with the half that holds its last sample";
        EXPECT_TRUE(device_.stop(*sound));
        EXPECT_FALSE(voice().playing);
        EXPECT_TRUE(sameSamples(mixMono(kRing), Samples(kRing)));
        EXPECT_TRUE(device_.stop(*sound)) << "twice";
        ASSERT_TRUE(device_.play(*sound, false));
        EXPECT_TRUE(sameSamples(mixMono(k300KiB), ramp(k300KiB))) << "again";
    }
}

TEST_F(Streaming, ASoundThatIsDestroyedOrMadeAnewWhileItStreamsFallsSilent) {
    const Bytes file = monoWav(ramp(2 * k300KiB));
    for (const std::size_t played : {std::size_t{100}, kHalf + 100, 2 * kRing + 100}) {
        auto sound = soundOf(file);
        ASSERT_TRUE(device_.playLooped(*sound));
        ASSERT_TRUE(sameSamples(mixMono(played), ramp(played)));
        sound.reset();
        EXPECT_TRUE(sameSamples(mixMono(kRing), Samples(kRing)));

        sound = soundOf(file);
        ASSERT_TRUE(device_.playLooped(*sound));
        ASSERT_TRUE(sameSamples(mixMono(played), ramp(played)));
        ASSERT_TRUE(sound->create(createSoundDecoder(bufferOf(monoWav(ramp(50))))));
        EXPECT_TRUE(sameSamples(mixMono(kRing), Samples(kRing)));
        ASSERT_TRUE(device_.play(*sound, false));
        EXPECT_TRUE(sameSamples(mixMono(100), padded(ramp(50), 100)));
    }
}

TEST_F(Streaming, ALostStreamComesBackWithTheNextRefill) {
    const auto music = soundOf(monoWav(ramp(k300KiB)));
    ASSERT_TRUE(device_.playLooped(*music));
    ASSERT_TRUE(sameSamples(mixMono(1000), ramp(1000)));
    controls_.loseBuffers();
    EXPECT_TRUE(sameSamples(mixMono(kHalf - 1000), Samples(kHalf - 1000)));
    mixMono(kHalf);
    EXPECT_FALSE(voice().lost);
    EXPECT_TRUE(sameSamples(mixMono(k300KiB), lapsOf(ramp(k300KiB), kRing, k300KiB)));
}

TEST_F(Streaming, WhatTheDeviceRefusesIsAGapAndNotTheEnd) {
    const auto music = soundOf(monoWav(ramp(k300KiB)));
    ASSERT_TRUE(device_.playLooped(*music));
    ASSERT_TRUE(sameSamples(mixMono(kHalf - 1000), ramp(kHalf - 1000)));
    controls_.fail(Call::Lock, DSERR_INVALIDCALL);
    mixMono(2000);  // over the first event: the third half is lost
    controls_.fail(Call::Lock, DS_OK);
    mixMono(kRing - 1000);
    EXPECT_TRUE(sameSamples(mixMono(k300KiB), lapsOf(ramp(k300KiB), 3 * kHalf, k300KiB)));
}

TEST_F(Streaming, AnEventLeftFromBeforeDoesNotRefill) {
    const auto slots = std::make_shared<StreamSlots>();
    const auto sound = soundOf(monoWav(ramp(k300KiB)));
    auto& buffer = static_cast<DSoundBuffer&>(*sound);
    ASSERT_TRUE(buffer.fillAll(false));
    slots->take(0, buffer, false);
    ASSERT_TRUE(buffer.start(true));
    for (int i = 0; i < 5; ++i) slots->refill(0);
    EXPECT_TRUE(sameSamples(mixMono(kHalf), ramp(kHalf)));
    slots->refill(0);  // in time
    slots->refill(0);  // once too often
    EXPECT_TRUE(sameSamples(mixMono(k300KiB - kHalf), lapsOf(ramp(k300KiB), kHalf, k300KiB - kHalf)));
    slots->release(buffer);
    slots->refill(0);  // nobody is there
    EXPECT_EQ(slots->findFree(), 0U);
}

}  // namespace
}  // namespace grub
