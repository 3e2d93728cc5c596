#include "enemies_room.h"

#include <array>
#include <numbers>

#include "face.h"
#include "figure.h"
#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- the rat

constexpr Material kFur = glossy(material(0xa3a8ba, 0x4c5270, 0xe6eaf2), 0.15F, 0.55F);
constexpr Material kFarFur = glossy(material(0x747a92, 0x3a3f5c, 0x9aa0b4), 0.05F, 0.2F);
constexpr Material kBelly = glossy(material(0xd6d3dc, 0x8a86a4, 0xf6f3f6), 0.05F, 0.2F);
constexpr Material kPink = glossy(material(0xf0a3ae, 0x9a566f, 0xffd6d6), 0.3F);
constexpr Material kFarPink = glossy(material(0xbd7d8e, 0x6f4262, 0xd79aa6), 0.1F);

constexpr Rgb kPupil = rgb(0x24141f);
constexpr Rgb kWhisker = rgb(0xe9e3ee);

void drawTail(Canvas& canvas, Point root, Point tip) {
    const Point end = root + tip;
    canvas.part(curve({root, root + Point{-7, 1}, end + Point{2, 8}, end}), kPink,
                {.bevel = 1.5, .line = 1.2, .stroke = 3});
}

void drawEar(Canvas& canvas, Point at, double back, bool near) {
    const double tilt = -0.25 - 0.6 * back;
    canvas.part(ellipse(at, 5.2 - 0.8 * back, 5.6, tilt), near ? kFur : kFarFur, {.bevel = 2.6, .line = 1.2});
    canvas.part(ellipse(at + Point{0.5, 0.8}, 3.2 - 0.8 * back, 3.7, tilt), near ? kPink : kFarPink,
                {.bevel = 2, .line = 0.6, .shadow = 0.15F});
}

void drawEye(Canvas& canvas, Point at, double radius, Mood mood) {
    if (mood == Mood::Startled) radius += 0.6;
    const VectorPath ball = ellipse(at, radius, radius * 1.1);
    canvas.part(ball, kEnamel, {.bevel = 1.6, .line = 0.9, .shadow = 0.2F});
    if (mood == Mood::Dizzy) return drawSpiral(canvas, at, radius - 0.2, kPupil);
    const Mask inEye = canvas.mask(ball);
    canvas.flat(ellipse(at + Point{0.9, 0.2}, 1.7, 2.1), kPupil, {.clip = &inEye});
    canvas.flat(circle(at + Point{0.3, -0.8}, 0.7), rgb(0xffffff));
    if (mood != Mood::Angry) return;
    canvas.flat(polyline({{at.x - 3.4, at.y - 3.8}, {at.x + 3, at.y - 2}}), rgb(0x2c2a44), {.stroke = 1.8});
}

void drawTooth(Canvas& canvas, Point at) {
    canvas.part(polygon({at + Point{-1.5, 0}, at + Point{1.7, 0}, at + Point{1.2, 3.6}, at + Point{-0.9, 3.6}}, 0.6),
                kEnamel, {.bevel = 1.2, .line = 0.8, .shadow = 0.15F});
}

void drawSnout(Canvas& canvas) {
    canvas.part(ellipse({57.4, 50.6}, 2.5, 2.1), kPink, {.bevel = 1.8, .line = 0.9});
    canvas.flat(curve({{56, 53.8}, {53.4, 55}, {51.4, 55}, {49.6, 53.8}}), kPupil, {.stroke = 0.9});
    for (const double dy : {-1.6, 0.4, 2.4})
        canvas.flat(polyline({{53.6, 51.4 + dy * 0.4}, {47.6, 51 + dy * 1.4}}), kWhisker,
                    {.alpha = 0.75F, .stroke = 0.7});
}

/// How the rat's body is bent; it faces right, its belly just above the ground.
struct RatPose {
    Mood mood = Mood::Angry;
    /// Tip of the tail, from its root at the back.
    Point tail{-9, -13};
    /// How far the ear is laid back, 0 to 1.
    double earBack = 0;
};

/// Body, tail, ears and head from the side.
void drawRatSide(Canvas& canvas, const RatPose& pose) {
    drawTail(canvas, {12, 53}, pose.tail);
    drawEar(canvas, {42.6, 42.2}, pose.earBack, false);
    const VectorPath body = loop({{8.6, 53},
                                  {8.6, 44},
                                  {17, 39.6},
                                  {27, 39.6},
                                  {35, 39.6},
                                  {42, 40.4},
                                  {48, 42.6},
                                  {53, 46},
                                  {59, 48.6},
                                  {59, 52},
                                  {59, 55.6},
                                  {51, 57.4},
                                  {43, 58},
                                  {35, 58.6},
                                  {27, 59},
                                  {20, 59},
                                  {12, 59},
                                  {8.6, 57},
                                  {8.6, 53}});
    drawTooth(canvas, {54, 55.4});
    canvas.part(body, kFur, {.bevel = 9, .line = 1.5});
    const Mask inBody = canvas.mask(body);
    canvas.part(ellipse({30, 60}, 18, 4.4), kBelly,
                {.bevel = 4, .line = 0, .shadow = 0, .clip = &inBody, .alpha = 0.45F});
    drawEar(canvas, {36 - 2 * pose.earBack, 42.4 + 0.6 * pose.earBack}, pose.earBack, true);
    drawEye(canvas, {47, 46.4}, 3.6, pose.mood);
    drawSnout(canvas);
}

/// A short leg with a pink paw; `sole` is the middle of the paw's underside.
void drawRatLeg(Canvas& canvas, Point hip, Point sole, Side side) {
    const bool nearSide = side == Side::Near;
    canvas.part(limb({{hip, 3.2}, {sole + Point{-0.6, -2.4}, 2}}), nearSide ? kFur : kFarFur,
                {.bevel = 2.4, .line = 1.2});
    canvas.part(loop({{sole.x - 3, sole.y - 1.4},
                      {sole.x - 2.6, sole.y - 3},
                      {sole.x + 1, sole.y - 3.4},
                      {sole.x + 4, sole.y - 2},
                      {sole.x + 4.6, sole.y - 1},
                      {sole.x + 4.4, sole.y},
                      {sole.x + 3, sole.y},
                      {sole.x + 1, sole.y},
                      {sole.x - 1.6, sole.y},
                      {sole.x - 3, sole.y - 1.4}}),
                nearSide ? kPink : kFarPink, {.bevel = 1.6, .line = 1.1});
}

/// Sitting up on its haunches at the bottom of a hole, dizzy.
void drawRatSitting(Canvas& canvas) {
    drawTail(canvas, {20, 56}, {-11, -12});
    canvas.part(loop({{14, 52},
                      {14, 43},
                      {23, 37},
                      {32, 37},
                      {41, 37},
                      {50, 43},
                      {50, 52},
                      {50, 57.4},
                      {42, 59.4},
                      {32, 59.4},
                      {22, 59.4},
                      {14, 57.4},
                      {14, 52}}),
                kFur, {.bevel = 9, .line = 1.5});
    canvas.part(ellipse({33, 54}, 9, 6.6), kBelly, {.bevel = 5, .line = 0, .shadow = 0});
    for (const double side : {-1.0, 1.0}) {
        canvas.part(ellipse({32 + side * 11, 57.7}, 5.6, 2.5), kPink, {.bevel = 2, .line = 1.1});
        const auto ear = canvas.placed({32 + side * 11.4, 33.4}, 0.5 * side);
        drawEar(canvas, {0, 0}, 0.2, true);
    }
    canvas.part(loop({{20, 42},
                      {20, 34},
                      {26, 30},
                      {32, 30},
                      {38, 30},
                      {44, 34},
                      {44, 42},
                      {44, 48},
                      {37, 52},
                      {32, 52},
                      {27, 52},
                      {20, 48},
                      {20, 42}}),
                kFur, {.bevel = 8, .line = 1.3});
    drawTooth(canvas, {32, 49.4});
    drawEye(canvas, {27, 39.4}, 4.1, Mood::Dizzy);
    drawEye(canvas, {37, 39.4}, 4.1, Mood::Dizzy);
    canvas.part(ellipse({32, 46.6}, 2.9, 2.3), kPink, {.bevel = 2, .line = 0.9});
    for (const double side : {-1.0, 1.0}) {
        for (const double dy : {-1.0, 1.4})
            canvas.flat(polyline({{32 + side * 5, 47.4 + dy * 0.5}, {32 + side * 12.6, 46.6 + dy * 1.6}}), kWhisker,
                        {.alpha = 0.8F, .stroke = 0.8});
        canvas.part(ellipse({32 + side * 8.6, 53.6}, 3.2, 2.7), kPink, {.bevel = 2.2, .line = 1});
    }
}

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// ---- running: two strides a strip, the legs in crossed pairs

constexpr double kStride = kCycle / 2;
constexpr double kDuty = 0.5;

void drawRunningLeg(Canvas& canvas, double hip, double lift, double phase, Side side) {
    const Step step = stride(phase, kStride, kDuty);
    drawRatLeg(canvas, {hip, 54 - lift}, {hip + step.x, kGround - 2.6 * step.lift}, side);
}

void drawRun(Canvas& canvas, FrameOf frame) {
    const auto mirrored = facingLeft(canvas);
    const double phase = frame.phase();
    const double bounce = 0.7 + 0.7 * wave(4 * phase + 0.1);
    drawRunningLeg(canvas, 20, bounce, 2 * phase + 0.5, Side::Far);
    drawRunningLeg(canvas, 42, bounce, 2 * phase, Side::Far);
    {
        const auto body = canvas.bent({32, 56}, 0.025 * wave(2 * phase), {0, -bounce});
        drawRatSide(canvas, {.tail = {-7 + wave(phase + 0.25), -12 + 3 * wave(phase)}});
    }
    drawRunningLeg(canvas, 17, bounce, 2 * phase, Side::Near);
    drawRunningLeg(canvas, 38.5, bounce, 2 * phase + 0.5, Side::Near);
    canvas.outline(kEnemyOutline);
}

// ---- in and out of a hole: the whole rat turned through the air

struct Flight {
    Point middle;    // of the body
    double degrees;  // nose up is negative
    double size;
    Point tail;
};

void drawFlying(Canvas& canvas, const Flight& flight, Mood mood) {
    const Point middle{32, 49};
    {
        const auto place = canvas.placed(flight.middle, radians(flight.degrees), flight.size, flight.size);
        const auto centred = canvas.placed(middle * -1);
        drawRatLeg(canvas, {21, 54}, {15, 60}, Side::Far);
        drawRatLeg(canvas, {43, 54}, {48, 60}, Side::Far);
        drawRatSide(canvas, {.mood = mood, .tail = flight.tail, .earBack = 1});
        drawRatLeg(canvas, {18, 54}, {12, 60.6}, Side::Near);
        drawRatLeg(canvas, {40, 54}, {46, 60.6}, Side::Near);
    }
    canvas.outline(kEnemyOutline);
}

/// Head first from the edge, then sitting at the bottom. The game moves it half a cell down at the start.
void drawFallIn(Canvas& canvas, FrameOf frame) {
    constexpr std::array kFlights{
        Flight{{32, 22}, 24, 0.94, {-9, -8}},
        Flight{{32, 28}, 58, 0.94, {-8, -7}},
        Flight{{32, 33}, 84, 0.94, {-8, -6}},
    };
    const auto mirrored = facingLeft(canvas);
    const auto index = static_cast<std::size_t>(frame.index);
    if (index < kFlights.size()) return drawFlying(canvas, kFlights[index], Mood::Startled);
    drawRatSitting(canvas);
    canvas.outline(kEnemyOutline);
    drawDizzyStars(canvas, {32, 24}, 17, 4, 0.08);
}

/// A leap out of the hole, nose up, that ends on its feet.
void drawLeapOut(Canvas& canvas, FrameOf frame) {
    constexpr std::array kFlights{
        Flight{{32, 35.4}, -82, 0.94, {-6, -7}},
        Flight{{32, 31}, -60, 0.94, {-9, -2}},
        Flight{{32, 38}, -28, 0.96, {-9, -8}},
        Flight{{31.6, 48}, -4, 1, {-6.4, -12}},
    };
    const auto mirrored = facingLeft(canvas);
    drawFlying(canvas, kFlights[static_cast<std::size_t>(frame.index)], Mood::Angry);
}

constexpr std::array kStrips{
    //            name             px  px frames
    StripDrawing{"rat\\ani_01", 64, 64, 8, Ground::Clear, drawRun},
    StripDrawing{"rat\\ani_down", 64, 64, 4, Ground::Clear, drawFallIn},
    StripDrawing{"rat\\ani_up", 64, 64, 4, Ground::Clear, drawLeapOut},
};

}  // namespace

std::span<const StripDrawing> ratStrips() { return kStrips; }

}  // namespace grub
