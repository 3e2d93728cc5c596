// Meant for the thread sanitizer: everything at once, on speakers that ask for sound much faster than a card would.
#include <gmock/gmock.h>

#include <atomic>
#include <random>
#include <thread>

#include "engine_services.h"
#include "hand_mixed_device.h"
#include "memory_source.h"
#include "ogg_writer.h"
#include "sound_bank.h"

namespace grub {
namespace {

using RandomPlaying = HandMixedDevice;

// The test is the game's thread. It does what can happen to a sound, to a random one.
TEST_F(RandomPlaying, EndsInSilenceWithAllSlotsFree) {
    const std::vector<Bytes> files{monoWav(Samples(200, 1)), monoWav(Samples(140000, 2)), monoWav(Samples(300000, 3)),
                                   writeOgg({sine(3000, 440, 44100)})};
    std::atomic<bool> ended = false;
    std::thread speakers([&] {
        Samples stereo(8820);
        while (!ended) platform::mixSound(stereo);
    });
    std::mt19937 random(testing::UnitTest::GetInstance()->random_seed() + 1U);
    std::vector<std::unique_ptr<SoundBuffer>> sounds(24);
    for (auto& sound : sounds) sound = soundOf(files[random() % files.size()]);
    for (int i = 0; i < 600; ++i) {
        auto& sound = sounds[random() % sounds.size()];
        switch (random() % 9) {
            case 0: sound = sound->clone(); break;
            case 1: sound->create(createSoundDecoder(bufferOf(files[random() % files.size()]))); break;
            case 2: sound->setVolume(static_cast<int>(random() % 101)); break;
            case 3: sound->setPan(static_cast<int>(random() % 101)); break;
            case 4: std::this_thread::sleep_for(std::chrono::milliseconds(1)); break;
            case 5: device_.playLooped(*sound); break;
            case 6: device_.stop(*sound); break;
            default: device_.play(*sound, false);
        }
    }
    for (const auto& sound : sounds) EXPECT_TRUE(device_.stop(*sound));
    for (const auto& voice : platform::testing::voices()) EXPECT_FALSE(voice.playing);
    sounds.clear();
    for (std::size_t i = 0; i < StreamSlots::kCount; ++i) {
        sounds.push_back(soundOf(monoWav(Samples(300000))));
        EXPECT_TRUE(device_.playLooped(*sounds[i])) << i;
    }
    ended = true;
    speakers.join();
}

// Each load replaces sounds that the game may be starting at this moment.
TEST(SoundBankThreads, LoadTheSecondPhaseWhileTheGamePlays) {
    constexpr int kLoads = 15;
    platform::setSoundOutput(platform::SoundOutput::ByHand);
    EngineServices::installSoundDevice(std::make_unique<DSoundDevice>(reinterpret_cast<HWND>(std::uintptr_t{1})));
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
            for (int i = 0; i < kLoads; ++i) bank.load(true);
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
