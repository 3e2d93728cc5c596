#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>

namespace grub {

class Scene;

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

}  // namespace grub
