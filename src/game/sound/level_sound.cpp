#include "level_sound.h"

#include "crt.h"
#include "sound_bank.h"

namespace grub {

namespace {

/// Numbers of the process's sequence, 0 to 32767, divided by this give 0 for one half of them.
constexpr int kHalfOfRandom = 16383;

}  // namespace

void LevelSound::applyVolumes() const {
    SoundBank* const bank = SoundBank::current();
    if (!bank) return;
    bank->setMusicVolume(static_cast<std::uint32_t>(volumes_.music));
    bank->setEffectsVolume(static_cast<std::uint32_t>(volumes_.effects));
}

void LevelSound::setVolumes(Volumes volumes) {
    volumes_ = volumes;
    applyVolumes();
}

void LevelSound::loadSecondPhase() {
    if (SoundBank* const bank = SoundBank::current()) bank->load(true);
}

void LevelSound::play(std::span<const SoundRequest> requests) const {
    SoundBank* const bank = SoundBank::current();
    if (!bank) return;
    for (const SoundRequest& request : requests) {
        if (request.action == SoundRequest::Action::Play)
            bank->playEffect(request.sound);
        else
            bank->stopEffect(request.sound);
    }
}

void LevelSound::startMusic() {
    if (!track_)
        track_ = crt::rand() / kHalfOfRandom == 0 ? MusicId::Game2 : MusicId::Game1;
    else
        track_ = *track_ == MusicId::Game1 ? MusicId::Game2 : MusicId::Game1;
    if (SoundBank* const bank = SoundBank::current()) bank->playMusic(*track_);
}

void LevelSound::stopMusic() const {
    SoundBank* const bank = SoundBank::current();
    if (bank && track_) bank->stopMusic(*track_);
}

}  // namespace grub
