#pragma once

#include <memory>

#include "kest_interface.h"
#include "resource_source.h"
#include "scene.h"
#include "settings.h"

namespace grub {

class LevelScene;

/// Scene 2 of a program that is told which level to play: in place of the menu its first visit starts the loading of
/// strips and a new game, and its second visit, after the game, ends the program.
class DirectStart final : public Scene {
public:
    /// `data` describes the interfaces; it and the level scene must outlive the scene. `startIndex` is the level of the
    /// new game, 0 to 49.
    DirectStart(ResourceSource& data, LevelScene& level, int startIndex)
        : data_(data), level_(level), startIndex_(startIndex) {}

    /// Whether the program runs on the full screen.
    void setFullScreen(bool fullScreen) { settings_.fullScreen = fullScreen; }

    /// Only a request to close the window counts; it ends the program.
    void handleMessage(const SharedRef<SceneMessage>& message) override;
    bool enter() override;
    void leave() override;
    void run() override;

private:
    ResourceSource& data_;
    LevelScene& level_;
    std::unique_ptr<KestInterface> gameInterface_;  // from the first visit on; the level scene uses it too
    const int startIndex_;
    Settings settings_;
    bool firstVisit_ = true;
    bool quit_ = false;
};

}  // namespace grub
