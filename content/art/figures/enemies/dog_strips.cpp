#include "enemies_room.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "dog_drawing.h"
#include "motion.h"

namespace grub {

namespace {

// ---- walking: hind, front, other hind, other front, so that the legs of one side never cross

constexpr double kDuty = 0.3;
constexpr FootRoll kPawRoll{.toe = 6, .heel = 4.6, .heelUp = 0.8, .toeUp = 0.3, .lift = 3};

void drawWalk(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const double bob = 0.9 * wave(2 * phase + 0.1);
    const double pitch = 0.03 * wave(phase + 0.2);
    const Point hind{20, 44 + bob};
    const Point front{41.5, 44 + bob};
    const auto leg = [&](Point hip, double at, double bend, Side side) {
        const PlacedFoot paw = placedFoot(stride(at + 0.02, kCycle, kDuty), hip.x, kPawRoll);
        drawDogLeg(canvas, hip, paw.sole, paw.angle, side, bend);
    };
    leg(hind + Point{3, -0.6}, phase + 0.5, 1, Side::Far);
    leg(front + Point{1.5, -0.6}, phase + 0.25, -1, Side::Far);
    {
        const auto body = canvas.bent({30, 44}, pitch, {0, bob});
        drawDogSide(canvas, 1.6 * wave(2 * phase));
    }
    leg(hind, phase, 1, Side::Near);
    leg(front, phase + 0.75, -1, Side::Near);
    drawDogHead(canvas, {45, 30.5 + bob * 0.6 - 0.8 * wave(phase + 0.2)}, 0.04 * wave(phase + 0.1), {});
    canvas.outline(kEnemyOutline);
}

// ---- hanging: upside down like a sloth, four paws on the pipe

void drawHang(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const double sway = 0.8 * wave(phase);
    const auto leg = [&](double x, double at, Side side) {
        const Step step = stride(at, kCycle, kDuty);
        drawDogForeleg(canvas, {x, 26}, {x + step.x, kPipeAxis - 0.5 + 4 * step.lift}, x > 30 ? 1 : -1, side);
    };
    leg(22, phase + 0.5, Side::Far);
    leg(42.5, phase + 0.25, Side::Far);
    {
        const auto upsideDown = canvas.placed({sway, 72}, 0, 1, -1);
        drawDogSide(canvas, 0);
    }
    leg(20, phase, Side::Near);
    leg(40, phase + 0.75, Side::Near);
    drawDogHead(canvas, {46 + sway, 40}, 0.06 * wave(phase), {.look = {0.5, -0.3}});
    canvas.outline(kEnemyOutline);
}

// ---- climbing, seen from behind

void drawClimb(Canvas& canvas, FrameOf frame) {
    const double phase = frame.phase();
    const double left = heldRow(phase, kCycle, 0.375, 10);
    const double right = heldRow(phase + 0.5, kCycle, 0.375, 10);
    const auto sole = [](double at) { return std::min(heldRow(at, kCycle, 0.25, 45), 57.5); };
    drawDogForeleg(canvas, {23, 48}, {16.5, sole(phase + 0.375)}, 1, Side::Near);
    drawDogForeleg(canvas, {41, 48}, {47.5, sole(phase - 0.125)}, -1, Side::Near);
    drawDogForeleg(canvas, {22, 36}, {17.5, left}, -1, Side::Near);
    drawDogForeleg(canvas, {42, 36}, {46.5, right}, 1, Side::Near);
    {
        const auto body = canvas.bent({32, 42}, 0.003 * (left - right), {0, 0.6 * wave(2 * phase)});
        drawDogBack(canvas, 2.4 * wave(2 * phase));
    }
    canvas.outline(kEnemyOutline);
}

// ---- seen from the front

/// Row of the middle of a paw on the ground.
constexpr double kPawRow = 56.1;

struct DogFrontPose {
    double body = 0;   // pixels the body is lower
    double head = 30;  // row of the head's middle
    double tilt = 0;
    Point left{23, kPawRow};
    Point right{41, kPawRow};
    Point hindLeft{18, kPawRow};
    Point hindRight{46, kPawRow};
    /// Far keeps the hind legs of the standing dog behind the others.
    Side hindSide = Side::Near;
};

void drawFront(Canvas& canvas, const DogFrontPose& pose, const DogFace& face) {
    const Point down{0, pose.body};
    drawDogForeleg(canvas, Point{20, 45} + down, pose.hindLeft, 1, pose.hindSide);
    drawDogForeleg(canvas, Point{44, 45} + down, pose.hindRight, -1, pose.hindSide);
    {
        const auto body = canvas.placed(down);
        drawDogChest(canvas);
    }
    drawDogForeleg(canvas, Point{22.5, 40} + down, pose.left, 1, Side::Near);
    drawDogForeleg(canvas, Point{41.5, 40} + down, pose.right, -1, Side::Near);
    drawDogHead(canvas, {32, pose.head}, pose.tilt, face);
    canvas.outline(kEnemyOutline);
}

/// Frame 0 stands and looks at the viewer; the others are one floor's fall.
void drawStill(Canvas& canvas, FrameOf frame) {
    if (frame.index == 0) return drawFront(canvas, {.hindSide = Side::Far}, {.turn = 0, .look = {0, 0.2}});
    const double flail = 3 * wave(frame.phase() * 2);
    drawFront(canvas,
              {.head = 29,
               .left = {17 - flail * 0.4, 50 + flail},
               .right = {47 - flail * 0.4, 50 - flail},
               .hindLeft = {15, 55 - flail * 0.7},
               .hindRight = {49, 55 + flail * 0.7}},
              {.mood = Mood::Startled, .turn = 0, .look = {0, 0.8}, .ears = 3.5});
}

/// He falls in while the first seven frames show, and sits at the bottom in the last.
void drawTrapped(Canvas& canvas, FrameOf frame) {
    if (frame.index < frame.count - 1) {
        const double flail = 4 * wave(frame.phase() * 2);
        return drawFront(canvas,
                         {.head = 29,
                          .tilt = 0.05 * flail / 4,
                          .left = {10, 23 + flail},
                          .right = {54, 23 - flail},
                          .hindLeft = {17, 55 - flail * 0.6},
                          .hindRight = {47, 55 + flail * 0.6}},
                         {.mood = Mood::Startled, .turn = 0, .look = {0, 0.9}, .ears = 4});
    }
    drawFront(canvas,
              {.body = 3,
               .head = 33,
               .tilt = 0.14,
               .left = {25, kPawRow},
               .right = {39, kPawRow},
               .hindLeft = {13, kPawRow},
               .hindRight = {51, kPawRow}},
              {.mood = Mood::Dizzy, .turn = 0, .ears = -2, .tongue = true});
    drawDizzyStars(canvas, {32, 16}, 19, 5, 0.08);
}

/// Paws against both walls, hand over hand, until he stands on the floor.
void drawEscape(Canvas& canvas, FrameOf frame) {
    const double out = eased((frame.index - 4.5) / 2.5);
    const double left = heldRow(frame.index / 4.0, 32, 0.5, 12);
    const double right = heldRow(frame.index / 4.0 + 0.5, 32, 0.5, 12);
    const double kick = 3 * wave(frame.index / 4.0) * (1 - out);
    drawFront(canvas,
              {.head = 29 + 1 * out,
               .tilt = 0.05 * (left - right) / 16 * (1 - out),
               .left = mix(Point{10, left}, Point{23, kPawRow}, out),
               .right = mix(Point{54, right}, Point{41, kPawRow}, out),
               .hindLeft = {18 - 4 * (1 - out), kPawRow - std::abs(kick) + kick},
               .hindRight = {46 + 4 * (1 - out), kPawRow - std::abs(kick) - kick}},
              {.turn = 0, .look = {0, 0.1}});
}

constexpr std::array kStrips{
    //            name               px  px frames
    StripDrawing{"polkan\\ani_01", 64, 64, 8, Ground::Clear, drawWalk},
    StripDrawing{"polkan\\ani_02", 64, 64, 8, Ground::Clear, drawClimb},
    StripDrawing{"polkan\\ani_03", 64, 64, 8, Ground::Clear, drawHang},
    StripDrawing{"polkan\\ani_04", 64, 64, 8, Ground::Clear, drawStill},
    StripDrawing{"polkan\\ani_05", 64, 64, 8, Ground::Clear, drawTrapped},
    StripDrawing{"polkan\\ani_06", 64, 64, 8, Ground::Clear, drawEscape},
};

}  // namespace

std::span<const StripDrawing> dogStrips() { return kStrips; }

}  // namespace grub
