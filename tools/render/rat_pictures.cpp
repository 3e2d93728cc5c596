#include "rat_pictures.h"

#include <array>
#include <numbers>

#include "rat_drawing.h"

namespace grub {

namespace {

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

constexpr std::array kPictures{
    //            name             px  px frames
    PictureEntry{"rat\\ani_01", 64, 64, 8, Ground::Clear, drawRun},
    PictureEntry{"rat\\ani_down", 64, 64, 4, Ground::Clear, drawFallIn},
    PictureEntry{"rat\\ani_up", 64, 64, 4, Ground::Clear, drawLeapOut},
};

}  // namespace

std::span<const PictureEntry> ratPictures() { return kPictures; }

}  // namespace grub
