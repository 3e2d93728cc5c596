#include "enemies_room.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "lady_drawing.h"
#include "motion.h"

namespace grub {

namespace {

/// Share of a cycle that a shoe stays on the ground, or a hand on the pipe: one of the two always does.
constexpr double kDuty = 0.375;

// ---- walking

constexpr FootRoll kShoeRoll{.toe = 7.6, .heel = 4.6, .heelUp = 0.8, .toeUp = 0.35, .lift = 2.2};

/// Column of her middle: further back than the cell's, to leave room for the rolling pin.
constexpr double kWalkMiddle = 29;

PlacedFoot shoeAt(double phase) { return placedFoot(stride(phase, kCycle, kDuty), kWalkMiddle, kShoeRoll); }

void drawWalk(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const double bob = 0.8 * wave(2 * phase - 0.1);
    const double swing = std::cos(2 * std::numbers::pi * (phase - 0.06));
    const PlacedFoot near = shoeAt(phase);
    const PlacedFoot far = shoeAt(phase + 0.5);
    drawLadyLeg(canvas, {kWalkMiddle - 1, 47 + bob}, far.sole, far.angle, Side::Far);
    drawLadyLeg(canvas, {kWalkMiddle + 1, 47 + bob}, near.sole, near.angle, Side::Near);
    {
        const auto body = canvas.bent({32, 50}, 0.05 + 0.02 * wave(2 * phase), {kWalkMiddle - 32, bob});
        drawLadyArm(canvas, {38, 30}, {40 + 4 * swing, 40 - swing}, -1, Side::Far);
        drawLadyDress(canvas, 4, 1.6 * wave(phase + 0.1));
        {
            const auto head = canvas.bent({32, 26}, 0.03 * wave(2 * phase - 0.15));
            drawLadyHead(canvas, {});
        }
        const Point hand{45 - 1.6 * swing, 36.6 + 1.6 * swing};
        drawRollingPin(canvas, hand, -0.95 - 0.22 * swing);
        drawLadyArm(canvas, {27, 30.6}, hand, 1, Side::Near, 11);
    }
    canvas.outline(kEnemyOutline);
}

// ---- hanging by both hands

void drawHang(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const Step near = stride(phase, kCycle, kDuty);
    const Step far = stride(phase + 0.5, kCycle, kDuty);
    const double sway = 0.09 * wave(phase - 0.125);
    const auto handAt = [](const Step& step) { return Point{32 + step.x, kPipeAxis - 0.6 + 3.4 * step.lift}; };
    const double x = 20 * sway;
    drawLadyArm(canvas, {36 + x, 32}, handAt(far), 1, Side::Far);
    drawLadyArm(canvas, {28 + x, 32}, handAt(near), -1, Side::Near);
    {
        const auto hung = canvas.bent({32, kPipeAxis}, -sway);
        const auto small = canvas.placed({32 - 0.78 * 32, 13.4}, 0, 0.78, 0.78);
        const double dangle = 2.4 * wave(phase + 0.1);
        drawLadyLeg(canvas, {35, 50}, {37 - dangle, 58.6}, 0.35, Side::Far);
        drawLadyLeg(canvas, {29.5, 50}, {29.6 + dangle, 59}, 0.42, Side::Near);
        drawLadyDress(canvas, 3, -2.4 * wave(phase));
        drawLadyHead(canvas, {.turn = 3, .look = {0.8, -0.4}, .pinInMouth = true});
    }
    canvas.outline(kEnemyOutline);
}

// ---- climbing, seen from behind

/// Nearly straight, so that no elbow sticks out beside a hand at the shoulder's height.
void drawArmFromBehind(Canvas& canvas, Point shoulder, Point hand, double bend) {
    drawLadyArm(canvas, shoulder, hand, bend, Side::Near, 0.4 + 0.54 * length(hand - shoulder));
}

void drawClimb(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    const double left = heldRow(phase, kCycle, kDuty, 8);
    const double right = heldRow(phase + 0.5, kCycle, kDuty, 8);
    const auto sole = [](double at) { return std::min(heldRow(at, kCycle, 0.25, 45.4), kGround); };
    drawLadyLegFromFront(canvas, {27, 48}, {25.4, std::max(sole(phase + 0.375), 57.0)});
    drawLadyLegFromFront(canvas, {37, 48}, {38.6, std::max(sole(phase - 0.125), 57.0)});
    drawArmFromBehind(canvas, {24, 30}, {17.4, left}, -1);
    drawArmFromBehind(canvas, {40, 30}, {46.6, right}, 1);
    {
        const auto body = canvas.bent({32, 42}, 0.0026 * (left - right), {0, 1});
        drawLadyBack(canvas, 1.8 * wave(phase + 0.1));
    }
    canvas.outline(kEnemyOutline);
}

// ---- seen from the front

struct LadyFrontPose {
    Point shift{0, 0};
    double tilt = 0;
    double flare = 0;
    double swing = 0;
    Point left{20, 41};
    Point right{44, 38};
    double pin = -1.2;
    bool pinInHand = true;
    Point soleLeft{27, kGround};
    Point soleRight{37, kGround};
};

/// The elbow points outwards, whether the hand is above it or below. `bend` is that of a hand below.
void drawFrontArm(Canvas& canvas, Point shoulder, Point hand, double bend) {
    drawLadyArm(canvas, shoulder, hand, hand.y < shoulder.y ? -bend : bend, Side::Near);
}

void drawFront(Canvas& canvas, const LadyFrontPose& pose, const LadyFace& face) {
    drawLadyLegFromFront(canvas, Point{28, 48} + pose.shift, pose.soleLeft);
    drawLadyLegFromFront(canvas, Point{36, 48} + pose.shift, pose.soleRight);
    {
        const auto body = canvas.bent({32, 50}, pose.tilt * 0.4, pose.shift);
        drawLadyDress(canvas, 0, pose.swing, pose.flare);
        const auto head = canvas.bent({32, 26}, pose.tilt);
        drawLadyHead(canvas, face);
    }
    drawFrontArm(canvas, Point{23.6, 30} + pose.shift, pose.left, 1);
    if (pose.pinInHand) drawRollingPin(canvas, pose.right, pose.pin);
    drawFrontArm(canvas, Point{40.4, 30} + pose.shift, pose.right, -1);
    canvas.outline(kEnemyOutline);
}

/// Frame 0 stands, a fist on her hip; the others are one floor's fall under a skirt full of air.
void drawStill(Canvas& canvas, FrameOf frame) {
    if (frame.index == 0) return drawFront(canvas, {}, {.turn = 0, .look = {0, 0.2}});
    const double flail = wave(frame.phase() * 2);
    drawFront(canvas,
              {.tilt = 0.04 * flail,
               .flare = 4 + flail,
               .left = {12 - flail, 25 + 3 * flail},
               .right = {50 - flail, 27 - 2 * flail},
               .pin = -1.45 - 0.12 * flail,
               .soleLeft = {26 - flail, 60 - 1.5 * flail},
               .soleRight = {38 - flail, 60 + 1.5 * flail - 1}},
              {.mood = Mood::Startled, .turn = 0, .look = {0, 0.9}});
}

void drawTrapped(Canvas& canvas, FrameOf frame) {
    if (frame.index < frame.count - 1) return drawStill(canvas, {frame.index + 1, frame.count, frame.name});
    drawFront(canvas,
              {.shift = {0, 3.6},
               .tilt = 0.14,
               .flare = 3,
               .left = {13, 52},
               .right = {51, 52},
               .pin = 2.95,
               .soleLeft = {23, kGround},
               .soleRight = {41, kGround}},
              {.mood = Mood::Dizzy, .turn = 0});
    drawDizzyStars(canvas, {34, 9}, 20, 5, 0.08);
}

/// Hands against both walls, one over the other, the rolling pin between her teeth, until she stands on the floor.
void drawEscape(Canvas& canvas, FrameOf frame) {
    const double out = eased((frame.index - 4.5) / 2.5);
    const double left = heldRow(frame.index / 4.0, 32, 0.5, 12);
    const double right = heldRow(frame.index / 4.0 + 0.5, 32, 0.5, 12);
    const bool busy = frame.index < 6;
    const double kick = 1.8 * wave(frame.index / 4.0) * (1 - out);
    drawFront(canvas,
              {.tilt = 0.05 * (left - right) / 16 * (1 - out),
               .flare = 1 - out,
               .left = mix(Point{9, left}, Point{20, 41}, out),
               .right = mix(Point{55, right}, Point{44, 38}, out),
               .pinInHand = !busy,
               .soleLeft = {27 - 2 * (1 - out), kGround - std::abs(kick) + kick},
               .soleRight = {37 + 2 * (1 - out), kGround - std::abs(kick) - kick}},
              {.turn = 0, .look = {0, -0.4}, .pinInMouth = busy});
}

constexpr std::array kStrips{
    //            name              px  px frames
    StripDrawing{"tetka\\ani_01", 64, 64, 8, Ground::Clear, drawWalk},
    StripDrawing{"tetka\\ani_02", 64, 64, 8, Ground::Clear, drawClimb},
    StripDrawing{"tetka\\ani_03", 64, 64, 8, Ground::Clear, drawHang},
    StripDrawing{"tetka\\ani_04", 64, 64, 8, Ground::Clear, drawTrapped},
    StripDrawing{"tetka\\ani_05", 64, 64, 8, Ground::Clear, drawEscape},
    StripDrawing{"tetka\\ani_06", 64, 64, 8, Ground::Clear, drawStill},
};

}  // namespace

std::span<const StripDrawing> ladyStrips() { return kStrips; }

}  // namespace grub
