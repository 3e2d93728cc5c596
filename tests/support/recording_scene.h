#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "application_base.h"
#include "scene.h"

namespace grub {

/// A scene that writes down what happens to it and does what a test hangs into it. `run` returns when `onRun` does.
class RecordingScene : public Scene {
public:
    /// A visit adds "name(run) " to `log`, which may be null: the name when the scene is entered, ")" when it is left.
    explicit RecordingScene(std::string name = "scene", std::string* log = nullptr)
        : name_(std::move(name)), log_(log) {}

    void handleMessage(const SharedRef<SceneMessage>& message) override {
        messages.push_back(message);
        if (onMessage) onMessage();
    }
    bool enter() override { return write(name_ + "(", onEnter), true; }
    void run() override { write("run", onRun); }
    void leave() override { write(") ", onLeave); }

    using Scene::isRunning;
    using Scene::waitForMessages;
    /// The default frame loop of every scene.
    void runDefaultLoop() { Scene::run(); }

    /// What was handled, in order.
    std::vector<SharedRef<SceneMessage>> messages;
    /// What a test wants to happen in `enter`, `run`, `leave` and after each message.
    std::function<void()> onEnter, onRun, onLeave, onMessage;

private:
    void write(const std::string& what, const std::function<void()>& then) {
        if (log_) *log_ += what;
        const auto action = then;  // NOLINT(performance-unnecessary-copy-initialization): it may replace itself
        if (action) action();
    }

    std::string name_;
    std::string* log_;
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
