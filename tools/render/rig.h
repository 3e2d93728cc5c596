#pragma once

#include <cstddef>

#include "affine.h"

namespace grub {

/// Where the middle joint of a limb of two bones lies. `side` 1 or -1 chooses the way it bends; out of reach it is
/// stretched.
Point jointOf(Point root, Point tip, double upper, double lower, double side);

/// 0 to 1 and smooth at both ends.
double eased(double t);

/// Sine of a share of a full turn.
double wave(double turns);

/// A foot, hand or paw relative to the middle of its stride.
struct Step {
    double x;
    /// 0 on the ground, up to 1 in the middle of its swing.
    double lift;
    /// Share of the swing that is over; 0 while it touches the ground.
    double swing;
};

/// Stride of a cycle of `length` pixels at `phase` (0..1): the foot touches the ground for the first `duty` of the
/// cycle and goes back evenly, as fast as the ground passes; then it swings forward and meets the ground at the
/// ground's own speed.
Step stride(double phase, double length, double duty);

/// A value on a line of times and values (ascending times), smooth between them, the ends held.
struct Keyframe {
    double time;
    double value;
};
template <std::size_t N>
double keyed(const Keyframe (&keys)[N], double time) {
    if (time <= keys[0].time) return keys[0].value;
    for (std::size_t i = 1; i < N; ++i) {
        if (time > keys[i].time) continue;
        const double t = (time - keys[i - 1].time) / (keys[i].time - keys[i - 1].time);
        return keys[i - 1].value + (keys[i].value - keys[i - 1].value) * eased(t);
    }
    return keys[N - 1].value;
}

}  // namespace grub
