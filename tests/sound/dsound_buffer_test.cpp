#include <gmock/gmock.h>

#include "dsound_buffer.h"
#include "hand_mixed_device.h"
#include "ogg_writer.h"

namespace grub {
namespace {

using platform::SoundFunction;

using SoundBuffers = HandMixedDevice;

Bytes eightBitWav(std::size_t bytes) { return writeWav({.bits = 8, .samples = Bytes(bytes, 0x80)}); }

struct Size {
    const char* what;
    Bytes file;
    DWORD bufferBytes;
    bool streams;
};

TEST_F(SoundBuffers, WhatIsKnownToBeBelow256KiBIsStatic) {
    const Size sizes[] = {
        {"100 KiB", monoWav(ramp(51200)), 102400, false},
        {"a byte less than the ring", eightBitWav(262143), 262143, false},
        {"the ring", eightBitWav(262144), 262144, true},
        {"300 KiB", monoWav(ramp(153600)), 262144, true},
        {"nothing", monoWav({}), 262144, true},
        {"a short Ogg", writeOgg({sine(4410, 440, 44100)}), 262144, true},
        {"a frame and a half", writeWav({.channels = 2, .samples = Bytes(6)}), 4, false},
    };
    for (const Size& size : sizes) {
        const auto sound = soundOf(size.file);
        EXPECT_EQ(static_cast<DSoundBuffer&>(*sound).streams(), size.streams) << size.what;
        EXPECT_EQ(voice().bytes, size.bufferBytes) << size.what;
    }
}

TEST_F(SoundBuffers, FormatsThatNobodyCanPlayMakeNoSound) {
    const Bytes samples(5000);
    const std::pair<const char*, Bytes> files[] = {
        {"no channels", writeWav({.channels = 0, .samples = samples})},
        {"9 channels", writeWav({.channels = 9, .samples = samples})},
        {"65535 channels", writeWav({.channels = 65535, .bits = 65535, .samples = samples})},
        {"no bits", writeWav({.bits = 0, .samples = samples})},
        {"12 bits", writeWav({.bits = 12, .samples = samples})},
        {"24 bits", writeWav({.bits = 24, .samples = samples})},
        {"rate 0", writeWav({.rate = 0, .samples = samples})},
        {"rate 4 GHz", writeWav({.rate = 0xFFFFFFFF, .samples = samples})},
        {"less than a frame", writeWav({.channels = 2, .samples = Bytes(3)})},
        {"less than a header", Bytes{'R', 'I', 'F', 'F', 0, 0, 0, 0}},
        {"an Ogg without headers", Bytes{'O', 'g', 'g', 'S', 0, 0}},
        {"an Ogg of 9 channels", writeOgg(std::vector(9, sine(4410, 440, 44100)))},
    };
    for (const auto& [what, file] : files) {
        const auto sound = device_.createMusic();
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(file)))) << what;
        EXPECT_FALSE(device_.play(*sound, false)) << what;
        EXPECT_FALSE(device_.stop(*sound)) << what;
        EXPECT_FALSE(sound->setVolume(50)) << what;
        EXPECT_FALSE(sound->setPan(50)) << what;
        EXPECT_TRUE(sound->clone()) << what;
    }
    EXPECT_FALSE(device_.createSound()->create(nullptr));
}

TEST_F(SoundBuffers, PerCentAreDecibelsAndStayInRange) {
    struct Loudness {
        int percent;
        LONG volume;
    };
    const auto sound = soundOf(monoWav(ramp(100)));
    for (const Loudness& row : {Loudness{100, 0},
                                {99, -100},
                                {57, -4300},
                                {50, -5000},
                                {1, -9900},
                                {0, -10000},
                                {106, 0},
                                {113, 0},
                                {-14, -10000}}) {
        EXPECT_TRUE(sound->setVolume(row.percent)) << row.percent;
        EXPECT_EQ(voice().volume, row.volume) << row.percent;
    }
    for (const Loudness& row :
         {Loudness{0, -10000}, {25, -5000}, {50, 0}, {75, 5000}, {100, 10000}, {-1, -10000}, {200, 10000}}) {
        EXPECT_TRUE(sound->setPan(row.percent)) << row.percent;
        EXPECT_EQ(voice().pan, row.volume) << row.percent;
    }
    controls_.fail(SoundFunction::SetVolume, DSERR_CONTROLUNAVAIL);
    EXPECT_FALSE(sound->setVolume(50));
}

TEST_F(SoundBuffers, AStaticSoundPlaysAllItsSamplesOnceAndAgain) {
    const auto sound = soundOf(monoWav(ramp(1000)));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(device_.play(*sound, false));
        Samples wanted = ramp(1000);
        wanted.resize(1500);
        EXPECT_TRUE(sameSamples(mixMono(1500), wanted));
        EXPECT_FALSE(voice().playing);
    }
    ASSERT_TRUE(device_.play(*sound, true));
    for (int round = 0; round < 3; ++round) EXPECT_TRUE(sameSamples(mixMono(1000), ramp(1000)));
}

TEST_F(SoundBuffers, PlayDoesNotDisturbASoundThatPlays) {
    for (const std::size_t count : {1000, 153600}) {  // static, streaming
        const auto sound = soundOf(monoWav(ramp(count)));
        ASSERT_TRUE(device_.play(*sound, false));
        ASSERT_EQ(mixMono(500).back(), ramp(500).back());
        EXPECT_TRUE(device_.play(*sound, false));
        EXPECT_EQ(mixMono(1).back(), ramp(501).back());
        EXPECT_TRUE(device_.stop(*sound));
    }
}

TEST_F(SoundBuffers, ACloneSoundsTheSameAndStartsByItself) {
    const auto first = soundOf(monoWav(ramp(1000)));
    first->setVolume(70);
    const auto second = first->clone();
    EXPECT_EQ(voice().volume, -3000);
    second->setVolume(100);
    first->setVolume(0);
    ASSERT_TRUE(device_.play(*first, false));
    ASSERT_TRUE(sameSamples(mixMono(500), Samples(500)));
    ASSERT_TRUE(device_.play(*second, false));
    EXPECT_TRUE(sameSamples(mixMono(1000), ramp(1000)));
}

TEST_F(SoundBuffers, ACloneOfAStreamStreamsFromTheStart) {
    auto first = soundOf(monoWav(ramp(153600)));
    ASSERT_TRUE(device_.play(*first, false));
    ASSERT_TRUE(sameSamples(mixMono(80000), ramp(80000)));
    const auto second = first->clone();
    first.reset();
    ASSERT_TRUE(device_.play(*second, false));
    EXPECT_TRUE(sameSamples(mixMono(153600), ramp(153600)));
}

TEST_F(SoundBuffers, ALostBufferIsRestoredByTheNextFill) {
    const auto sound = soundOf(monoWav(ramp(1000)));
    controls_.loseBuffers();
    ASSERT_TRUE(device_.play(*sound, false));
    EXPECT_EQ(controls_.count(SoundFunction::Compact), 1U);
    EXPECT_TRUE(sameSamples(mixMono(1000), ramp(1000)));
    controls_.loseBuffers();
    controls_.fail(SoundFunction::Restore, DSERR_BUFFERLOST);
    EXPECT_FALSE(device_.play(*sound, false));
    EXPECT_FALSE(voice().playing);
}

TEST_F(SoundBuffers, WhatTheDeviceRefusesDoesNotStart) {
    for (const SoundFunction function :
         {SoundFunction::GetStatus, SoundFunction::Lock, SoundFunction::Unlock, SoundFunction::SetCurrentPosition,
          SoundFunction::Play, SoundFunction::QueryInterface, SoundFunction::SetNotificationPositions}) {
        const auto effect = soundOf(monoWav(ramp(100)));
        const auto stream = soundOf(monoWav(ramp(153600)));
        controls_.fail(function, DSERR_INVALIDCALL);
        const bool streamsOnly =
            function == SoundFunction::QueryInterface || function == SoundFunction::SetNotificationPositions;
        EXPECT_EQ(device_.play(*effect, false), streamsOnly) << static_cast<int>(function);
        EXPECT_FALSE(device_.play(*stream, false)) << static_cast<int>(function);
        controls_.fail(function, DS_OK);
    }
    std::vector<std::unique_ptr<SoundBuffer>> streams;
    for (std::size_t i = 0; i < StreamSlots::kCount; ++i) {
        streams.push_back(soundOf(monoWav(ramp(153600))));
        EXPECT_TRUE(device_.play(*streams[i], false)) << "a slot was left behind, so none for " << i;
    }
    controls_.fail(SoundFunction::Stop, DSERR_INVALIDCALL);
    EXPECT_FALSE(device_.stop(*streams[0]));
}

}  // namespace
}  // namespace grub
