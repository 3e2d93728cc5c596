#include <gmock/gmock.h>

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

TEST_F(Streaming, PlaysAllItsSamplesAndThenSilenceOrLoopsWithoutASeam) {
    for (const std::size_t count : {k300KiB, kRing, kRing + 1, 3 * kHalf, 5 * kHalf + 12345}) {
        SCOPED_TRACE(count);
        Bytes bytes = sampleBytes(ramp(count));
        if (count % 2 == 1) bytes.push_back(99);  // a file may end within a frame
        const auto sound = soundOf(writeWav({.samples = bytes}));
        ASSERT_TRUE(device_.play(*sound, false));
        EXPECT_TRUE(sameSamples(mixMono(count + 2 * kRing), padded(ramp(count), count + 2 * kRing)));
        EXPECT_FALSE(voice().playing);
        ASSERT_TRUE(device_.playLooped(*sound));
        const std::size_t laps = 2 * count + kRing;
        EXPECT_TRUE(sameSamples(mixMono(laps), lapsOf(ramp(count), 0, laps)));
    }
}

TEST_F(Streaming, AVeryShortLoopIsBoundedAndAnEmptyOneEnds) {
    const auto shortest = soundOf(writeOgg({sine(50, 441, 44100)}));
    ASSERT_TRUE(device_.playLooped(*shortest));
    EXPECT_LT(std::ranges::count(mixMono(2 * kRing), 0), 2 * kRing - 1000);
    EXPECT_TRUE(voice().playing);

    const auto empty = soundOf(monoWav({}));
    ASSERT_TRUE(device_.playLooped(*empty));
    mixMono(2 * kRing);
    EXPECT_FALSE(voice().playing);
}

TEST_F(Streaming, SixteenStreamsPlayAndASeventeenthDoesNotStart) {
    const auto refused = soundOf(monoWav(Samples(k300KiB, 100)));
    for (const Call function : {Call::SetNotificationPositions, Call::Play}) {
        controls_.fail(function, DSERR_INVALIDCALL);
        EXPECT_FALSE(device_.play(*refused, false)) << "and takes no slot";
        controls_.fail(function, DS_OK);
    }
    std::vector<std::unique_ptr<SoundBuffer>> streams;
    for (std::size_t i = 0; i < StreamSlots::kCount; ++i) {
        streams.push_back(soundOf(monoWav(Samples(k300KiB, 100))));
        EXPECT_TRUE(device_.play(*streams[i], false)) << i;
    }
    const auto late = soundOf(monoWav(Samples(k300KiB, 10)));
    EXPECT_FALSE(device_.play(*late, false));
    EXPECT_TRUE(sameSamples(mixMono(1000), Samples(1000, 1600)));
    EXPECT_TRUE(device_.stop(*streams[3]));
    EXPECT_TRUE(device_.play(*late, false));
    EXPECT_EQ(mixMono(1).back(), 1510);
    mixMono(3 * kRing);  // all end
    for (const auto& stream : streams) EXPECT_TRUE(device_.play(*stream, false));
}

// Before the start of a stream of 300 KiB, in the first half, after a refill, while it ends, and after its end.
TEST_F(Streaming, StopANewFileAndDestructionEndAStreamInEveryState) {
    const Bytes file = monoWav(ramp(k300KiB));
    for (const std::size_t played : {std::size_t{0}, std::size_t{1000}, kHalf + 1000, kRing + 1000, 3 * kHalf + 1000}) {
        for (const char* end : {"stop", "new file", "destruction"}) {
            SCOPED_TRACE(std::to_string(played) + " samples, " + end);
            auto sound = soundOf(file);
            ASSERT_TRUE(device_.play(*sound, false));
            mixMono(played);
            EXPECT_EQ(voice().playing, played < 3 * kHalf) << "it ends with the half that holds its last sample";
            switch (*end) {
                case 's': EXPECT_TRUE(device_.stop(*sound)); break;
                case 'n': EXPECT_TRUE(sound->create(createSoundDecoder(bufferOf(file)))); break;
                default: sound = soundOf(file);
            }
            EXPECT_TRUE(sameSamples(mixMono(kRing), Samples(kRing)));
            ASSERT_TRUE(device_.play(*sound, false));
            EXPECT_TRUE(sameSamples(mixMono(k300KiB), ramp(k300KiB))) << "again";
        }
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

}  // namespace
}  // namespace grub
