#pragma once

#include <cstddef>

namespace grub {

// Movement within a strip: from a share of its time to a value.

/// 0 to 1 and smooth at both ends.
double eased(double t);

/// Sine of a share of a full turn.
double wave(double turns);

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
