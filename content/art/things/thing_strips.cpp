#include "things_room.h"

#include <array>

#include "common_parts.h"
#include "motion.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- keys: one frame each, since a key in a cell never moves; the sparkle is part of it

void drawKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({29.5, 37}, -0.55);
        drawKeyShape(canvas, kGold, false);
    }
    drawSparkle(canvas, {41, 19.5}, 7.5);
    drawSparkle(canvas, {15.5, 51}, 4.2);
}

void drawOrnateKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({31, 37.5}, -0.55);
        drawKeyShape(canvas, glossy(material(0xffd75a, 0xc07028, 0xfffbd0), 1, 0.6F), true);
    }
    drawSparkle(canvas, {19, 22}, 7.5);
    drawSparkle(canvas, {50, 40}, 4.2);
}

// ---- bonuses

constexpr int kFrames = 12;

/// Width of the gold rim that says "take me".
constexpr double kRim = 2;

// ---- the things, about the middle of the cell

using DrawThing = void (*)(Canvas& canvas, double phase);

void drawHeart(Canvas& canvas, double phase) {
    constexpr Material kHeart = glossy(material(0xff3d5a, 0x9a1250, 0xff9aa0), 0.9F, 0.6F);
    const double beat = 1 + 0.05 * wave(2 * phase);
    const auto beating = canvas.placed({32, 32}, 0, beat, beat);
    canvas.part(loop({{0, 17},
                      {-6, 12},
                      {-18, 4},
                      {-18, -6},
                      {-18, -15},
                      {-6, -18},
                      {0, -8},
                      {6, -18},
                      {18, -15},
                      {18, -6},
                      {18, 4},
                      {6, 12},
                      {0, 17}}),
                kHeart, {.bevel = 9, .line = 1});
    canvas.flat(ellipse({-8.4, -7.5}, 3.6, 2.3, -0.6), rgb(0xffffff), {.alpha = 0.8F});
}

/// Skull and crossbones; a spark wakes in the sockets.
void drawSkullAndBones(Canvas& canvas, double phase) {
    drawBone(canvas, {13, 25}, {51, 50}, 2.6);
    drawBone(canvas, {51, 25}, {13, 50}, 2.6);
    const auto large = canvas.placed({32, 32}, 0.05 * wave(phase), 1.35, 1.35);
    drawSkull(canvas, {0, 0}, 0);
    const auto spark = static_cast<float>(0.6 + 0.4 * wave(2 * phase));
    for (const double x : {-4.2, 4.2}) canvas.flat(circle({x, -0.6}, 1.3), rgb(0xff6a4a), {.alpha = spark});
}

void drawAnchor(Canvas& canvas, double phase) {
    constexpr Material kSteel = glossy(material(0x7b9fdc, 0x2c427e, 0xe6f3ff), 1, 0.5F);
    const auto swinging = canvas.bent({32, 14}, 0.09 * wave(phase));
    canvas.part(curve({{15, 38}, {16, 49}, {23, 53}, {32, 53}, {41, 53}, {48, 49}, {49, 38}}), kSteel,
                {.bevel = 3, .line = 1, .stroke = 6});
    for (const double side : {-1.0, 1.0}) {
        canvas.part(polygon({{32 + side * 18.6, 30}, {32 + side * 22, 41}, {32 + side * 11.5, 40}}, 1.5), kSteel,
                    {.bevel = 2.6, .line = 1});
    }
    canvas.part(limb({{{32, 20}, 3}, {{32, 53}, 3.6}}), kSteel, {.bevel = 3, .line = 1});
    canvas.part(limb({{{23, 24.5}, 2.8}, {{41, 24.5}, 2.8}}), kSteel, {.bevel = 2.6, .line = 1});
    canvas.part(ring({32, 14}, 6, 2.9), kSteel, {.bevel = 1.7, .line = 1});
}

void drawBomb(Canvas& canvas, double phase) {
    constexpr Material kIron = glossy(material(0x444a70, 0x191630, 0x96a0d0), 1, 0.7F);
    constexpr Material kCord = glossy(material(0xc9b27a, 0x7a5a4a, 0xf0e0b0), 0.1F);
    constexpr Material kSpark = glossy(material(0xffc640, 0xff6a2a, 0xffffe0), 0.6F);
    canvas.part(curve({{32, 20}, {32, 13}, {36, 11.5}, {41, 13.5}}), kCord, {.bevel = 2, .line = 1, .stroke = 3.6});
    canvas.part(circle({31, 37.5}, 15.5), kIron, {.bevel = 14, .line = 1});
    canvas.part(rectangle(26, 18.5, 11, 6.5, 2), kMetal, {.bevel = 2.5, .line = 1});
    canvas.flat(ellipse({24.6, 31}, 3.8, 2.5, -0.7), rgb(0xffffff), {.alpha = 0.85F});
    canvas.part(star({42.5, 14.5}, 6, 7 + 1.2 * wave(3 * phase), 3.4, 0.6), kSpark, {.bevel = 3, .line = 0.8});
    canvas.flat(circle({42.5, 14.5}, 1.8), rgb(0xffffff), {.alpha = 0.9F});
}

VectorPath shieldShape(double inset) {
    const double w = 17 - inset;
    const double top = 14 + inset;
    const double tip = 54 - 1.4 * inset;
    return loop({{32, top - 1},
                 {32 + w * 0.4, top + 2.4},
                 {32 + w * 0.7, top + 2.6},
                 {32 + w, top + 1},
                 {32 + w, top + 18},
                 {32 + w * 0.9, top + 30},
                 {32, tip},
                 {32 - w * 0.9, top + 30},
                 {32 - w, top + 18},
                 {32 - w, top + 1},
                 {32 - w * 0.7, top + 2.6},
                 {32 - w * 0.4, top + 2.4},
                 {32, top - 1}});
}

/// A blue shield, one half lighter, with a star.
void drawShield(Canvas& canvas, double) {
    constexpr Material kBlue = glossy(material(0x3f74d8, 0x1f2f7c, 0x9cc4ff), 0.8F, 0.4F);
    constexpr Material kStar = glossy(material(0xfff1d6, 0xc09a86, 0xffffff), 0.5F);
    canvas.part(shieldShape(0), kBlue, {.bevel = 7, .line = 1});
    const Mask inside = canvas.mask(shieldShape(1.4));
    canvas.flat(rectangle(32, 8, 24, 52), rgb(0x9cc4ff), {.alpha = 0.3F, .clip = &inside});
    canvas.part(star({32, 31}, 5, 12, 5.4, 1.2), kStar, {.bevel = 3.4, .line = 0.9, .shadow = 0.45F});
}

/// A ghost whose hem wafts.
void drawGhost(Canvas& canvas, double phase) {
    constexpr Material kVeil = glossy(material(0xc4e2ff, 0x6272c4, 0xffffff), 0.4F, 0.5F);
    const auto hem = [phase](double x, double turn) {
        return Point{x + 1.6 * wave(phase + turn), 51 + 1.6 * wave(phase + turn + 0.3)};
    };
    const Point left = hem(15, 0);
    const Point a = hem(23.5, 0.15);
    const Point b = hem(32.5, 0.3);
    const Point c = hem(41.5, 0.45);
    const Point right = hem(49, 0.6);
    constexpr double kNotch = 5;
    canvas.part(loop({{32, 12},
                      {41.5, 12},
                      {46.5, 19},
                      {46.5, 28},
                      {46.5, 36},
                      {right.x, 44},
                      right,
                      {right.x - 2, right.y + 1.5},
                      {c.x + 3, c.y - kNotch},
                      {c.x, c.y - kNotch},
                      {c.x - 3, c.y - kNotch},
                      {b.x + 3, b.y + 2},
                      b,
                      {b.x - 3, b.y + 2},
                      {a.x + 3, a.y - kNotch},
                      {a.x, a.y - kNotch},
                      {a.x - 3, a.y - kNotch},
                      {left.x + 2, left.y + 1.5},
                      left,
                      {left.x, 44},
                      {17.5, 36},
                      {17.5, 28},
                      {17.5, 19},
                      {22.5, 12},
                      {32, 12}}),
                kVeil, {.bevel = 10, .line = 1});
    for (const double x : {26.4, 37.6}) {
        canvas.flat(ellipse({x, 27}, 3, 4.2), rgb(0x2a2450));
        canvas.flat(circle({x - 0.9, 25.2}, 1.1), rgb(0xffffff));
        canvas.flat(ellipse({x + (x < 32 ? -3.4 : 3.4), 33}, 2.3, 1.5), rgb(0xf4a0b8), {.alpha = 0.6F});
    }
    canvas.flat(ellipse({32, 34.4}, 2, 2.6), rgb(0x2a2450));
}

// ---- what all have in common

/// A band of light that crosses the thing in the first half of the loop.
void drawGlint(Canvas& canvas, FrameOf frame) {
    const Mask shape = canvas.drawn();
    const double x = -14 + 17.0 * frame.index;
    if (x > 96) return;
    canvas.flat(polygon({{x, 0}, {x + 7, 0}, {x - 13, 64}, {x - 20, 64}}), rgb(0xfffbe8),
                {.alpha = 0.4F, .clip = &shape});
}

/// Afloat over its shadow; `cover` is how solid the thing is.
void drawAfloat(Canvas& canvas, FrameOf frame, DrawThing drawThing, float cover = 1) {
    constexpr Keyframe kSparkle[] = {{6, 0}, {8, 6.5}, {9, 5}, {11, 0}};
    const double rise = 1.6 * wave(frame.phase());
    canvas.flat(ellipse({32, 60}, 13 - 0.8 * rise, 2), rgb(0x0c0818), {.alpha = 0.3F});
    canvas.halo({32, 33 - rise}, 30, rgb(0xffd98a), 0.26F + 0.05F * static_cast<float>(wave(frame.phase())));
    {
        const auto thing = canvas.group({.cover = cover});
        const auto risen = canvas.placed({0, -rise});
        drawThing(canvas, frame.phase());
        canvas.border(kRim, kGold);
        drawGlint(canvas, frame);
    }
    const double size = keyed(kSparkle, frame.index);
    if (size > 0.5) drawSparkle(canvas, {47, 18 - rise}, size);
}

template <DrawThing Draw>
void drawBonus(Canvas& canvas, FrameOf frame) {
    drawAfloat(canvas, frame, Draw);
}

/// The sign of invisibility comes and goes.
void drawInvisibility(Canvas& canvas, FrameOf frame) {
    drawAfloat(canvas, frame, drawGhost, 0.78F + 0.22F * static_cast<float>(wave(frame.phase())));
}

constexpr std::array kStrips{
    //            name                            px  px frames
    StripDrawing{"key_h", 64, 64, 1, Ground::Clear, drawKey},
    StripDrawing{"key", 64, 64, 1, Ground::Clear, drawOrnateKey},
    StripDrawing{"bonuses\\animation_bonus_01", 64, 64, kFrames, Ground::Clear, drawBonus<drawSkullAndBones>},
    StripDrawing{"bonuses\\animation_bonus_02", 64, 64, kFrames, Ground::Clear, drawBonus<drawBomb>},
    StripDrawing{"bonuses\\animation_bonus_03", 64, 64, kFrames, Ground::Clear, drawInvisibility},
    StripDrawing{"bonuses\\animation_bonus_04", 64, 64, kFrames, Ground::Clear, drawBonus<drawHeart>},
    StripDrawing{"bonuses\\animation_bonus_05", 64, 64, kFrames, Ground::Clear, drawBonus<drawAnchor>},
    StripDrawing{"bonuses\\animation_bonus_06", 64, 64, kFrames, Ground::Clear, drawBonus<drawShield>},
};

}  // namespace

std::span<const StripDrawing> thingStrips() { return kStrips; }

}  // namespace grub
