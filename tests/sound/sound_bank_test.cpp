#include "sound_bank.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "fake_audio_device.h"
#include "hand_mixed_device.h"
#include "memory_source.h"

namespace grub {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Effects by number: # can be heard, . cannot. Number 22 is never loaded.
constexpr const char* kAll = "######################.##";
constexpr const char* kSecondPhase = ".................#####.##";
constexpr const char* kNone = ".........................";

// A package with a sound for every key, and a table that lacks the key of effect 22. Effect n has 100 + 2n bytes of PCM
// and track n 200 + 2n, which is what the log calls them.
class SoundBanks : public testing::Test {
public:
    ~SoundBanks() override { EngineServices::installSoundDevice(nullptr); }

protected:
    SoundBanks() {
        std::string table = "[music]\r\n";
        for (std::size_t i = 0; i < kMusicKeys.size(); ++i) table += addSound(kMusicKeys[i], 200 + 2 * i);
        table += "[sound]\r\n";
        for (std::size_t i = 0; i < kEffectKeys.size(); ++i) {
            const std::string line = addSound(kEffectKeys[i], 100 + 2 * i);
            if (i != 22) table += line;
        }
        package_.put("sound\\sound.ini", table);
    }

    static SoundId effect(std::size_t id) { return static_cast<SoundId>(id); }

    // Its line of the table.
    std::string addSound(const std::string& key, std::size_t sampleBytes) {
        package_.put("sound\\" + key + ".wav", writeWav({.samples = Bytes(sampleBytes)}));
        return key + "=" + key + ".wav\r\n";
    }
    std::string audible() {
        std::string all = kNone;
        for (std::size_t id = 0; id < kSoundCount; ++id) {
            bank_.playEffect(effect(id));
            if (log_->has("play " + std::to_string(100 + 2 * id))) all[id] = '#';
            log_->calls.clear();
        }
        return all;
    }

    std::shared_ptr<AudioLog> log_ = FakeAudioDevice::install();
    MemorySource package_;
    SoundBank bank_{package_};
};

TEST_F(SoundBanks, AreSilentBeforeLoadingAndForNumbersWithoutASound) {
    bank_.playMusic(MusicId::Menu);
    bank_.setEffectsVolume(5);
    bank_.unloadEffects();
    EXPECT_EQ(audible(), kNone);
    bank_.load(false);
    log_->take();
    bank_.playEffect(effect(kSoundCount));
    bank_.stopEffect(effect(255));
    bank_.playMusic(static_cast<MusicId>(kMusicCount));
    bank_.stopEffect(SoundId::Landing);
    EXPECT_THAT(log_->take(), ElementsAre("stop 124"));
}

TEST_F(SoundBanks, LoadEachEffectInItsPhaseAndReplaceIt) {
    bank_.load(true);
    EXPECT_EQ(audible(), kSecondPhase);
    bank_.load(false);
    EXPECT_EQ(audible(), kAll);
    bank_.unloadEffects();
    EXPECT_EQ(audible(), kNone);
    bank_.playMusic(MusicId::Menu);
    bank_.stopMusic(MusicId::Menu);
    EXPECT_THAT(log_->take(), ElementsAre("loop 200", "stop music 200")) << "the music stays";
    bank_.load(true);
    EXPECT_EQ(std::ranges::count(log_->calls, "music"), 0);
    EXPECT_EQ(audible(), kSecondPhase);
}

TEST_F(SoundBanks, LoadTheRestWhenSomeFilesAreAbsentOrBroken) {
    package_.remove("sound\\rat.wav");
    package_.put("sound\\water.wav", "no sound at all");
    package_.put("sound\\lov.wav", "");
    bank_.load(false);
    bank_.load(true);
    EXPECT_EQ(audible(), "##.##..###############.##");
    for (const std::string& name : package_.loads())
        EXPECT_TRUE(package_.exists(name.c_str())) << name << ": a load of it shows a message box";
    bank_.setEffectsVolume(9);  // passes over the clips without a sound

    MemorySource empty;
    EXPECT_TRUE(SoundBank(empty).load(false));
    EXPECT_THAT(empty.loads(), IsEmpty());
    EngineServices::installSoundDevice(nullptr);
    EXPECT_TRUE(bank_.load(true));
    bank_.playEffect(SoundId::Break);
}

// Levels of the settings and the per cent that they ask for; the sound takes what lies beyond 0 to 100 as the end.
TEST_F(SoundBanks, GiveLevelsToEverySoundAndAreSofterForTheTickOfTheMenus) {
    bank_.load(false);
    for (const auto& [level, percent, menuMove] : {std::array{0, 0, -14}, {1, 57, 43}, {9, 113, 99}}) {
        SCOPED_TRACE(level);
        log_->take();
        bank_.setEffectsVolume(static_cast<std::uint32_t>(level));
        bank_.setMusicVolume(static_cast<std::uint32_t>(level));
        const auto volumeOf = [](std::size_t name, int wanted) {
            return "volume " + std::to_string(name) + " " + std::to_string(wanted);
        };
        std::vector<std::string> calls;
        for (std::size_t id = 0; id < kFirstOfSecondPhase; ++id)
            calls.push_back(volumeOf(100 + 2 * id, effect(id) == SoundId::MenuMove ? menuMove : percent));
        for (std::size_t id = 0; id < kMusicCount; ++id) calls.push_back(volumeOf(200 + 2 * id, percent));
        EXPECT_EQ(log_->calls, calls);
    }
}

// Each load replaces sounds that the game may be starting at this moment.
TEST(SoundBankThreads, LoadTheSecondPhaseWhileTheGamePlays) {
    platform::setSoundOutput(platform::SoundOutput::ByHand);
    EngineServices::installSoundDevice(std::make_unique<DSoundDevice>(kAnyWindow));
    ASSERT_TRUE(EngineServices::soundDevice()->init());
    {
        MemorySource package;
        package.put("sound\\sound.ini", std::string("[sound]\ngetkey=a\nskull=a\nbomb=b\n"));
        package.put("sound\\a", monoWav(Samples(1000, 100)));
        package.put("sound\\b", monoWav(Samples(150000, 10)));  // streams
        SoundBank bank(package);
        bank.load(false);
        std::atomic<bool> loaded = false;
        std::thread loader([&] {
            for (int i = 0; i < 15; ++i) bank.load(true);
            loaded = true;
        });
        Samples stereo(8820);  // a tenth of a second
        while (!loaded) {
            for (const SoundId id : {SoundId::GetKey, SoundId::Skull, SoundId::Bomb}) bank.playEffect(id);
            bank.setEffectsVolume(9);
            platform::mixSound(stereo);
            bank.stopEffect(SoundId::Bomb);
        }
        loader.join();
        EXPECT_EQ(platform::testing::voices().size(), 3U) << "what was replaced is gone";
    }
    EngineServices::shutdown();
    platform::setSoundOutput(platform::SoundOutput::Card);
}

}  // namespace
}  // namespace grub
