#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "world.h"

namespace grub {

/// Worlds by number. A copy goes into the memory of a world that was given back, because to allocate would take longer
/// than to copy.
class WorldPool {
public:
    /// A copy, until it is given back.
    std::uint32_t copy(const World& world) {
        if (free_.empty()) {
            worlds_.push_back(world);
            return static_cast<std::uint32_t>(worlds_.size() - 1);
        }
        const std::uint32_t number = free_.back();
        free_.pop_back();
        worlds_[number] = world;
        return number;
    }
    void giveBack(std::uint32_t number) { free_.push_back(number); }
    [[nodiscard]] World& operator[](std::uint32_t number) { return worlds_[number]; }
    [[nodiscard]] const World& operator[](std::uint32_t number) const { return worlds_[number]; }
    /// Worlds that take memory, given back or not.
    [[nodiscard]] std::size_t size() const { return worlds_.size(); }

private:
    std::deque<World> worlds_;
    std::vector<std::uint32_t> free_;
};

/// Bytes that a world takes, about.
[[nodiscard]] inline std::size_t bytesOf(const World& world) {
    constexpr std::size_t kDistanceBytes = 8;  // of a cell: steps, distance, dead end
    return sizeof(World) + world.map().cellCount() * (sizeof(MapCell) + 1 + kDistanceBytes) +
           world.enemies().size_bytes() + world.decorations().size_bytes();
}

}  // namespace grub
