#include <gmock/gmock.h>

#include "control/call_controls.h"
#include "control/testing.h"
#include "hand_mixed_device.h"

namespace grub {
namespace {

using platform::Call;
using platform::SoundOutput;
using platform::testing::MessageBoxRecorder;

TEST(SoundDeviceRefused, TellsThePlayerOnceAndGoesOnSilently) {
    for (const auto& [output, text] :
         {std::pair{SoundOutput::None, "Can't creates an instance of a DirectSound8 object. (DSERR_NODRIVER)"},
          {SoundOutput::ByHand,
           "Can't sets the cooperative level of the application for sound device. (DSERR_CONTROLUNAVAIL)"}}) {
        SCOPED_TRACE(text);
        platform::setSoundOutput(output);
        platform::testing::SoundControls controls;
        controls.fail(Call::SetCooperativeLevel, DSERR_CONTROLUNAVAIL);
        const MessageBoxRecorder boxes;
        DSoundDevice device(kAnyWindow);
        EXPECT_FALSE(device.init());
        ASSERT_EQ(boxes.boxes().size(), 1U);
        EXPECT_EQ(boxes.boxes()[0].text, text);

        const auto sound = device.createSound();
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(monoWav(ramp(100))))));
        EXPECT_FALSE(device.play(*sound, false));
    }
    platform::setSoundOutput(SoundOutput::Card);
}

using SoundDevice = HandMixedDevice;

TEST_F(SoundDevice, SilencesStreamsWhenItShutsDown) {
    const auto stream = soundOf(monoWav(ramp(200000)));
    ASSERT_TRUE(device_.playLooped(*stream));
    EXPECT_EQ(mixMono(80000).back(), ramp(80000).back());
    EXPECT_TRUE(device_.shutdown());
    EXPECT_FALSE(device_.play(*stream, true) || device_.stop(*stream));
    EXPECT_TRUE(sameSamples(mixMono(200000), Samples(200000)));
}

using SoundBuffers = HandMixedDevice;

TEST_F(SoundBuffers, AreStaticBelow256KiB) {
    const auto eightBitWav = [](std::size_t bytes) { return writeWav({.bits = 8, .samples = Bytes(bytes, 0x80)}); };
    const Bytes frameAndAHalf = writeWav({.channels = 2, .samples = Bytes(6)});
    for (const auto& [file, staticBytes] :
         {std::pair{eightBitWav(262143), 262143U}, {eightBitWav(262144), 0U}, {monoWav({}), 0U}, {frameAndAHalf, 4U}}) {
        const auto sound = soundOf(file);
        EXPECT_EQ(static_cast<DSoundBuffer&>(*sound).streams(), staticBytes == 0);
        EXPECT_EQ(voice().bytes, staticBytes != 0 ? staticBytes : DSoundBuffer::kRingBytes);
    }
}

// Other formats reach the device, which refuses them.
TEST_F(SoundBuffers, OfFormatsWithoutAFrameAreSilent) {
    for (const Bytes& file : {writeWav({.channels = 0, .samples = Bytes(5000)}),
                              writeWav({.channels = 65535, .bits = 65535, .samples = Bytes(5000)}),
                              writeWav({.channels = 2, .samples = Bytes(3)}), bytesOf("OggS")}) {
        const auto sound = device_.createMusic();
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(file))));
        EXPECT_FALSE(device_.play(*sound, false));
        EXPECT_FALSE(device_.stop(*sound) || sound->setVolume(50) || sound->setPan(50));
        EXPECT_TRUE(sound->clone());
    }
}

TEST_F(SoundBuffers, AreHeardAtTheirPlaceAndLoudness) {
    struct Place {
        int pan, volume;  // per cent
        double left, right;
    };
    for (const Place& place :
         {Place{50, 100, 1, 1}, {-1, 100, 1, 0}, {200, 113, 0, 1}, {47, 94, 0.5, 0.25}, {50, -14, 0, 0}}) {
        const auto sound = soundOf(monoWav(Samples(100, 10000)));
        EXPECT_TRUE(sound->setPan(place.pan));
        EXPECT_TRUE(sound->setVolume(place.volume));
        ASSERT_TRUE(device_.play(*sound, false));
        Samples stereo(2);
        platform::mixSound(stereo);
        EXPECT_NEAR(stereo[0], 10000 * place.left, 30) << "pan " << place.pan;  // 6 decibels are nearly a half
        EXPECT_NEAR(stereo[1], 10000 * place.right, 30) << "pan " << place.pan;
    }
}

constexpr std::size_t kStatic = 1000;
constexpr std::size_t kStreaming = 153600;

TEST_F(SoundBuffers, PlayAllTheirSamplesOnceOrAgainAndAgain) {
    const auto sound = soundOf(monoWav(ramp(kStatic)));
    ASSERT_TRUE(device_.play(*sound, false));
    EXPECT_TRUE(sameSamples(mixMono(1500), padded(ramp(kStatic), 1500)));
    ASSERT_TRUE(device_.play(*sound, true));
    for (int round = 0; round < 3; ++round) EXPECT_TRUE(sameSamples(mixMono(kStatic), ramp(kStatic)));
}

TEST_F(SoundBuffers, GoOnWhenTheyAreToPlayWhileTheyPlayAndSoundTheSameInAClone) {
    for (const std::size_t count : {kStatic, kStreaming}) {
        auto first = soundOf(monoWav(ramp(count)));
        first->setVolume(70);
        ASSERT_TRUE(device_.play(*first, false));
        mixMono(500);
        const auto second = first->clone();
        EXPECT_EQ(voice().volume, -3000);
        first->setVolume(100);
        EXPECT_TRUE(device_.play(*first, false));
        EXPECT_EQ(mixMono(1).back(), ramp(501).back()) << count;
        first.reset();
        second->setVolume(100);
        ASSERT_TRUE(device_.play(*second, false));
        EXPECT_TRUE(sameSamples(mixMono(count), ramp(count))) << count;
    }
}

}  // namespace
}  // namespace grub
