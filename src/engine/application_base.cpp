#include "application_base.h"

#include <cassert>
#include <mutex>
#include <utility>

#include "scene.h"

namespace grub {

namespace {

ApplicationBase* theApplication = nullptr;

}  // namespace

bool SceneRegistry::add(std::uint32_t id, Scene& scene) {
    if (find(id)) return false;
    buckets_[id % kBuckets].push_front({id, &scene});
    return true;
}

Scene* SceneRegistry::find(std::uint32_t id) const {
    for (const Entry& entry : buckets_[id % kBuckets]) {
        if (entry.id == id) return entry.scene;
    }
    return nullptr;
}

ApplicationBase::ApplicationBase() { theApplication = this; }

ApplicationBase::~ApplicationBase() { theApplication = nullptr; }

ApplicationBase& ApplicationBase::instance() {
    assert(theApplication);
    return *theApplication;
}

bool ApplicationBase::exists() { return theApplication != nullptr; }

bool ApplicationBase::registerScene(std::uint32_t id, Scene& scene) {
    const std::lock_guard guard(registryLock_);
    return registry_.add(id, scene);
}

bool ApplicationBase::selectScene(std::uint32_t id) {
    const std::lock_guard registryGuard(registryLock_);
    Scene* const scene = registry_.find(id);
    if (!scene) return false;
    const std::lock_guard switchGuard(switchLock_);
    pending_ = scene;
    return true;
}

void ApplicationBase::postToCurrentScene(const SharedRef<SceneMessage>& message) {
    const std::lock_guard guard(switchLock_);
    if (current_) current_->post(message);
}

Scene* ApplicationBase::takePendingScene() {
    const std::lock_guard guard(switchLock_);
    if (pending_) current_ = pending_;
    return std::exchange(pending_, nullptr);
}

void ApplicationBase::runScenes() {
    while (Scene* const scene = takePendingScene()) {
        scene->enter();
        scene->run();
        scene->leave();
    }
}

}  // namespace grub
