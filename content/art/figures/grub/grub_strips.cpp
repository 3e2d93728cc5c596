#include "grub_room.h"

#include <array>
#include <cmath>
#include <numbers>

#include "grub_drawing.h"
#include "motion.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kMiddle = 32;

/// Width of the line round the whole figure, added to the lines of its parts.
constexpr double kOutline = 0.4;

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// Body bent about the hips, `squash` shorter and as much wider.
Canvas::Placement bodyPlaced(Canvas& canvas, double lean, Point shift, double squash = 0) {
    const Point hips{kMiddle, 50};
    const Affine place =
        Affine{}.translated(hips + shift).rotated(lean).scaled(1 + squash, 1 - squash).translated(hips * -1);
    return canvas.placed({place.x0, place.y0}, lean, 1 + squash, 1 - squash);
}

// ---- walking

constexpr double kWalkDuty = 0.25;

constexpr FootRoll kBootRoll{.toe = 8.8, .heel = 5.4, .heelUp = 0.95, .toeUp = 0.4, .lift = 2.5};

PlacedFoot walkFoot(double phase) { return placedFoot(stride(phase, kCycle, kWalkDuty), kMiddle - 1, kBootRoll); }

double walkBob(double phase) { return 0.9 * wave(2 * phase); }

void drawWalk(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const double bob = walkBob(phase);
    const double swing = std::cos(2 * std::numbers::pi * (phase - 0.06));
    const PlacedFoot near = walkFoot(phase);
    const PlacedFoot far = walkFoot(phase + 0.5);
    drawHeroArm(canvas, {42, 38.6 + bob}, {43.5 + 6.5 * swing, 43 + bob - 2.6 * swing}, -1, Side::Far, 5.6);
    drawHeroLeg(canvas, {31, 46.5 + bob}, far.sole, far.angle, Side::Far);
    drawHeroLeg(canvas, {33, 46.5 + bob}, near.sole, near.angle, Side::Near);
    {
        const auto body = bodyPlaced(canvas, 0.06 + 0.02 * wave(2 * phase + 0.1), {0, bob}, 0.02 * wave(2 * phase));
        drawHeroBody(canvas, {}, 0.5 * (walkBob(phase - 0.125) - bob));
    }
    drawHeroArm(canvas, {25.5, 39 + bob}, {25 - 9 * swing, 44 + bob + 2 * swing}, -1, Side::Near, 5.8);
    canvas.outline(kOutline);
}

// ---- climbing: rungs lie every 16 px, at y 8 of the cell

void drawClimb(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    // A sole comes to rest a frame after its hand, on the upper side of a rung.
    constexpr double kTopStep = 45.4;
    const auto soleRow = [](double at) { return std::min(heldRow(at, kCycle, 0.25, kTopStep), kGround); };
    drawHeroLegFromBehind(canvas, {27, 46}, {25.4, soleRow(phase + 0.375)});
    drawHeroLegFromBehind(canvas, {37, 46}, {38.6, soleRow(phase - 0.125)});
    const double left = heldRow(phase, kCycle, 0.375, 8);
    const double right = heldRow(phase + 0.5, kCycle, 0.375, 8);
    {
        const auto body = bodyPlaced(canvas, 0.0022 * (left - right), {0, 1});
        drawHeroBack(canvas, 0.3 * wave(2 * phase));
    }
    drawHeroArm(canvas, {20.5, 37}, {20.5, left}, -1, Side::Near);
    drawHeroArm(canvas, {43.5, 37}, {43.5, right}, 1, Side::Near);
    canvas.outline(kOutline);
}

// ---- hanging

void drawHang(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const Step near = stride(phase, kCycle, 0.5);
    const Step far = stride(phase + 0.5, kCycle, 0.5);
    const double sway = 0.10 * wave(phase - 0.25 + 0.125);
    const auto handAt = [](const Step& step) { return Point{kMiddle + step.x, kPipeAxis - 0.6 + 3.4 * step.lift}; };
    const double x = 24 * sway;
    drawHeroArm(canvas, {33.5 + x, 35}, handAt(far), 1, Side::Far);
    drawHeroArm(canvas, {30.5 + x, 35}, handAt(near), -1, Side::Near);
    {
        const auto hung = canvas.bent({kMiddle, kPipeAxis}, -sway);
        const auto small = canvas.placed({kMiddle - 0.78 * kMiddle, 13.4}, 0, 0.78, 0.78);
        const double dangle = 3 * wave(phase + 0.1);
        drawHeroLeg(canvas, {35, 46.5}, {36 - dangle, 57}, 0.3, Side::Far);
        drawHeroLeg(canvas, {28.5, 46.5}, {28 + dangle, 57.6}, 0.38, Side::Near);
        drawHeroBody(canvas, {.look = {0.9, -0.5}, .mouth = Mouth::Grit, .brow = 0.4});
    }
    canvas.outline(kOutline);
}

// ---- falling

void drawFall(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    const double flail = wave(phase);
    drawHeroLeg(canvas, {28, 45.5}, {23.5 - 1.5 * flail, 56.2 + 1.6 * flail}, 0.16 + 0.2 * flail, Side::Far);
    drawHeroLeg(canvas, {36, 45.5}, {41 - 1.5 * flail, 57.4 - 1.6 * flail}, -0.24 + 0.2 * flail, Side::Near);
    drawHeroArm(canvas, {21, 37}, {9 - 1.5 * flail, 27 + 5 * flail}, 1, Side::Near, 8.6);
    drawHeroArm(canvas, {43, 37}, {55 - 1.5 * flail, 27 - 5 * flail}, -1, Side::Near, 8.6);
    {
        const auto body = bodyPlaced(canvas, 0.04 * flail, {0, 1.4}, -0.02);
        drawHeroBody(canvas, {.look = {0, 0.75}, .mouth = Mouth::Open, .turn = 0, .brow = 1.2},
                     -2.2 - 0.5 * wave(2 * phase));
    }
    canvas.outline(kOutline);
}

// ---- digging: two frames of winding up, the hit on frame 4, one of overshoot, the throw, two of settling

struct DigPose {
    double angle;  // of the spoon, degrees
    Point grip;
    double lean;
    double squash;
};

constexpr std::array kDig{
    //      spoon  grip          lean    squash
    DigPose{22, {40.5, 44.5}, 0.00, 0.00},   //
    DigPose{-30, {41, 42}, -0.06, 0.01},     //
    DigPose{-72, {44, 37}, -0.14, -0.03},    //
    DigPose{-86, {43.5, 35}, -0.17, -0.04},  //
    DigPose{62, {44.5, 42}, 0.16, 0.03},     //
    DigPose{66, {44.5, 42.5}, 0.22, 0.06},   //
    DigPose{30, {40.5, 45.5}, 0.14, 0.03},   //
    DigPose{-24, {40.5, 43}, -0.05, -0.02},  //
    DigPose{4, {39.5, 44}, -0.02, -0.01},    //
    DigPose{16, {40, 44.5}, 0.00, 0.00},
};
constexpr int kDigHit = 4;

constexpr Material kEarth = stony(rgb(0xa8674f), 0.4F, 0.1F);

/// Crumbs that the hit throws up; time in frames since the hit.
void drawCrumbs(Canvas& canvas, double time) {
    for (std::uint32_t i = 0; i < 6; ++i) {
        const double vx = -3.4 + 4.6 * randomShare(i, 1, 5);
        const double vy = -7.5 - 4 * randomShare(i, 2, 5);
        const Point at{52 + vx * time, 58 + vy * time + 1.9 * time * time};
        const double size = 1.4 + 1.2 * randomShare(i, 3, 5);
        if (at.y > 59 || at.x > 60 || at.y < 4) continue;
        canvas.part(
            polygon({{at.x - size, at.y}, {at.x, at.y - size}, {at.x + size, at.y - 0.2}, {at.x + 0.2, at.y + size}},
                    1),
            kEarth, {.bevel = 1.6, .line = 0.9, .shadow = 0});
    }
}

void drawDig(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const DigPose& pose = kDig[static_cast<std::size_t>(frame.index)];
    const double angle = radians(pose.angle);
    const Point along{std::cos(angle), std::sin(angle)};
    const Point upper = pose.grip - along * 7;
    const bool straining = frame.index >= 2 && frame.index <= 6;
    drawHeroLeg(canvas, {22.5, 46.5}, {18, kGround}, 0, Side::Far);
    drawHeroLeg(canvas, {29, 46.5}, {30.5, kGround}, 0, Side::Near);
    const Point lean{14 * std::sin(pose.lean), 0};
    {
        const auto body = bodyPlaced(canvas, pose.lean, {-6, 0}, pose.squash);
        drawHeroBody(
            canvas, {.look = {0.8, 0.7}, .mouth = straining ? Mouth::Grit : Mouth::Smile, .brow = straining ? -0.6 : 0},
            0.8 * (frame.index == kDigHit) - 0.8 * (frame.index == kDigHit + 2));
    }
    drawHeroArm(canvas, Point{35, 39} + lean, pose.grip, -1, Side::Far, 6.4);
    if (frame.index >= kDigHit) drawCrumbs(canvas, 0.5 + frame.index - kDigHit);
    drawSpoon(canvas, pose.grip, angle);
    drawHeroHand(canvas, pose.grip, Side::Far);
    drawHeroArm(canvas, Point{20, 39.6} + lean, upper, -1, Side::Near, 7.4);
    canvas.outline(kOutline);
}

// ---- standing

void drawStanding(Canvas& canvas, double breath, const Face& face) {
    drawHeroArm(canvas, {42.5, 38 - breath}, {45.8, 45}, -1, Side::Far, 5.4);
    drawHeroLeg(canvas, {28, 46}, {26.6, kGround}, 0, Side::Near);
    drawHeroLeg(canvas, {36.4, 46}, {37, kGround}, 0, Side::Near);
    {
        const auto body = bodyPlaced(canvas, 0, {0, 0.2 - 0.4 * breath}, -0.012 * breath);
        drawHeroBody(canvas, face, 0.25 * breath);
    }
    drawHeroArm(canvas, {22, 38.4 - breath}, {18.6, 45.6}, 1, Side::Near, 5.4);
    canvas.outline(kOutline);
}

/// One breath of two seconds, a blink, a glance back and up.
void drawStand(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    constexpr Keyframe kLid[] = {{14, 0}, {15, 0.6}, {16, 1},   {17, 0.5}, {18, 0},
                                 {45, 0}, {46, 0.8}, {47, 0.5}, {48, 0}};
    constexpr Keyframe kGlance[] = {{25, 0}, {28, 1}, {38, 1}, {41, 0}};
    const double glance = keyed(kGlance, frame.index);
    const Point look = mix(Point{0.9, 0.1}, Point{-0.85, -0.25}, glance);
    drawStanding(canvas, 0.6 * wave(frame.phase()),
                 {.look = look, .lid = keyed(kLid, frame.index), .turn = 3 - 1.6 * glance, .brow = 0.7 * glance});
}

/// Straight at the viewer, breathing.
void drawFrontal(Canvas& canvas, FrameOf frame) {
    drawStanding(canvas, 0.6 * wave(frame.phase()), {.look = {0, 0.1}, .turn = 0});
}

/// Straight at the viewer, with a blink.
void drawFrontalBlink(Canvas& canvas, FrameOf frame) {
    constexpr Keyframe kLid[] = {{1, 0}, {3, 1}, {4, 1}, {6, 0}};
    drawStanding(canvas, 0.6 * wave(frame.phase()), {.look = {0, 0.1}, .lid = keyed(kLid, frame.index), .turn = 0});
}

constexpr std::array kStrips{
    //            name             px  px frames
    StripDrawing{"grub\\ani_01", 64, 64, 8, Ground::Clear, drawWalk},
    StripDrawing{"grub\\ani_02", 64, 64, 8, Ground::Clear, drawClimb},
    StripDrawing{"grub\\ani_03", 64, 64, 6, Ground::Clear, drawFall},
    StripDrawing{"grub\\ani_04", 64, 64, 8, Ground::Clear, drawHang},
    StripDrawing{"grub\\ani_05", 64, 64, 10, Ground::Clear, drawDig},
    StripDrawing{"grub\\ani_06", 64, 64, 8, Ground::Clear, drawFrontal},
    StripDrawing{"grub\\ani_07", 64, 64, 8, Ground::Clear, drawFrontalBlink},
    StripDrawing{"grub\\ani_08", 64, 64, 50, Ground::Clear, drawStand},
};

}  // namespace

std::span<const StripDrawing> grubStrips() { return kStrips; }

}  // namespace grub
