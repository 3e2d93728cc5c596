// What the level scene does with messages.

#include <optional>

#include "input_messages.h"
#include "level_scene.h"

namespace grub {
namespace {

/// The keys that steer the hero; none for all others.
std::optional<PlayKey> playKeyOf(KeyCode code) {
    switch (code) {
        case KeyUp: return PlayKey::Up;
        case KeyDown: return PlayKey::Down;
        case KeyLeft: return PlayKey::Left;
        case KeyRight: return PlayKey::Right;
        case KeySpace: return PlayKey::Space;
        case KeyEnter: return PlayKey::Enter;
        case KeyZ: return PlayKey::Z;
        case KeyX: return PlayKey::X;
        case KeyA: return PlayKey::A;
        case KeyB: return PlayKey::B;
        default: return std::nullopt;
    }
}

}  // namespace

void LevelScene::handleMessage(const SharedRef<SceneMessage>& message) {
    if (message->type == MessageType::CloseRequest) return endAttempt(LossCause::Quit);
    // Any mouse button shows that somebody is there, as any key does.
    if (message->source == MessageSource::Mouse && message->type == MessageType::Pressed && world_)
        steering_->otherKey(*world_);
    if (message->source != MessageSource::Keyboard) return;
    const auto& key = static_cast<const KeyMessage&>(*message);
    if (message->type == MessageType::Pressed) keyDown(key);
    if (message->type == MessageType::Released) keyUp(key);
}

void LevelScene::keyDown(const KeyMessage& key) {
    lastKey_ = key.keyCode;
    if (!world_) return;
    const auto steering = state_ == LevelState::Playing ? playKeyOf(key.keyCode) : std::nullopt;
    steering ? steering_->keyDown(*world_, *steering) : steering_->otherKey(*world_);
    if (state_ != LevelState::Playing) return;
    if (key.keyCode == KeyEscape || key.keyCode == KeyC) openGameMenu();
}

void LevelScene::keyUp(const KeyMessage& key) {
    if (!world_) return;
    if (const auto steering = playKeyOf(key.keyCode)) steering_->keyUp(*world_, *steering);
}

// As long as there is no menu to open, the way out of a level is what its last entry will do.
void LevelScene::openGameMenu() { endAttempt(LossCause::Quit); }

// While nothing is built there is no attempt to end: the scene itself is left.
void LevelScene::endAttempt(LossCause cause) {
    if (world_)
        world_->end(cause);
    else
        leaveToShell();
}

}  // namespace grub
