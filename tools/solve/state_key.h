#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "world.h"

namespace grub {

/// How exactly two states must agree to count as one. A search that merges like states is quick, but that it found
/// nothing is then no proof.
struct Grain {
    int enemyPixels = 16;
    int holeFrames = 12;
    bool chance = false;  // the generator and the time to the next bonus count too

    /// Only states that will play the same are one.
    [[nodiscard]] static constexpr Grain exact() { return {.enemyPixels = 1, .holeFrames = 1, .chance = true}; }
    [[nodiscard]] constexpr bool isExact() const { return enemyPixels == 1 && holeFrames == 1 && chance; }
};

/// A number for a state in which the hero can decide. The frame does not count: what matters is what can come.
[[nodiscard]] std::uint64_t stateKey(const World& world, const std::vector<CellPosition>& keys, Grain grain);

/// A number for the hero's cell, the keys that lie and how many holes are open: states that differ only in the rest go
/// the same way, so a search keeps few of them.
[[nodiscard]] std::uint64_t groupKey(const World& world, const std::vector<CellPosition>& keys);

/// A set of such numbers.
class KeySet {
public:
    KeySet() : slots_(kFirstSize, 0) {}

    /// False when the key is in the set already.
    bool insert(std::uint64_t key);
    [[nodiscard]] std::size_t bytes() const { return slots_.size() * sizeof(std::uint64_t); }

private:
    static constexpr std::size_t kFirstSize = std::size_t{1} << 12U;  // a power of two

    bool place(std::uint64_t key);
    void grow();

    std::vector<std::uint64_t> slots_;  // 0 is free
    std::size_t count_ = 0;
};

}  // namespace grub
