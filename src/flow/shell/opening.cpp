#include "opening.h"

#include "level_scene.h"
#include "sound_bank.h"

namespace grub {

bool Opening::step(bool mayEnd) {
    switch (step_++) {
        case 0: break;
        case 1:
            menu_.stopAnimations();
            startSound();
            break;
        case 2:
            menu_.prepareLayout("start_menu");
            menu_.prepareLayout("load_menu");
            break;
        case 3: menu_.prepareLayout("exit"); break;
        case 4: menu_.prepareLayout("a_exit"); break;
        case 5:
            game_.prepareLayout("komiks1");
            menu_.prepareLayout("help_menu");
            break;
        default:
            step_ = 6;
            if (!mayEnd) break;
            menu_.prepareLayout("options_menu");
            menu_.prepareLayout("highscore_menu");
            return true;
    }
    return false;
}

void Opening::startSound() {
    SoundBank* const bank = SoundBank::current();
    if (!bank) return;
    bank->load(false);
    level_.applyVolumes();
    bank->playMusic(MusicId::Menu);
}

}  // namespace grub
