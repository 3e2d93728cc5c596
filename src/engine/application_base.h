#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>

#include "scene.h"
#include "system_objects.h"

namespace grub {

/// Numbers under which the program registers its two scenes.
inline constexpr std::uint32_t kLevelSceneId = 1;
inline constexpr std::uint32_t kMenuShellId = 2;

/// Finds scenes by their numbers. Does not own them and has no lock.
class SceneRegistry {
public:
    /// False, and no change, when the number is taken.
    bool add(std::uint32_t id, Scene& scene);
    /// Returns null when no scene has this number.
    [[nodiscard]] Scene* find(std::uint32_t id) const;

private:
    struct Entry {
        std::uint32_t id;
        Scene* scene;
    };

    static constexpr std::size_t kBuckets = 11;

    std::array<std::forward_list<Entry>, kBuckets> buckets_;  // by id modulo 11, the newest entry first
};

/// What scenes know of the application: which scene has which number, which one is current and which one comes next.
/// One application exists at a time. It does not own the scenes, which outlive it.
class ApplicationBase {
public:
    /// Becomes `instance()`.
    ApplicationBase();
    ApplicationBase(const ApplicationBase&) = delete;
    ApplicationBase& operator=(const ApplicationBase&) = delete;
    virtual ~ApplicationBase();

    /// The application of the process. Ask `exists()` first where there may be none.
    [[nodiscard]] static ApplicationBase& instance();
    [[nodiscard]] static bool exists();

    /// Runs the program, from this scene on, until it ends. False when it could not start or ended by an error.
    virtual bool run(std::uint32_t startSceneId) = 0;
    /// Switches between window and full screen. False when the screen refused.
    virtual bool setWindowed(bool windowed) = 0;

    /// Gives a scene its number. Changes nothing and returns false when another scene has the number. Any thread.
    bool registerScene(std::uint32_t id, Scene& scene);
    /// Selects the scene that runs when the current one has ended; that may be the current one again. The last
    /// selection wins. False when no scene has this number. Any thread.
    bool selectScene(std::uint32_t id);
    /// Posts the message to the current scene; drops it before the first scene runs. Any thread.
    void postToCurrentScene(const SharedRef<SceneMessage>& message);

protected:
    /// The game thread's work: enters, runs and leaves one selected scene after the other. Returns when a scene has
    /// been left and none is selected; that scene stays current and keeps receiving messages.
    void runScenes();

private:
    // Makes the selected scene current and clears the selection. Null when no scene is selected.
    Scene* takePendingScene();

    // The registry lock is taken first when both are needed; a scene's queue lock is taken inside the switch lock.
    CriticalSection registryLock_;
    CriticalSection switchLock_;
    SceneRegistry registry_;
    Scene* current_ = nullptr;
    Scene* pending_ = nullptr;
};

}  // namespace grub
