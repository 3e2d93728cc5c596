#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "application_base.h"
#include "scene.h"

namespace grub {

/// What the game thread did to scenes, in order: "shell enter", "shell run", ...
using SceneLog = std::vector<std::string>;

/// A scene that writes down what happens to it and does what a test hangs into it. `run` returns when `onRun` does.
class RecordingScene : public Scene {
public:
    /// The name leads each line in the log, which may be null.
    explicit RecordingScene(std::string name = "scene", SceneLog* log = nullptr) : name_(std::move(name)), log_(log) {}

    void handleMessage(const SharedRef<SceneMessage>& message) override {
        messages.push_back(message);
        if (onMessage) onMessage();
    }
    bool enter() override { return write(" enter", onEnter), true; }
    void run() override { write(" run", onRun); }
    void leave() override { write(" leave", onLeave); }

    using Scene::isRunning;
    using Scene::waitForMessages;
    /// The default frame loop of every scene.
    void runDefaultLoop() { Scene::run(); }

    /// What was handled, in order; what a test wants to happen in `enter`, `run`, `leave` and after each message.
    std::vector<SharedRef<SceneMessage>> messages;
    std::function<void()> onEnter, onRun, onLeave, onMessage;

private:
    void write(const char* what, const std::function<void()>& then) {
        if (log_) log_->push_back(name_ + what);
        const auto action = then;  // NOLINT(performance-unnecessary-copy-initialization): it may replace itself
        if (action) action();
    }

    std::string name_;
    SceneLog* log_;
};

/// An application without window and threads: the scenes run on the thread that calls `run`.
class WindowlessApplication final : public ApplicationBase {
public:
    bool run(std::uint32_t startSceneId) override {
        const bool known = selectScene(startSceneId);
        if (known) runScenes();
        return known;
    }
    bool setWindowed(bool) override { return false; }
};

/// A message from the window; its type serves to tell messages apart.
[[nodiscard]] inline SharedRef<SceneMessage> messageOf(MessageType type) {
    return SharedRef<SceneMessage>(new SceneMessage(type, MessageSource::Window));
}

/// The types of a scene's messages, in order of arrival.
[[nodiscard]] inline std::vector<MessageType> typesOf(const RecordingScene& scene) {
    std::vector<MessageType> types;
    for (const auto& message : scene.messages) types.push_back(message->type);
    return types;
}

}  // namespace grub
