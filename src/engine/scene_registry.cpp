#include "scene_registry.h"

namespace grub {

bool SceneRegistry::add(std::uint32_t id, Scene& scene) {
    if (find(id)) return false;
    buckets_[id % kBuckets].push_front({id, &scene});
    ++size_;
    return true;
}

Scene* SceneRegistry::find(std::uint32_t id) const {
    for (const Entry& entry : buckets_[id % kBuckets]) {
        if (entry.id == id) return entry.scene;
    }
    return nullptr;
}

}  // namespace grub
