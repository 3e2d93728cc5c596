#include "level_sound.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "crt.h"
#include "fake_audio_device.h"
#include "memory_source.h"
#include "sound_bank.h"
#include "wav_writer.h"

namespace grub {
namespace {

using Calls = std::vector<std::string>;

/// A bank of a few sounds, which are told apart by their sizes.
class LevelSoundTest : public ::testing::Test {
protected:
    LevelSoundTest() {
        package_.put("sound\\sound.ini", std::string("[music]\ngame1=202\ngame2=204\n"
                                                     "[sound]\npadenie=122\nlanding=124\nskull=148\n"));
        for (const std::size_t size : {122, 124, 148, 202, 204})
            package_.put("sound\\" + std::to_string(size), writeWav({.samples = Bytes(size, 0)}));
        bank_.load(false);
        bank_.load(true);
        SoundBank::setCurrent(&bank_);
        log_->calls.clear();
    }
    ~LevelSoundTest() override { SoundBank::setCurrent(nullptr); }

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

}  // namespace
}  // namespace grub
