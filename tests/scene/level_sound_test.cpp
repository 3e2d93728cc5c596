#include "level_sound.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "crt.h"
#include "fake_audio_device.h"
#include "memory_source.h"
#include "sound_bank.h"
#include "sound_keys.h"
#include "wav_writer.h"

namespace grub {
namespace {

using Calls = std::vector<std::string>;

/// A bank with every sound; that of a number has so many bytes, effects from 100 on, music from 200 on.
class LevelSoundTest : public ::testing::Test {
protected:
    LevelSoundTest() {
        std::string table = "[sound]\n";
        for (std::size_t id = 0; id < kEffectKeys.size(); ++id) table += addSound(kEffectKeys[id], 100 + 2 * id);
        table += "[music]\n";
        for (std::size_t id = 0; id < kMusicKeys.size(); ++id) table += addSound(kMusicKeys[id], 200 + 2 * id);
        package_.put("sound\\sound.ini", table);
        bank_.load(false);
        bank_.load(true);
        SoundBank::setCurrent(&bank_);
        log_->calls.clear();
    }
    void TearDown() override {
        SoundBank::setCurrent(nullptr);
        bank_.unloadEffects();
    }

    std::string addSound(const std::string& key, std::size_t bytes) {
        package_.put("sound\\" + key + ".wav", writeWav({.samples = Bytes(bytes, 0)}));
        return key + "=" + key + ".wav\n";
    }

    std::shared_ptr<AudioLog> log_ = FakeAudioDevice::install();
    MemorySource package_;
    SoundBank bank_{package_};
    LevelSound sound_;
};

TEST_F(LevelSoundTest, StartsAndStopsWhatAFrameAsksForInItsOrder) {
    SoundRequests requests;
    requests.play(SoundId::Falling);
    requests.stop(SoundId::Falling);
    requests.play(SoundId::Landing);
    requests.play(SoundId::Skull);
    sound_.play(requests.all());
    EXPECT_EQ(log_->calls, (Calls{"play 122", "stop 122", "play 124", "play 148"}));
}

TEST_F(LevelSoundTest, TracksTakeTurnsFromTheFirstWhichChanceChooses) {
    // The first number of seed 1 is 41, that of seed 10000 is 32694.
    const struct {
        unsigned seed;
        Calls calls;
    } rows[] = {
        {1, {"loop 204", "stop music 204", "loop 202", "stop music 202", "loop 204"}},
        {10000, {"loop 202", "stop music 202", "loop 204", "stop music 204", "loop 202"}},
    };
    for (const auto& row : rows) {
        log_->calls.clear();
        crt::srand(row.seed);
        sound_.forgetTrack();
        for (int level = 0; level < 3; ++level) {
            if (level > 0) sound_.stopMusic();
            sound_.startMusic();
        }
        EXPECT_EQ(log_->calls, row.calls) << row.seed;
    }
}

TEST_F(LevelSoundTest, MusicStaysFarBehindTheEffectsAndTheMenuTickBehindThose) {
    sound_.applyVolumes();
    EXPECT_TRUE(log_->has("volume 200 71"));
    EXPECT_TRUE(log_->has("volume 100 99"));
    EXPECT_TRUE(log_->has("volume 148 99")) << "those of the second phase too";
    EXPECT_TRUE(log_->has("volume 114 85"));
}

TEST_F(LevelSoundTest, IsSilentWithoutABank) {
    SoundBank::setCurrent(nullptr);
    SoundRequests requests;
    requests.play(SoundId::Break);
    sound_.play(requests.all());
    sound_.applyVolumes();
    LevelSound::loadSecondPhase();
    sound_.startMusic();
    sound_.stopMusic();
    EXPECT_TRUE(sound_.track());
    EXPECT_EQ(log_->calls, Calls{});
}

}  // namespace
}  // namespace grub
