#include <gmock/gmock.h>

#include "control/call_controls.h"
#include "control/testing.h"
#include "hand_mixed_device.h"
#include "ogg_writer.h"

namespace grub {
namespace {

using platform::Call;
using platform::SoundOutput;
using platform::testing::MessageBoxRecorder;

const HWND kWindow = reinterpret_cast<HWND>(std::uintptr_t{1});

TEST(SoundDeviceRefused, TellsThePlayerOnceAndGoesOnSilently) {
    const std::pair<SoundOutput, const char*> starts[] = {
        {SoundOutput::None, "Can't creates an instance of a DirectSound8 object. (DSERR_NODRIVER)"},
        {SoundOutput::ByHand,
         "Can't sets the cooperative level of the application for sound device. (DSERR_CONTROLUNAVAIL)"},
    };
    for (const auto& [output, text] : starts) {
        SCOPED_TRACE(text);
        platform::setSoundOutput(output);
        platform::testing::SoundControls controls;
        controls.fail(Call::SetCooperativeLevel, DSERR_CONTROLUNAVAIL);
        const MessageBoxRecorder boxes;
        DSoundDevice device(kWindow);
        EXPECT_FALSE(device.init());
        ASSERT_EQ(boxes.boxes().size(), 1U);
        EXPECT_EQ(boxes.boxes()[0].text, text);
        EXPECT_EQ(boxes.boxes()[0].caption, "DirectX error");
        EXPECT_EQ(boxes.boxes()[0].style, 0x2010U);

        EXPECT_FALSE(device.isReady());
        const auto sound = device.createSound();
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(monoWav(ramp(100))))));
        EXPECT_FALSE(device.play(*sound, false));
        EXPECT_FALSE(device.stop(*sound));
    }
    platform::setSoundOutput(SoundOutput::Card);
}

TEST(SoundDeviceRefused, NeedsBothThreads) {
    platform::setSoundOutput(SoundOutput::ByHand);
    for (const int successes : {0, 1}) {
        const platform::testing::FailingCall failing(platform::testing::Call::CreateThread, successes);
        DSoundDevice device(kWindow);
        EXPECT_FALSE(device.init());
        EXPECT_FALSE(device.isReady());
    }
    platform::setSoundOutput(SoundOutput::Card);
}

using SoundDevice = HandMixedDevice;

TEST_F(SoundDevice, SilencesStreamsWhenItShutsDownAndStartsAgain) {
    auto stream = soundOf(monoWav(ramp(200000)));
    const auto effect = soundOf(monoWav(ramp(1000)));
    ASSERT_TRUE(device_.playLooped(*stream));
    ASSERT_TRUE(device_.play(*effect, false));
    EXPECT_EQ(mixMono(80000).back(), ramp(80000).back());
    EXPECT_TRUE(device_.shutdown());
    EXPECT_FALSE(device_.isReady());
    EXPECT_FALSE(device_.play(*stream, true));
    EXPECT_FALSE(device_.stop(*stream));
    EXPECT_TRUE(sameSamples(mixMono(200000), Samples(200000)));
    EXPECT_TRUE(device_.shutdown()) << "once more";

    ASSERT_TRUE(device_.init());
    stream = soundOf(monoWav(ramp(200000)));
    ASSERT_TRUE(device_.play(*stream, false));
    EXPECT_TRUE(sameSamples(mixMono(200000), ramp(200000)));
}

using SoundBuffers = HandMixedDevice;

TEST_F(SoundBuffers, AreStaticBelow256KiB) {
    const auto eightBitWav = [](std::size_t bytes) { return writeWav({.bits = 8, .samples = Bytes(bytes, 0x80)}); };
    const std::pair<Bytes, DWORD> files[] = {
        {eightBitWav(262143), 262143},
        {eightBitWav(262144), 0},
        {monoWav({}), 0},
        {writeOgg({sine(4410, 440, 44100)}), 0},
        {writeWav({.channels = 2, .samples = Bytes(6)}), 4},  // a frame and a half
    };
    for (const auto& [file, staticBytes] : files) {
        const auto sound = soundOf(file);
        EXPECT_EQ(static_cast<DSoundBuffer&>(*sound).streams(), staticBytes == 0);
        EXPECT_EQ(voice().bytes, staticBytes != 0 ? staticBytes : DSoundBuffer::kRingBytes);
    }
}

// Other formats reach the device, which refuses them.
TEST_F(SoundBuffers, OfFormatsWithoutAFrameAreSilent) {
    for (const Bytes& file : {writeWav({.channels = 0, .samples = Bytes(5000)}),
                              writeWav({.channels = 65535, .bits = 65535, .samples = Bytes(5000)}),
                              writeWav({.channels = 2, .samples = Bytes(3)}), Bytes{'O', 'g', 'g', 'S'}}) {
        const auto sound = device_.createMusic();
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(file))));
        EXPECT_FALSE(device_.play(*sound, false));
        EXPECT_FALSE(device_.stop(*sound));
        EXPECT_FALSE(sound->setVolume(50));
        EXPECT_FALSE(sound->setPan(50));
        EXPECT_TRUE(sound->clone());
    }
}

TEST_F(SoundBuffers, AreHeardAtTheirPlaceAndLoudness) {
    struct Place {
        int pan, volume;  // per cent
        double left, right;
    };
    for (const Place& place : {Place{50, 100, 1, 1},
                               {-1, 100, 1, 0},
                               {200, 113, 0, 1},
                               {47, 94, 0.5, 0.25},
                               {50, 0, 0, 0},
                               {50, -14, 0, 0}}) {
        SCOPED_TRACE("pan " + std::to_string(place.pan) + ", volume " + std::to_string(place.volume));
        const auto sound = soundOf(monoWav(Samples(100, 10000)));
        EXPECT_TRUE(sound->setPan(place.pan));
        EXPECT_TRUE(sound->setVolume(place.volume));
        ASSERT_TRUE(device_.play(*sound, false));
        Samples stereo(2);
        platform::mixSound(stereo);
        EXPECT_NEAR(stereo[0], 10000 * place.left, 30);  // 6 decibels are nearly a half
        EXPECT_NEAR(stereo[1], 10000 * place.right, 30);
    }
}

TEST_F(SoundBuffers, PlayAllTheirSamplesOnceAndAgain) {
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

TEST_F(SoundBuffers, GoOnWhenTheyAreToPlayWhileTheyPlay) {
    for (const std::size_t count : {1000, 153600}) {  // static, streaming
        const auto sound = soundOf(monoWav(ramp(count)));
        ASSERT_TRUE(device_.play(*sound, false));
        ASSERT_EQ(mixMono(500).back(), ramp(500).back());
        EXPECT_TRUE(device_.play(*sound, false));
        EXPECT_EQ(mixMono(1).back(), ramp(501).back());
        EXPECT_TRUE(device_.stop(*sound));
    }
}

TEST_F(SoundBuffers, SoundTheSameInAClone) {
    for (const std::size_t count : {1000, 153600}) {
        auto first = soundOf(monoWav(ramp(count)));
        first->setVolume(70);
        ASSERT_TRUE(device_.play(*first, false));
        mixMono(500);
        const auto second = first->clone();
        EXPECT_EQ(voice().volume, -3000);
        first.reset();
        second->setVolume(100);
        ASSERT_TRUE(device_.play(*second, false));
        EXPECT_TRUE(sameSamples(mixMono(count), ramp(count))) << count;
    }
}

TEST_F(SoundBuffers, AreRestoredByTheNextFillWhenTheyWereLost) {
    const auto sound = soundOf(monoWav(ramp(1000)));
    controls_.loseBuffers();
    ASSERT_TRUE(device_.play(*sound, false));
    EXPECT_EQ(controls_.count(Call::Compact), 1U);
    EXPECT_TRUE(sameSamples(mixMono(1000), ramp(1000)));
    controls_.loseBuffers();
    controls_.fail(Call::Restore, DSERR_BUFFERLOST);
    EXPECT_FALSE(device_.play(*sound, false));
    EXPECT_FALSE(voice().playing);
}

TEST_F(SoundBuffers, DoNotStartWhenTheDeviceRefuses) {
    std::vector<std::unique_ptr<SoundBuffer>> refused;  // alive, since a destroyed sound leaves its slot
    for (const Call function : {Call::GetStatus, Call::Unlock, Call::Play, Call::SetNotificationPositions}) {
        const auto effect = soundOf(monoWav(ramp(100)));
        refused.push_back(soundOf(monoWav(ramp(153600))));
        controls_.fail(function, DSERR_INVALIDCALL);
        const bool streamsOnly = function == Call::SetNotificationPositions;
        EXPECT_EQ(device_.play(*effect, false), streamsOnly) << static_cast<int>(function);
        EXPECT_FALSE(device_.play(*refused.back(), false)) << static_cast<int>(function);
        controls_.fail(function, DS_OK);
    }
    std::vector<std::unique_ptr<SoundBuffer>> streams;
    for (std::size_t i = 0; i < StreamSlots::kCount; ++i) {
        streams.push_back(soundOf(monoWav(ramp(153600))));
        EXPECT_TRUE(device_.play(*streams[i], false)) << "a refused stream kept its slot: none for stream " << i;
    }
}

}  // namespace
}  // namespace grub
