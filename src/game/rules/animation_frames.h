#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "rules.h"

namespace grub {

/// One frame of a strip: the animation id of the strip, and the index of the frame.
struct AnimationFrame {
    int animation = 0;
    int frame = 0;

    /// The next frame when `next` is the strip that is running, else the first frame of `next`. Never wraps.
    [[nodiscard]] AnimationFrame continuedBy(int next) const { return {next, next == animation ? frame + 1 : 0}; }

    friend bool operator==(const AnimationFrame&, const AnimationFrame&) = default;
};

/// How many frames each animation has, for rules that end with an animation. Filled from the loaded strips before a
/// world is built; a world keeps its own copy.
class AnimationFrameCounts {
public:
    /// 0 for an id without a strip, and for ids outside the table.
    [[nodiscard]] int of(int id) const { return isId(id) ? counts_[static_cast<std::size_t>(id)] : 0; }
    /// Ids outside the table are ignored.
    void set(int id, int count) {
        if (isId(id)) counts_[static_cast<std::size_t>(id)] = static_cast<std::uint16_t>(count);
    }
    /// The same count for every id.
    static AnimationFrameCounts all(int count) {
        AnimationFrameCounts counts;
        counts.counts_.fill(static_cast<std::uint16_t>(count));
        return counts;
    }

    friend bool operator==(const AnimationFrameCounts&, const AnimationFrameCounts&) = default;

private:
    static bool isId(int id) { return id >= 0 && id < kAnimationIds; }

    std::array<std::uint16_t, kAnimationIds> counts_{};
};

}  // namespace grub
