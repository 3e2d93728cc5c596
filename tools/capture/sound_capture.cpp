#include "sound_capture.h"

#include <memory>
#include <span>

#include "crt.h"
#include "dsound/sound_card.h"
#include "dsound_device.h"
#include "engine_services.h"
#include "game_player.h"
#include "key_events.h"
#include "level_sound.h"

namespace grub {

namespace {

/// The device takes the program's window and never looks at it. This program has no window.
HWND noWindow() {
    static int standIn = 0;
    return reinterpret_cast<HWND>(&standIn);
}

/// Grows by what the speakers get while a game frame lasts.
class Tape {
public:
    void recordFrame() {
        constexpr std::size_t kValues = std::size_t{kSamplesPerFrame} * platform::kHandMixedChannels;
        samples_.resize(samples_.size() + kValues);
        platform::mixSound(std::span(samples_).last(kValues));
    }
    [[nodiscard]] std::vector<std::int16_t> take() { return std::move(samples_); }

private:
    std::vector<std::int16_t> samples_;
};

}  // namespace

HandMixedDevice::HandMixedDevice() {
    static_assert(platform::kHandMixedRate == kSamplesPerFrame * 25);
    platform::setSoundOutput(platform::SoundOutput::ByHand);
    auto device = std::make_unique<DSoundDevice>(noWindow());
    device->init();
    EngineServices::installSoundDevice(std::move(device));
}

HandMixedDevice::~HandMixedDevice() {
    EngineServices::soundDevice()->shutdown();
    EngineServices::installSoundDevice(nullptr);
    platform::setSoundOutput(platform::SoundOutput::Card);
}

bool HandMixedDevice::isReady() const { return EngineServices::soundDevice()->isReady(); }

// The track is chosen by the game's own seed, so that a capture is the same each time.
std::vector<std::int16_t> captureSound(const RecordedGame& game, World& world, SoundBank& bank) {
    bank.load(false);
    bank.load(true);
    SoundBank::setCurrent(&bank);
    LevelSound sound;
    sound.applyVolumes();
    sound.play(world.sounds());
    crt::srand(game.start.seed);
    sound.startMusic();
    Tape tape;
    tape.recordFrame();
    KeyFeed keys(game.events);
    while (!isOver(game, world)) {
        playFrame(world, keys);
        sound.play(world.sounds());
        tape.recordFrame();
    }
    sound.stopMusic();
    for (int frame = 0; frame < kTailFrames; ++frame) tape.recordFrame();
    SoundBank::setCurrent(nullptr);
    return tape.take();
}

}  // namespace grub
