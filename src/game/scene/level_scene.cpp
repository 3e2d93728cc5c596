#include "level_scene.h"

#include <utility>

#include "application_base.h"

namespace grub {

namespace {

/// A pass of the frame loop waits at most this long for the loader while strips are still missing.
constexpr DWORD kPassWaitMs = 20;

}  // namespace

LevelScene::LevelScene(ResourceSource& data, ResourceSource& levels)
    : levelLoader_(levels),
      resources_(data, levelLoader_.spriteNumbers()),
      stage_(data, levelLoader_, resources_.animations()),
      data_(data) {}

bool LevelScene::enter() {
    stage_.teardownLevel();
    resources_.animations().forgetCount();
    closeRequested_ = false;
    keyHeld_ = false;
    if (newGameAt_) run_.begin(*newGameAt_);
    newGameAt_.reset();
    run_.collectedKeys.clear();
    state_ = std::exchange(loadRequested_, false) ? LevelState::LoadSlot : LevelState::FirstLoad;
    transition_.emplace(data_);
    transition_->start(TransitionMode::ShutterOpen);
    exitCode_ = ExitCode::Normal;
    stage_.sound().forgetTrack();
    stage_.sound().applyVolumes();
    levelLoader_.loadBlockTypes();
    pages_->startAnimations();
    resources_.animations().acquireAll();
    return true;
}

// What came last belongs to this visit: a request to close, above all.
void LevelScene::leave() {
    stage_.teardownLevel();
    pacer_.stop();
    transition_.reset();
    pages_->stopAnimations();
    resources_.animations().releaseAll();
    processMessages();
}

void LevelScene::run() {
    quit_ = false;
    pacer_.start();
    while (!quit_) pass();
}

void LevelScene::pass() {
    processMessages();
    if (closeRequested_) giveUp();
    if (quit_) return;
    pacer_.tick();
    resources_.wait(kPassWaitMs);
    if (pacer_.beginFrame()) runState();
    if (quit_) return;
    pacer_.presentIfDue();
    waitForMessages(pacer_.millisecondsToSleep());
}

// The window is to close, and every pass until the scene is left comes here: a level that the rules end in the same
// game frame must not go on to the next one. Where the player sees the level, it closes behind the shutter; where he is
// only asked for a key, or sees no level yet, he does not wait for it.
void LevelScene::giveUp() {
    using enum LevelState;
    const bool seesPicture = state_ == EndScreen || state_ == EndFade || state_ == GameOver;
    if (!stage_.isBuilt() || seesPicture) return leaveToShell();
    cause_ = LossCause::Quit;
    if (state_ == Playing)
        stage_.end(LossCause::Quit);
    else if (state_ != Ended)
        state_ = Quit;
}

// An attempt that has not begun, as behind an end picture, hands back the numbers that it would have begun with.
void LevelScene::leaveToShell() {
    pacer_.present();
    if (stage_.isBuilt()) run_.takeFrom(*stage_.world());
    ApplicationBase::instance().selectScene(kMenuShellId);
    quit_ = true;
}

void LevelScene::handleMessage(const SharedRef<SceneMessage>& message) {
    if (message->type == MessageType::CloseRequest) closeRequested_ = true;
    if (message->type == MessageType::Pressed) notePress(*message);
    if (message->type == MessageType::Released) keyHeld_ = false;
    if (message->source == MessageSource::Mouse) return mouseMessage(static_cast<const MouseMessage&>(*message));
    if (message->source != MessageSource::Keyboard) return;
    const std::uint32_t keyCode = static_cast<const KeyMessage&>(*message).keyCode;
    if (message->type == MessageType::Pressed) keyDown(keyCode);
    if (message->type == MessageType::Released && stage_.isBuilt()) stage_.keyUp(keyCode);
}

// A held key is pressed again and again; only its first press is one by the player.
void LevelScene::notePress(const SceneMessage& message) {
    const bool isRepeat = message.source == MessageSource::Keyboard && keyHeld_ &&
                          static_cast<const KeyMessage&>(message).keyCode == lastKey_;
    keyHeld_ = true;
    if (!isRepeat) pressedAnew_ = true;
}

void LevelScene::keyDown(std::uint32_t keyCode) {
    lastKey_ = keyCode;
    if (!stage_.isBuilt()) return;
    stage_.keyDown(keyCode, state_ == LevelState::Playing);
    if (isDialog(state_)) return obey(dialogs_.keyDown(state_, keyCode));
    if (state_ == LevelState::Playing && (keyCode == KeyEscape || keyCode == KeyC)) callGameMenu();
}

void LevelScene::mouseMessage(const MouseMessage& message) {
    if (message.type == MessageType::MouseMoved) mouse_ = {message.x, message.y};
    if (!stage_.isBuilt()) return;
    const bool down = message.type == MessageType::Pressed;
    if (down) stage_.mouseDown();
    if (message.button != MouseButton::Left) return;
    if (state_ == LevelState::Playing && down) return callGameMenu();
    if (!isDialog(state_)) return;
    if (down) dialogs_.mouseDown(state_, mouse_, *pages_);
    if (message.type == MessageType::Released) obey(dialogs_.mouseUp(state_, mouse_, *pages_));
}

void LevelScene::obey(DialogRequest request) {
    switch (request) {
        case DialogRequest::None: return;
        case DialogRequest::Save: slots_.saveGame(dialogs_.cursor(), run_.atLevelStart); return;
        case DialogRequest::Load: slotToLoad_ = dialogs_.cursor(); return;
        case DialogRequest::LoadByShutter:
            cause_ = LossCause::Load;
            transition_->start(TransitionMode::ShutterClose);
            return;
    }
}

}  // namespace grub
