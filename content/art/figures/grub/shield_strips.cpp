#include "grub_room.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Point kCentre{32, 32};
constexpr double kRadius = 31;
constexpr double kRim = 1.6;

constexpr Rgb kGlass = rgb(0xbfeaff);
constexpr FlatStyle kGlint{.alpha = 0.65F, .stroke = 2.2};

/// How Grub's strip of the same number fits into the glass.
struct Fit {
    std::string_view shield;
    /// Middle of the smallest circle around all of the strip's frames; it comes into the middle of the bubble.
    Point middle;
    double size;
};

constexpr std::array kFits{
    //  shield            middle        size
    Fit{"led\\shield_01", {31.0, 33.2}, 0.95},  //
    Fit{"led\\shield_02", {32.0, 29.1}, 0.90},  //
    Fit{"led\\shield_03", {32.0, 31.6}, 0.97},  //
    Fit{"led\\shield_04", {32.0, 31.3}, 0.90},  //
    Fit{"led\\shield_05", {30.2, 33.1}, 0.85},  // the spoon reaches far out
    Fit{"led\\shield_06", {32.0, 33.4}, 0.95},  //
    Fit{"led\\shield_07", {32.0, 33.4}, 0.95},  //
    Fit{"led\\shield_08", {31.0, 33.8}, 0.95},  //
};

const Fit& fitOf(std::string_view shield) {
    return *std::ranges::find(kFits, shield, [](const Fit& fit) { return fit.shield; });
}

const StripDrawing& ownStrip(const Fit& fit) {
    const std::string_view number = fit.shield.substr(fit.shield.size() - 2);
    return *std::ranges::find_if(grubStrips(),
                                 [number](const StripDrawing& strip) { return strip.name.ends_with(number); });
}

/// Part of a circle about the bubble's centre; angles in radians, 0 right, clockwise.
VectorPath arc(double radius, double from, double to) {
    constexpr int kSteps = 12;
    VectorPath path;
    for (int i = 0; i <= kSteps; ++i) {
        const double angle = from + (to - from) * i / kSteps;
        const Point p = kCentre + Point{radius * std::cos(angle), radius * std::sin(angle)};
        i == 0 ? path.moveTo(p) : path.lineTo(p);
    }
    return path;
}

/// The far side of the glass: it gathers light towards its edge.
void drawFarGlass(Canvas& canvas) {
    canvas.flat(circle(kCentre, kRadius), kGlass, {.alpha = 0.12F});
    constexpr int kShells = 8;
    for (int i = 0; i < kShells; ++i) {
        const double inner = kRadius - 1.4 * (kShells - i);
        canvas.flat(ring(kCentre, kRadius, inner), kGlass, {.alpha = 0.035F});
    }
}

void drawNearGlass(Canvas& canvas) {
    canvas.flat(circle(kCentre, kRadius), kGlass, {.alpha = 0.08F});
    canvas.flat(circle(kCentre, kRadius - kRim / 2), rgb(0xe8fbff), {.alpha = 0.8F, .stroke = kRim});
    canvas.flat(circle(kCentre, kRadius - kRim), rgb(0x3a5a9a), {.alpha = 0.25F, .stroke = 0.8});
}

/// Light from above that sways with the glass, and its weaker likeness below.
void drawGlints(Canvas& canvas, double phase) {
    constexpr double kTop = -std::numbers::pi / 2;
    const double sway = 0.3 * wave(phase);
    for (const double side : {-1.0, 1.0}) {
        const double at = kTop + side * 0.62 + sway;
        canvas.flat(arc(kRadius - 4.6, at - 0.3, at + 0.3), rgb(0xffffff), kGlint);
        const double end = kTop + side * 1.12 + sway;
        canvas.flat(arc(kRadius - 4.6, end - 0.04, end + 0.04), rgb(0xffffff), kGlint);
    }
    canvas.flat(arc(kRadius - 3.6, -kTop - 0.5 + sway, -kTop + 0.5 + sway), rgb(0xffe9c0),
                {.alpha = 0.35F, .stroke = 1.6});
}

void drawShielded(Canvas& canvas, FrameOf frame) {
    drawFarGlass(canvas);
    {
        const Fit& fit = fitOf(frame.name);
        const auto inGlass = canvas.placed(kCentre - fit.middle * fit.size, 0, fit.size, fit.size);
        ownStrip(fit).draw(canvas, frame);
    }
    drawNearGlass(canvas);
    drawGlints(canvas, frame.phase());
}

}  // namespace

std::span<const StripDrawing> shieldStrips() {
    static const auto kStrips = [] {
        std::array<StripDrawing, kFits.size()> strips{};
        std::ranges::transform(kFits, strips.begin(), [](const Fit& fit) {
            StripDrawing strip = ownStrip(fit);
            strip.name = fit.shield;
            strip.draw = drawShielded;
            return strip;
        });
        return strips;
    }();
    return kStrips;
}

}  // namespace grub
