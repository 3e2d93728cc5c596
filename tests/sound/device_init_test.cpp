#include <gmock/gmock.h>

#include "hand_mixed_device.h"
#include "testing.h"

namespace grub {
namespace {

using platform::SoundFunction;
using platform::SoundOutput;
using platform::testing::MessageBoxRecorder;
using platform::testing::SoundControls;

const HWND kWindow = reinterpret_cast<HWND>(std::uintptr_t{1});

struct RefusedStart {
    const char* name;
    SoundOutput output;
    SoundFunction refuses;
    HRESULT result;
    const char* text;
};

const RefusedStart kRefusedStarts[] = {
    {"no card", SoundOutput::None, SoundFunction::Restore, DS_OK,
     "Can't creates an instance of a DirectSound8 object. (DSERR_NODRIVER)"},
    {"no DirectSound", SoundOutput::ByHand, SoundFunction::DirectSoundCreate8, DSERR_INVALIDCALL,
     "Can't creates an instance of a DirectSound8 object. (DSERR_INVALIDCALL)"},
    {"no level", SoundOutput::ByHand, SoundFunction::SetCooperativeLevel, DSERR_CONTROLUNAVAIL,
     "Can't sets the cooperative level of the application for sound device. (DSERR_CONTROLUNAVAIL)"},
};

TEST(SoundDeviceRefused, TellsThePlayerOnceAndGoesOnSilently) {
    for (const RefusedStart& start : kRefusedStarts) {
        platform::setSoundOutput(start.output);
        SoundControls controls;
        controls.fail(start.refuses, start.result);
        const MessageBoxRecorder boxes;
        DSoundDevice device(kWindow);
        EXPECT_FALSE(device.init()) << start.name;
        ASSERT_EQ(boxes.boxes().size(), 1U) << start.name;
        EXPECT_EQ(boxes.boxes()[0].text, start.text);
        EXPECT_EQ(boxes.boxes()[0].caption, "DirectX error");
        EXPECT_EQ(boxes.boxes()[0].style, 0x2010U);

        EXPECT_FALSE(device.isReady());
        const auto sound = device.createSound();
        ASSERT_TRUE(sound);
        EXPECT_FALSE(sound->create(createSoundDecoder(bufferOf(monoWav(ramp(100))))));
        EXPECT_FALSE(device.play(*sound, false));
        EXPECT_FALSE(device.stop(*sound));
        EXPECT_FALSE(sound->setVolume(50));
        EXPECT_TRUE(device.shutdown());
    }
    platform::setSoundOutput(SoundOutput::Card);
}

TEST(SoundDeviceRefused, WithoutThreadsThereIsNoDevice) {
    platform::setSoundOutput(SoundOutput::ByHand);
    for (const int successes : {0, 1}) {
        const platform::testing::FailingCall failing(platform::testing::Call::CreateThread, successes);
        DSoundDevice device(kWindow);
        EXPECT_FALSE(device.init());
        EXPECT_FALSE(device.isReady());
    }
    platform::setSoundOutput(SoundOutput::Card);
}

using SoundDeviceShutdown = HandMixedDevice;

TEST_F(SoundDeviceShutdown, SilencesStreamsAndLeavesSoundsThatMayDieLater) {
    const auto stream = soundOf(monoWav(ramp(200000)));
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
}

TEST_F(SoundDeviceShutdown, ADeviceThatWasShutDownStartsAgain) {
    device_.shutdown();
    ASSERT_TRUE(device_.init());
    const auto stream = soundOf(monoWav(ramp(200000)));
    ASSERT_TRUE(device_.play(*stream, false));
    EXPECT_TRUE(sameSamples(mixMono(200000), ramp(200000)));
}

}  // namespace
}  // namespace grub
