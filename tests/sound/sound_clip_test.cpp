#include <gmock/gmock.h>

#include "fake_audio_device.h"
#include "sound_clip.h"
#include "wav_writer.h"

namespace grub {
namespace {

using testing::ElementsAre;

// A device for each test, and files whose sounds are called by their size in the log.
class SoundClips : public testing::Test {
public:
    ~SoundClips() override { EngineServices::installSoundDevice(nullptr); }

protected:
    static SharedBuffer wavOf(std::size_t sampleBytes) { return bufferOf(writeWav({.samples = Bytes(sampleBytes)})); }

    std::shared_ptr<AudioLog> log_ = FakeAudioDevice::install();
};

TEST_F(SoundClips, AnEffectAndAMusicAskForTheirKindOfSound) {
    SoundClip effect;
    EXPECT_EQ(effect.sound(), nullptr);
    effect.setData(wavOf(10));
    EXPECT_EQ(effect.sound(), nullptr);
    EXPECT_TRUE(effect.load());
    EXPECT_NE(effect.sound(), nullptr);
    MusicClip music;
    music.setData(wavOf(20));
    EXPECT_TRUE(music.load());
    EXPECT_THAT(log_->take(), ElementsAre("effect", "music"));
}

TEST_F(SoundClips, WhatIsNoSoundLeavesTheClipAsItWas) {
    SoundClip clip;
    EXPECT_FALSE(clip.load()) << "no data";
    clip.setData(wavOf(10));
    ASSERT_TRUE(clip.load());
    clip.setData(bufferOf(Bytes{'n', 'o', 'n', 'e'}));
    EXPECT_FALSE(clip.load());
    EXPECT_NE(clip.sound(), nullptr);
    EXPECT_THAT(log_->take(), ElementsAre("effect"));
}

TEST_F(SoundClips, LoadingAgainDestroysTheFormerSound) {
    SoundClip clip;
    clip.setData(wavOf(10));
    clip.load();
    clip.setData(wavOf(20));
    EXPECT_TRUE(clip.load());
    log_->refusesSounds = true;
    EXPECT_FALSE(clip.load());
    EXPECT_EQ(clip.sound(), nullptr);
    EXPECT_THAT(log_->take(), ElementsAre("effect", "effect", "destroy 10", "effect", "destroy 20"));
}

TEST_F(SoundClips, UnloadDestroysTheSoundAndKeepsTheFile) {
    SoundClip clip;
    clip.setData(wavOf(10));
    clip.load();
    clip.unload();
    EXPECT_EQ(clip.sound(), nullptr);
    EXPECT_TRUE(clip.load());
    EXPECT_THAT(log_->take(), ElementsAre("effect", "destroy 10", "effect"));
}

TEST_F(SoundClips, ACopySharesTheFileAndClonesTheSound) {
    SoundClip first;
    first.setData(wavOf(10));
    first.load();
    SoundClip second(first);
    SoundClip third;
    third.setData(wavOf(20));
    third.load();
    third = first;
    EXPECT_THAT(log_->take(), ElementsAre("effect", "clone 10", "effect", "clone 10", "destroy 20"));
    const SoundClip& same = third;
    third = same;
    EXPECT_NE(third.sound(), nullptr);
    EXPECT_NE(third.sound(), first.sound());
    EXPECT_NE(second.sound(), first.sound());
    third = SoundClip();
    EXPECT_EQ(third.sound(), nullptr);
    EXPECT_FALSE(third.load()) << "the file was copied too";
    EXPECT_THAT(log_->take(), ElementsAre("destroy 10"));
}

TEST_F(SoundClips, WithoutADeviceNothingLoads) {
    EngineServices::installSoundDevice(nullptr);
    SoundClip clip;
    clip.setData(wavOf(10));
    EXPECT_FALSE(clip.load());
    EXPECT_EQ(clip.sound(), nullptr);
}

}  // namespace
}  // namespace grub
