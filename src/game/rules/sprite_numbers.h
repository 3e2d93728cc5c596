#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

namespace grub {

/// The numbers by which the block table names pictures, and the animation ids they stand for. The loader thread adds
/// while the game thread may be building a level, so a lock covers both.
class SpriteNumbers {
public:
    /// What `spriteIdOf` gives for a number that is not there.
    static constexpr std::int16_t kUnknown = -1;

    /// The first pair with a number wins. Pairs beyond kMaxSpriteNumbers are left out.
    void addSpriteNumber(std::int32_t number, std::int16_t animationId);
    [[nodiscard]] std::int16_t spriteIdOf(std::int32_t number) const;

private:
    struct Pair {
        std::int32_t number;
        std::int16_t animationId;
    };

    mutable std::mutex lock_;
    std::vector<Pair> pairs_;
};

}  // namespace grub
