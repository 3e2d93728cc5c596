#pragma once

#include <optional>

#include "control/testing.h"
#include "game_stand.h"
#include "kest_interface.h"
#include "level_scene.h"
#include "recording_scene.h"
#include "sound_bank.h"

namespace grub {

/// The level scene as the program runs it, on the test's own thread, with a clock that moves while every thread waits.
class LevelStand : protected GameStand {
protected:
    LevelStand() {
        scene_.setGameInterface(pages_.emplace(data_, "make_z64"));
        application_.registerScene(kLevelSceneId, scene_);
        application_.registerScene(kMenuShellId, shell_);
        bank_.load(false);
        SoundBank::setCurrent(&bank_);
    }

    void press(KeyCode code, MessageType type = MessageType::Pressed) {
        scene_.post(SharedRef<SceneMessage>(new KeyMessage(type, code, 0)));
    }
    void closeWindow() { scene_.post(messageOf(MessageType::CloseRequest)); }

    platform::testing::HandDrivenClock clock_;
    SoundBank bank_{sounds_};
    WindowlessApplication application_;
    RecordingScene shell_;
    std::optional<KestInterface> pages_;
    LevelScene scene_{data_, levels_};
};

}  // namespace grub
