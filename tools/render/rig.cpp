#include "rig.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grub {

Point jointOf(Point root, Point tip, double upper, double lower, double side) {
    const Point reach = tip - root;
    const double distance = std::clamp(length(reach), 0.01, upper + lower - 0.01);
    const double cosine = (upper * upper + distance * distance - lower * lower) / (2 * upper * distance);
    const double angle = std::atan2(reach.y, reach.x) + side * std::acos(std::clamp(cosine, -1.0, 1.0));
    return root + Point{upper * std::cos(angle), upper * std::sin(angle)};
}

double eased(double t) {
    t = std::clamp(t, 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

double wave(double turns) { return std::sin(2 * std::numbers::pi * turns); }

Step stride(double phase, double cycle, double duty) {
    const double p = phase - std::floor(phase);
    const double half = cycle * duty / 2;
    if (p <= duty) return {half - cycle * p, 0, 0};
    const double u = (p - duty) / (1 - duty);
    // Cubic through both ends with the ground's speed at both: the foot goes on a little before it turns, and comes
    // back a little.
    const double speed = -cycle * (1 - duty);
    const double x = half * (2 * eased(u) - 1) + speed * (u * (1 - u) * (1 - u) - u * u * (1 - u));
    return {x, std::sin(std::numbers::pi * u), u};
}

}  // namespace grub
