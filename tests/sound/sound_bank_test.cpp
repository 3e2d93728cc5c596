#include <gmock/gmock.h>

#include <set>

#include "fake_audio_device.h"
#include "memory_source.h"
#include "sound_bank.h"
#include "sound_keys.h"
#include "wav_writer.h"

namespace grub {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned kSecondPhase = 17;

std::string number(std::size_t value) { return std::to_string(value); }

// A package with a sound for every key. Effect n has 100 + 2n bytes of PCM and track n 200 + 2n, which is what the log
// calls them.
class SoundBanks : public testing::Test {
public:
    ~SoundBanks() override { EngineServices::installSoundDevice(nullptr); }

protected:
    SoundBanks() {
        std::string table = "[music]\r\n";
        for (std::size_t i = 0; i < kMusicKeys.size(); ++i) table += addSound(kMusicKeys[i], trackName(i));
        table += "[sound]\r\n";
        for (std::size_t i = 0; i < kEffectKeys.size(); ++i) table += addSound(kEffectKeys[i], effectName(i));
        setTable(table);
    }

    static std::size_t effectName(std::size_t id) { return 100 + 2 * id; }
    static std::size_t trackName(std::size_t id) { return 200 + 2 * id; }
    static SoundId effect(std::size_t id) { return static_cast<SoundId>(id); }

    void setTable(const std::string& table) {
        table_ = table;
        package_.put("sound\\sound.ini", table);
    }
    // Its line of the table.
    std::string addSound(const std::string& key, std::size_t sampleBytes) {
        package_.put("sound\\" + key + ".wav", writeWav({.samples = Bytes(sampleBytes)}));
        return key + "=" + key + ".wav\r\n";
    }
    void dropLineOf(const std::string& key) {
        const std::size_t at = table_.find("\n" + key + "=") + 1;
        setTable(table_.erase(at, table_.find('\n', at) + 1 - at));
    }
    // Names of the effects that can be heard.
    std::set<std::size_t> audible() {
        log_->take();
        std::set<std::size_t> ids;
        for (std::size_t id = 0; id < kSoundCount; ++id) {
            bank_.playEffect(effect(id));
            if (log_->has("play " + number(effectName(id)))) ids.insert(id);
        }
        return ids;
    }
    static std::set<std::size_t> range(std::size_t first, std::size_t end) {
        std::set<std::size_t> ids;
        for (; first < end; ++first) ids.insert(first);
        return ids;
    }

    std::shared_ptr<AudioLog> log_ = FakeAudioDevice::install();
    MemorySource package_;
    std::string table_;
    SoundBank bank_{package_};
};

TEST_F(SoundBanks, IsSilentBeforeLoadingAndForNumbersThatNoSoundHas) {
    bank_.playEffect(SoundId::Break);
    bank_.stopEffect(SoundId::Break);
    bank_.playMusic(MusicId::Menu);
    bank_.stopMusic(MusicId::Menu);
    bank_.setEffectsVolume(5);
    bank_.setMusicVolume(5);
    bank_.unloadEffects();
    EXPECT_THAT(log_->take(), IsEmpty());
    bank_.load(false);
    log_->take();
    bank_.playEffect(effect(kSoundCount));
    bank_.stopEffect(effect(255));
    bank_.playMusic(static_cast<MusicId>(kMusicCount));
    EXPECT_THAT(log_->take(), IsEmpty());
}

TEST_F(SoundBanks, ThePhasesShareTheEffectsAndTheFirstHasTheMusic) {
    EXPECT_TRUE(bank_.load(false));
    EXPECT_EQ(std::ranges::count(log_->calls, "music"), kMusicCount);
    EXPECT_EQ(audible(), range(0, kSecondPhase));
    EXPECT_TRUE(bank_.load(true));
    EXPECT_EQ(std::ranges::count(log_->calls, "music"), 0);
    EXPECT_EQ(audible(), range(0, kSoundCount));
}

TEST_F(SoundBanks, TheSecondPhaseAloneLoadsOnlyItsOwn) {
    bank_.load(true);
    EXPECT_EQ(audible(), range(kSecondPhase, kSoundCount));
}

TEST_F(SoundBanks, PlaysEffectsOnceAndMusicRoundAndRound) {
    bank_.load(false);
    log_->take();
    bank_.playEffect(SoundId::Landing);
    bank_.stopEffect(SoundId::Landing);
    bank_.playMusic(MusicId::Game2);
    bank_.stopMusic(MusicId::Game2);
    EXPECT_THAT(log_->take(), ElementsAre("play 124", "stop 124", "loop 204", "stop music 204"));
}

TEST_F(SoundBanks, WhatIsAbsentIsSilentAndTheRestLoadsWithoutAMessage) {
    dropLineOf("getkey");
    package_.remove("sound\\rat.wav");
    package_.put("sound\\water.wav", "no sound at all");
    package_.put("sound\\lov.wav", "");
    bank_.load(false);
    auto rest = range(0, kSecondPhase);
    for (const std::size_t absent : {1, 2, 5, 6}) rest.erase(absent);
    EXPECT_EQ(audible(), rest);
    for (const std::string& name : package_.loads()) EXPECT_TRUE(package_.exists(name.c_str())) << name;
    bank_.setEffectsVolume(9);  // the clips without a sound are passed over
}

TEST_F(SoundBanks, WithoutATableNothingIsLoaded) {
    package_.remove("sound\\sound.ini");
    EXPECT_TRUE(bank_.load(false));
    EXPECT_TRUE(audible().empty());
    EXPECT_THAT(package_.loads(), IsEmpty());
}

TEST_F(SoundBanks, LoadingAgainReplacesTheClips) {
    bank_.load(true);
    package_.put("sound\\skull.wav", writeWav({.samples = Bytes(500)}));
    log_->take();
    bank_.load(true);
    for (std::size_t id = kSecondPhase; id < kSoundCount; ++id) {
        EXPECT_TRUE(log_->has("destroy " + number(effectName(id)))) << id;
    }
    log_->take();
    bank_.playEffect(SoundId::Skull);
    EXPECT_THAT(log_->take(), ElementsAre("play 500"));
}

TEST_F(SoundBanks, UnloadedEffectsAreSilentAndTheMusicStays) {
    bank_.load(false);
    bank_.unloadEffects();
    EXPECT_TRUE(audible().empty());
    bank_.playMusic(MusicId::Menu);
    EXPECT_THAT(log_->take(), ElementsAre("loop 200"));
    bank_.load(false);
    EXPECT_EQ(audible(), range(0, kSecondPhase));
}

// Levels of the settings and the per cent that they ask for; the sound takes what lies beyond 0 to 100 as the end.
struct Volume {
    std::uint32_t level;
    int percent;
    int menuMove;
};
const Volume kVolumes[] = {
    {0, 0, -14}, {1, 57, 43}, {2, 64, 50}, {3, 71, 57},  {4, 78, 64},
    {5, 85, 71}, {6, 92, 78}, {7, 99, 85}, {8, 106, 92}, {9, 113, 99},
};

TEST_F(SoundBanks, LevelsGoToEverySoundAndTheMenusTickIsSofter) {
    bank_.load(false);
    bank_.load(true);
    for (const Volume& row : kVolumes) {
        log_->take();
        bank_.setEffectsVolume(row.level);
        EXPECT_EQ(bank_.effectsLevel(), row.level);
        for (std::size_t id = 0; id < kSoundCount; ++id) {
            const int percent = effect(id) == SoundId::MenuMove ? row.menuMove : row.percent;
            EXPECT_EQ(log_->calls.at(id), "volume " + number(effectName(id)) + " " + std::to_string(percent));
        }
        log_->take();
        bank_.setMusicVolume(row.level);
        for (std::size_t id = 0; id < kMusicCount; ++id) {
            EXPECT_EQ(log_->calls.at(id), "volume " + number(trackName(id)) + " " + std::to_string(row.percent));
        }
    }
}

TEST_F(SoundBanks, LoadingForgetsTheLevel) {
    bank_.load(false);
    bank_.setEffectsVolume(7);
    bank_.load(true);
    EXPECT_EQ(bank_.effectsLevel(), 0U);
}

TEST_F(SoundBanks, PlaysNothingWithoutADevice) {
    EngineServices::installSoundDevice(nullptr);
    EXPECT_TRUE(bank_.load(false));
    bank_.playEffect(SoundId::Break);
    bank_.playMusic(MusicId::Menu);
    bank_.setEffectsVolume(3);
    EXPECT_THAT(log_->take(), IsEmpty());
}

TEST(CurrentSoundBank, IsTheOneChosenUntilItIsDestroyed) {
    MemorySource package;
    EXPECT_EQ(SoundBank::current(), nullptr);
    {
        SoundBank first(package);
        SoundBank::setCurrent(&first);
        const SoundBank second(package);
        EXPECT_EQ(SoundBank::current(), &first);
    }
    EXPECT_EQ(SoundBank::current(), nullptr);
}

}  // namespace
}  // namespace grub
