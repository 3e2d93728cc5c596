#include "grub_room.h"

#include <array>

#include "grub.h"
#include "motion.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// What a frame shows.
struct Moment {
    Pose pose;
    Expression expression;
};

Moment walking(FrameOf frame) { return {grubWalk(frame.phase()), kPleased}; }

Moment climbing(FrameOf frame) { return {grubClimb(frame.phase()), kPleased}; }

Moment falling(FrameOf frame) { return {grubFall(frame.phase()), looking({0, 0.75}, kStartled)}; }

Moment hanging(FrameOf frame) {
    return {grubHang(frame.phase()), {.look = {0.9, -0.5}, .browHeight = 0.4, .mouth = Mouth::Grit}};
}

Moment digging(FrameOf frame) {
    const bool straining = frame.index >= kGrubDigHit - 2 && frame.index <= kGrubDigHit + 2;
    constexpr Point kAtSpoon{0.8, 0.7};
    return {grubDig(frame.index),
            straining ? Expression{.look = kAtSpoon, .browHeight = -0.6, .browTilt = 0.3, .mouth = Mouth::Grit}
                      : looking(kAtSpoon, kPleased)};
}

/// Strength of his breath where he stands still.
constexpr double kBreath = 0.6;

Moment breathing(FrameOf frame) { return {grubFront(kBreath * wave(frame.phase())), looking({0, 0.1}, kPleased)}; }

Moment blinking(FrameOf frame) {
    constexpr Keyframe kLid[] = {{1, 0}, {3, 1}, {4, 1}, {6, 0}};
    Moment moment = breathing(frame);
    moment.expression.lid = keyed(kLid, frame.index);
    return moment;
}

/// One breath of two seconds, a blink, a glance back and up.
Moment standing(FrameOf frame) {
    constexpr Keyframe kLid[] = {{14, 0}, {15, 0.6}, {16, 1},   {17, 0.5}, {18, 0},
                                 {45, 0}, {46, 0.8}, {47, 0.5}, {48, 0}};
    constexpr Keyframe kGlance[] = {{25, 0}, {28, 1}, {38, 1}, {41, 0}};
    const double glance = keyed(kGlance, frame.index);
    Moment moment{grubStand(kBreath * wave(frame.phase())), kPleased};
    moment.pose.head.turn -= 1.6 * glance;
    moment.expression.look = mix(Point{0.9, 0.1}, Point{-0.85, -0.25}, glance);
    moment.expression.lid = keyed(kLid, frame.index);
    moment.expression.browHeight = 0.7 * glance;
    return moment;
}

// Files with a mirrored twin in the game face left.
enum class Faces { Left, Right };

template <Faces faces, Moment (*momentOf)(FrameOf)>
void draw(Canvas& canvas, FrameOf frame) {
    const Moment moment = momentOf(frame);
    drawGrub(canvas, moment.pose, moment.expression, {.facesLeft = faces == Faces::Left});
}

constexpr Material kEarth = stony(rgb(0xa8674f), 0.4F, 0.1F);

/// Crumbs that the hit throws up to the left of him; time in frames since the hit.
void drawCrumbs(Canvas& canvas, double time) {
    const auto group = canvas.group({.box = Rect{0, 0, 64, 64}, .mirrored = true, .outline = 0.4});
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

void drawDigging(Canvas& canvas, FrameOf frame) {
    if (frame.index >= kGrubDigHit) drawCrumbs(canvas, 0.5 + frame.index - kGrubDigHit);
    draw<Faces::Left, digging>(canvas, frame);
}

constexpr std::array kStrips{
    //            name             px  px frames
    StripDrawing{"grub\\ani_01", 64, 64, 8, Ground::Clear, draw<Faces::Left, walking>},
    StripDrawing{"grub\\ani_02", 64, 64, 8, Ground::Clear, draw<Faces::Right, climbing>},
    StripDrawing{"grub\\ani_03", 64, 64, 6, Ground::Clear, draw<Faces::Right, falling>},
    StripDrawing{"grub\\ani_04", 64, 64, 8, Ground::Clear, draw<Faces::Left, hanging>},
    StripDrawing{"grub\\ani_05", 64, 64, kGrubDigFrames, Ground::Clear, drawDigging},
    StripDrawing{"grub\\ani_06", 64, 64, 8, Ground::Clear, draw<Faces::Right, breathing>},
    StripDrawing{"grub\\ani_07", 64, 64, 8, Ground::Clear, draw<Faces::Right, blinking>},
    StripDrawing{"grub\\ani_08", 64, 64, 50, Ground::Clear, draw<Faces::Left, standing>},
};

}  // namespace

std::span<const StripDrawing> grubStrips() { return kStrips; }

}  // namespace grub
