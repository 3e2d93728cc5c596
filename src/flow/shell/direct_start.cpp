#include "direct_start.h"

#include <utility>

#include "application_base.h"
#include "level_scene.h"
#include "sound_bank.h"

namespace grub {

void DirectStart::handleMessage(const SharedRef<SceneMessage>& message) {
    if (message->type == MessageType::CloseRequest) quit_ = true;
}

bool DirectStart::enter() {
    quit_ = !std::exchange(firstVisit_, false);
    if (quit_) return true;
    if (SoundBank* const bank = SoundBank::current()) bank->load(false);
    gameInterface_ = std::make_unique<KestInterface>(data_, "make_z64");
    level_.setGameInterface(*gameInterface_);
    loadSettings(settings_);
    level_.setVolumes({.effects = settings_.sound, .music = settings_.music});
    level_.startLoadingPass();
    level_.requestNewGame(startIndex_);
    return true;
}

// The start of the program has used up the player's wish for the full screen.
void DirectStart::leave() {
    if (settings_.fullScreen) saveSettings(settings_);
}

void DirectStart::run() {
    processMessages();
    if (quit_) {
        level_.stopLoading();  // the renderer goes next: the loader must not upload strips any more
    } else {
        ApplicationBase::instance().selectScene(kLevelSceneId);
    }
}

}  // namespace grub
