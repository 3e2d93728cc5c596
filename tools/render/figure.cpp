#include "figure.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grub {

Canvas::Placement facingLeft(Canvas& canvas) { return canvas.placed({canvas.size().x, 0}, 0, -1, 1); }

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
