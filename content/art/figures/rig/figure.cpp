#include "figure.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "motion.h"

namespace grub {

Affine bodyPlace(const Pose& pose, Point hips) {
    const double upright = pose.bellyUp ? -1 : 1;
    return Affine{}
        .translated(hips + pose.hips)
        .rotated(pose.lean)
        .scaled(1 + pose.squash, upright * (1 - pose.squash))
        .translated(hips * -1);
}

Point jointOf(Point root, Point tip, double upper, double lower, double side) {
    const Point reach = tip - root;
    const double distance = std::clamp(length(reach), 0.01, upper + lower - 0.01);
    const double cosine = (upper * upper + distance * distance - lower * lower) / (2 * upper * distance);
    const double angle = std::atan2(reach.y, reach.x) + side * std::acos(std::clamp(cosine, -1.0, 1.0));
    return root + Point{upper * std::cos(angle), upper * std::sin(angle)};
}

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

PlacedFoot placedFoot(const Step& step, double middle, const FootRoll& roll) {
    const double heelUp = roll.heelUp * std::sin(std::numbers::pi * std::min(step.swing * 1.5, 1.0));
    const double toeUp = roll.toeUp * std::sin(std::numbers::pi * std::max(0.0, step.swing * 2.2 - 1.2));
    const double angle = heelUp - toeUp;
    const double clearance = angle > 0 ? roll.toe * std::sin(angle) : roll.heel * std::sin(-angle);
    return {{middle + step.x, kGround - roll.lift * step.lift - clearance}, angle};
}

double heldRow(double phase, double length, double duty, double top) {
    return top + length * duty / 2 - stride(phase, length, duty).x;
}

}  // namespace grub
