#include "opening.h"

#include "level_scene.h"
#include "sound_bank.h"

namespace grub {

bool Opening::step(bool mayEnd) {
    constexpr int kLastStep = 6;
    if (step_ < kLastStep) {
        prepare(step_++);
        return false;
    }
    if (!mayEnd) return false;
    menu_.prepareLayout("options_menu");
    menu_.prepareLayout("highscore_menu");
    return true;
}

void Opening::prepare(int step) {
    if (step == 1) {
        menu_.stopAnimations();
        startSound();
    }
    if (step == 2) {
        menu_.prepareLayout("start_menu");
        menu_.prepareLayout("load_menu");
    }
    if (step == 3) menu_.prepareLayout("exit");
    if (step == 4) menu_.prepareLayout("a_exit");
    if (step == 5) {
        game_.prepareLayout("komiks1");
        menu_.prepareLayout("help_menu");
    }
}

void Opening::startSound() {
    SoundBank* const bank = SoundBank::current();
    if (!bank) return;
    bank->load(false);
    level_.applyVolumes();
    bank->playMusic(MusicId::Menu);
}

}  // namespace grub
