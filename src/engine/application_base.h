#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>

#include "scene_message.h"
#include "system_objects.h"

namespace grub {

class Scene;

/// Numbers under which the program registers its scenes.
inline constexpr std::uint32_t kLevelSceneId = 1;
inline constexpr std::uint32_t kMenuShellId = 2;

/// Scenes by number. Owns none of them and has no lock.
class SceneRegistry {
public:
    /// False, and no change, when the number is taken.
    bool add(std::uint32_t id, Scene& scene);
    /// The scene of this number, or null.
    [[nodiscard]] Scene* find(std::uint32_t id) const;
    /// Number of scenes.
    [[nodiscard]] std::size_t size() const { return size_; }

private:
    struct Entry {
        std::uint32_t id;
        Scene* scene;
    };

    static constexpr std::size_t kBuckets = 11;

    std::array<std::forward_list<Entry>, kBuckets> buckets_;  // by id modulo 11, the newest entry first
    std::size_t size_ = 0;
};

/// What scenes know of the application: the scenes by number, which one is current and which one comes next. One exists
/// at a time; the scenes are not its own and outlive it.
class ApplicationBase {
public:
    /// Becomes `instance()`.
    ApplicationBase();
    ApplicationBase(const ApplicationBase&) = delete;
    ApplicationBase& operator=(const ApplicationBase&) = delete;
    virtual ~ApplicationBase();

    /// The application of the process. There must be one: `exists()`.
    [[nodiscard]] static ApplicationBase& instance();
    /// Whether an application has been made and not yet destroyed.
    [[nodiscard]] static bool exists();

    /// Runs the program from this scene on until it ends. False when it could not start or ended by an error.
    virtual bool run(std::uint32_t startSceneId) = 0;
    /// Switches between window and full screen. False when the screen refused.
    virtual bool setWindowed(bool windowed) = 0;

    /// Gives a scene its number. False, and no change, when the number is taken. Any thread.
    bool registerScene(std::uint32_t id, Scene& scene);
    /// The scene that runs when the current one has ended; the last selection wins, and the current scene itself may be
    /// selected. False when no scene has this number. Any thread.
    bool selectScene(std::uint32_t id);
    /// Posts to the scene that is current, or drops the message. Any thread.
    void postToCurrentScene(const SharedRef<SceneMessage>& message);

protected:
    /// The game thread's work: enters, runs and leaves one selected scene after the other. Returns when a scene has
    /// been left and none is selected; that scene stays current and keeps receiving messages.
    void runScenes();

private:
    // Makes the selected scene current and takes the selection; null when there is none.
    Scene* takePendingScene();

    // The registry lock is taken first when both are needed; a scene's queue lock is taken inside the switch lock.
    CriticalSection registryLock_;
    CriticalSection switchLock_;
    SceneRegistry registry_;
    Scene* current_ = nullptr;
    Scene* pending_ = nullptr;
};

}  // namespace grub
