#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "engine_services.h"
#include "hand_mixed_device.h"
#include "memory_source.h"
#include "sound_bank.h"

namespace grub {
namespace {

constexpr int kLoads = 15;

// The device is the engine's, as in the game.
class BankOnTheDevice : public testing::Test {
public:
    ~BankOnTheDevice() override {
        EngineServices::shutdown();
        platform::setSoundOutput(platform::SoundOutput::Card);
    }

protected:
    BankOnTheDevice() {
        platform::setSoundOutput(platform::SoundOutput::ByHand);
        EngineServices::installSoundDevice(std::make_unique<DSoundDevice>(reinterpret_cast<HWND>(std::uintptr_t{1})));
        EXPECT_TRUE(EngineServices::soundDevice()->init());
        package_.put("sound\\sound.ini", std::string("[sound]\ngetkey=a\nskull=a\nbomb=b\n"));
        package_.put("sound\\a", monoWav(Samples(1000, 100)));
        package_.put("sound\\b", monoWav(Samples(150000, 10)));  // streams
    }

    MemorySource package_;
    SoundBank bank_{package_};
};

// Meant for the thread sanitizer: each load replaces sounds that the game may be starting at this moment.
TEST_F(BankOnTheDevice, TheSecondPhaseLoadsWhileTheGamePlays) {
    bank_.load(false);
    std::atomic<bool> loaded = false;
    std::thread loader([&] {
        for (int i = 0; i < kLoads; ++i) bank_.load(true);
        loaded = true;
    });
    Samples stereo(8820);  // a tenth of a second
    while (!loaded) {
        for (const SoundId id : {SoundId::GetKey, SoundId::Skull, SoundId::Bomb}) bank_.playEffect(id);
        bank_.setEffectsVolume(9);
        platform::mixSound(stereo);
        bank_.stopEffect(SoundId::Bomb);
    }
    loader.join();

    EXPECT_EQ(platform::testing::voices().size(), 3U) << "what was replaced is gone";
    bank_.setEffectsVolume(9);
    for (const SoundId id : {SoundId::GetKey, SoundId::Skull, SoundId::Bomb}) bank_.stopEffect(id);
    bank_.playEffect(SoundId::Skull);
    bank_.playEffect(SoundId::Bomb);
    platform::mixSound(stereo);
    EXPECT_EQ(stereo[0], 110);
    EXPECT_EQ(stereo.back(), 10) << "the short one has ended";
}

}  // namespace
}  // namespace grub
