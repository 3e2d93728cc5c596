#pragma once

namespace grub {

/// A picture of an animation strip.
struct AnimationFrame {
    int animation = 0;
    int frame = 0;

    /// The next picture of an animation that is running, the first of another one. Wraps nowhere.
    [[nodiscard]] AnimationFrame continuedBy(int next) const { return {next, next == animation ? frame + 1 : 0}; }

    friend bool operator==(const AnimationFrame&, const AnimationFrame&) = default;
};

}  // namespace grub
