#include "motion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grub {

double eased(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

double wave(double turns) { return std::sin(2 * std::numbers::pi * turns); }

}  // namespace grub
