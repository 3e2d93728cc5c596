#include "sound_bank.h"

#include <gmock/gmock.h>

#include <set>

#include "fake_audio_device.h"
#include "memory_source.h"
#include "wav_writer.h"

namespace grub {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned kSecondPhase = 17;

std::string number(std::size_t value) { return std::to_string(value); }

SharedBuffer wavOf(std::size_t sampleBytes) { return bufferOf(writeWav({.samples = Bytes(sampleBytes)})); }

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
        for (std::size_t i = 0; i < kEffectKeys.size(); ++i) {
            const std::string line = addSound(kEffectKeys[i], effectName(i));
            if (kEffectKeys[i] != std::string("getbonus")) table += line;
        }
        package_.put("sound\\sound.ini", table);
    }

    static std::size_t effectName(std::size_t id) { return 100 + 2 * id; }
    static std::size_t trackName(std::size_t id) { return 200 + 2 * id; }
    static SoundId effect(std::size_t id) { return static_cast<SoundId>(id); }

    // Its line of the table.
    std::string addSound(const std::string& key, std::size_t sampleBytes) {
        package_.put("sound\\" + key + ".wav", writeWav({.samples = Bytes(sampleBytes)}));
        return key + "=" + key + ".wav\r\n";
    }
    // The effects that can be heard.
    std::set<std::size_t> audible() {
        log_->take();
        std::set<std::size_t> ids;
        for (std::size_t id = 0; id < kSoundCount; ++id) {
            bank_.playEffect(effect(id));
            if (log_->has("play " + number(effectName(id)))) ids.insert(id);
        }
        return ids;
    }
    // The effects from `first` to before `end` but for `absent` and 22, whose key the table lacks.
    static std::set<std::size_t> range(std::size_t first, std::size_t end, const std::set<std::size_t>& absent = {}) {
        std::set<std::size_t> ids;
        for (; first < end; ++first)
            if (first != 22 && !absent.contains(first)) ids.insert(first);
        return ids;
    }

    std::shared_ptr<AudioLog> log_ = FakeAudioDevice::install();
    MemorySource package_;
    SoundBank bank_{package_};
};

TEST_F(SoundBanks, AreSilentBeforeLoadingAndForNumbersWithoutASound) {
    bank_.playEffect(SoundId::Break);
    bank_.playMusic(MusicId::Menu);
    bank_.setEffectsVolume(5);
    bank_.setMusicVolume(5);
    bank_.unloadEffects();
    bank_.load(false);
    EXPECT_EQ(std::ranges::count(log_->calls, "music"), kMusicCount);
    log_->take();
    bank_.playEffect(effect(kSoundCount));
    bank_.stopEffect(effect(255));
    bank_.playMusic(static_cast<MusicId>(kMusicCount));
    EXPECT_THAT(log_->take(), IsEmpty());
}

TEST_F(SoundBanks, LoadEachEffectInItsPhaseAndReplaceIt) {
    EXPECT_TRUE(bank_.load(true));
    EXPECT_EQ(audible(), range(kSecondPhase, kSoundCount));
    EXPECT_TRUE(bank_.load(false));
    EXPECT_EQ(audible(), range(0, kSoundCount));
    bank_.unloadEffects();
    EXPECT_EQ(audible(), range(0, 0));
    log_->take();
    bank_.playMusic(MusicId::Menu);
    EXPECT_THAT(log_->take(), ElementsAre("loop 200")) << "the music stays";
    bank_.load(true);
    EXPECT_EQ(std::ranges::count(log_->calls, "music"), 0);
    bank_.load(true);
    EXPECT_TRUE(log_->has("destroy " + number(effectName(kSecondPhase))));
    EXPECT_EQ(audible(), range(kSecondPhase, kSoundCount));
}

TEST_F(SoundBanks, PlayEffectsOnceAndMusicInALoop) {
    bank_.load(false);
    log_->take();
    bank_.playEffect(SoundId::Landing);
    bank_.stopEffect(SoundId::Landing);
    bank_.playMusic(MusicId::Game2);
    bank_.stopMusic(MusicId::Game2);
    EXPECT_THAT(log_->take(), ElementsAre("play 124", "stop 124", "loop 204", "stop music 204"));
    EngineServices::installSoundDevice(nullptr);
    log_->take();
    EXPECT_TRUE(bank_.load(true));
    bank_.playEffect(SoundId::Break);
    EXPECT_THAT(log_->take(), IsEmpty()) << "without a device";
}

TEST_F(SoundBanks, LoadTheRestWhenSomeFilesAreAbsentOrBroken) {
    package_.remove("sound\\rat.wav");
    package_.put("sound\\water.wav", "no sound at all");
    package_.put("sound\\lov.wav", "");
    bank_.load(false);
    bank_.load(true);
    EXPECT_EQ(audible(), range(0, kSoundCount, {2, 5, 6}));
    for (const std::string& name : package_.loads())
        EXPECT_TRUE(package_.exists(name.c_str())) << name << ": a load of it shows a message box";
    bank_.setEffectsVolume(9);  // passes over the clips without a sound

    MemorySource empty;
    EXPECT_TRUE(SoundBank(empty).load(false));
    EXPECT_THAT(empty.loads(), IsEmpty());
}

// Levels of the settings and the per cent that they ask for; the sound takes what lies beyond 0 to 100 as the end.
struct Volume {
    std::uint32_t level;
    int percent;
    int menuMove;
};

TEST_F(SoundBanks, GiveLevelsToEverySoundAndAreSofterForTheTickOfTheMenus) {
    bank_.load(false);
    for (const Volume& row : {Volume{0, 0, -14}, {1, 57, 43}, {5, 85, 71}, {9, 113, 99}}) {
        SCOPED_TRACE(row.level);
        log_->take();
        bank_.setEffectsVolume(row.level);
        EXPECT_EQ(bank_.effectsLevel(), row.level);
        for (std::size_t id = 0; id < kSecondPhase; ++id) {
            const int percent = effect(id) == SoundId::MenuMove ? row.menuMove : row.percent;
            EXPECT_EQ(log_->calls.at(id), "volume " + number(effectName(id)) + " " + std::to_string(percent));
        }
        log_->take();
        bank_.setMusicVolume(row.level);
        for (std::size_t id = 0; id < kMusicCount; ++id) {
            EXPECT_EQ(log_->calls.at(id), "volume " + number(trackName(id)) + " " + std::to_string(row.percent));
        }
    }
    bank_.load(true);
    EXPECT_EQ(bank_.effectsLevel(), 0U);
}

TEST(CurrentSoundBank, IsTheOneChosenUntilItIsDestroyed) {
    MemorySource package;
    {
        SoundBank first(package);
        SoundBank::setCurrent(&first);
        const SoundBank second(package);
        EXPECT_EQ(SoundBank::current(), &first);
    }
    EXPECT_EQ(SoundBank::current(), nullptr);
}

using SoundClips = SoundBanks;

TEST_F(SoundClips, ShareTheFileWithACopyAndCloneTheSound) {
    SoundClip first;
    first.setData(wavOf(10));
    first.load();
    SoundClip second(first);
    SoundClip third;
    third = first;
    const SoundClip& same = third;
    third = same;
    EXPECT_THAT(log_->take(), ElementsAre("effect", "clone 10", "clone 10"));
    third = SoundClip();
    EXPECT_EQ(third.sound(), nullptr);
    EXPECT_FALSE(third.load()) << "the empty file was copied too";
    EXPECT_TRUE(second.load());
}

}  // namespace
}  // namespace grub
