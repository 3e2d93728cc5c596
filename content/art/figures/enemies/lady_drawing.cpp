#include "lady_drawing.h"

#include <algorithm>
#include <cmath>

#include "shapes.h"

namespace grub {

namespace {

constexpr Material kDress = glossy(material(0xc4489c, 0x6c2a86, 0xf79fd2), 0.2F, 0.5F);
constexpr Material kFarDress = glossy(material(0x8f3379, 0x4f1f66, 0xc05fa8), 0.1F, 0.2F);
constexpr Material kApron = glossy(material(0xf4eaec, 0x9a8fb8, 0xffffff), 0.1F);
constexpr Material kHair = glossy(material(0x9c4c5c, 0x5c2a4c, 0xd48484), 0.5F);
constexpr Material kSkin = glossy(material(0xf2bb9c, 0xbd7878, 0xffe2c8), 0.2F);
constexpr Material kFarSkin = glossy(material(0xcf917e, 0x7d4560, 0xe8b49c), 0.1F);
constexpr Material kStocking = glossy(material(0xd9c3cf, 0x7b6790, 0xf6e9f0), 0.1F);
constexpr Material kFarStocking = glossy(material(0xa08aa2, 0x58466e, 0xc0aabf), 0.05F);
constexpr Material kShoe = glossy(material(0x6a5488, 0x2c2044, 0xb09ccb), 0.8F);
constexpr Material kFarShoe = glossy(material(0x483a62, 0x221834, 0x6f5c8c), 0.3F);
constexpr Material kLips = glossy(material(0xd8263a, 0x6f1236, 0xff6f5e), 0.6F);

constexpr Rgb kBrow = rgb(0x3a1530);
constexpr Rgb kIris = rgb(0x2c1a30);
constexpr Rgb kBlush = rgb(0xe0617a);
constexpr Rgb kTrim = rgb(0xf7b9da);

/// Half the hem's width, and its row.
constexpr double kHem = 17.4;
constexpr double kHemRow = 51;

VectorPath dressShape(double swing, double flare) {
    const double left = 32 - kHem - flare + swing;
    const double right = 32 + kHem + flare + swing;
    const double row = kHemRow - flare * 0.8;
    return loop({{24.6, 28},
                 {25, 24},
                 {39, 24},
                 {39.4, 28},
                 {40, 36},
                 {45 + flare, 41},
                 {right, row - 2},
                 {right + 0.6, row + 2.2},
                 {40 + swing, row + 3.6},
                 {32 + swing, row + 3.6},
                 {24 + swing, row + 3.6},
                 {left - 0.6, row + 2.2},
                 {left, row - 2},
                 {19 - flare, 41},
                 {24, 36},
                 {24.6, 28}});
}

VectorPath hemLine(double swing, double flare) {
    const double row = kHemRow - flare * 0.8 - 2.4;
    return curve({{32 - kHem - flare + swing - 1, row - 0.8},
                  {24 + swing, row + 3.8},
                  {40 + swing, row + 3.8},
                  {32 + kHem + flare + swing + 1, row - 0.8}});
}

void drawSkirt(Canvas& canvas, double swing, double flare) {
    const VectorPath dress = dressShape(swing, flare);
    canvas.part(dress, kDress, {.bevel = 10, .line = 1.3});
    const Mask inDress = canvas.mask(dress);
    canvas.flat(hemLine(swing, flare), kTrim, {.alpha = 0.85F, .stroke = 1.7, .clip = &inDress});
}

void drawApron(Canvas& canvas, double turn, double swing, double flare) {
    const double x = 32 + turn * 0.9;
    const double low = x + swing;
    const double row = kHemRow - flare * 0.8 - 4.4;
    canvas.part(loop({{x - 6, 35},
                      {x - 3, 33.6},
                      {x + 3, 33.6},
                      {x + 6, 35},
                      {x + 8, 40},
                      {low + 10, 45},
                      {low + 9.6, row - 1.4},
                      {low + 9, row + 2},
                      {low - 9, row + 2},
                      {low - 9.6, row - 1.4},
                      {low - 10, 45},
                      {x - 8, 40},
                      {x - 6, 35}}),
                kApron, {.bevel = 5, .line = 0.9, .shadow = 0.3F});
    canvas.part(loop({{x - 4.4, 26.6},
                      {x - 2, 28},
                      {x + 2, 28},
                      {x + 4.4, 26.6},
                      {x + 5, 30},
                      {x + 5.4, 33},
                      {x + 5, 35.4},
                      {x + 2, 36.4},
                      {x - 2, 36.4},
                      {x - 5, 35.4},
                      {x - 5.4, 33},
                      {x - 5, 30},
                      {x - 4.4, 26.6}}),
                kApron, {.bevel = 3, .line = 0.9, .shadow = 0.25F});
}

VectorPath skullShape(double turn) { return ellipse({32 + turn * 0.3, 16}, 12.8, 11.2); }

void drawBun(Canvas& canvas, Point at) {
    canvas.part(ellipse(at, 5.8, 4.4), kHair, {.bevel = 4.6, .line = 1.2});
    canvas.flat(curve({{at.x - 3, at.y + 0.6}, {at.x - 2.4, at.y - 2.6}, {at.x + 2, at.y - 2.8}, {at.x + 2.6, at.y}}),
                rgb(0xd98a74), {.alpha = 0.7F, .stroke = 1});
}

/// Hair parted in the middle, down to the temples; more of it on the side turned away.
void drawFringe(Canvas& canvas, double turn) {
    const VectorPath skull = skullShape(turn);
    const Mask inSkull = canvas.mask(skull);
    const double part = 32.6 + turn * 1.6;
    const double left = 20.4 + turn * 1.3;
    const double right = 44.2 + turn * 0.7;
    const double temple = 15.6 - turn * 1.1;
    canvas.part(loop({{10, 25 + turn},
                      {left, 25 + turn * 0.4},
                      {left + 0.4, 20},
                      {left - 0.2, 16},
                      {left + 0.6, 11.6},
                      {part - 5, 10},
                      {part, 7},
                      {part + 4, 9},
                      {right - 0.6, 10.6},
                      {right, temple},
                      {right + 0.4, temple + 1.4},
                      {right + 1.6, temple + 2.4},
                      {54, temple + 2},
                      {54, 0},
                      {44, -2},
                      {32, -2},
                      {20, -2},
                      {10, 2},
                      {10, 25 + turn}}),
                kHair, {.bevel = 4, .line = 0.9, .shadow = 0.3F, .clip = &inSkull});
}

void drawEye(Canvas& canvas, Point at, double radius, const LadyFace& face) {
    if (face.mood == Mood::Startled) radius += 0.7;
    const VectorPath ball = ellipse(at, radius * 0.95, radius * 1.1);
    canvas.part(ball, kEnamel, {.bevel = 2, .line = 0.8, .shadow = 0.2F});
    if (face.mood == Mood::Dizzy) return drawSpiral(canvas, at, radius - 0.3, kIris);
    const Mask inEye = canvas.mask(ball);
    const Point pupil = at + face.look * 1.3;
    canvas.flat(ellipse(pupil, 1.7, 2), kIris, {.clip = &inEye});
    canvas.flat(circle(pupil + Point{-0.6, -0.8}, 0.7), rgb(0xffffff));
}

/// A brow of `half` pixels to both sides, its end towards the nose `frown` pixels lower than the other.
void drawBrow(Canvas& canvas, Point at, double half, double frown, double nose) {
    canvas.flat(polyline({{at.x - half * nose, at.y - frown / 2}, {at.x + half * nose, at.y + frown / 2}}), kBrow,
                {.stroke = 1.8});
}

void drawMouth(Canvas& canvas, const LadyFace& face) {
    const Point at{32.6 + face.turn * 1.2, 24};
    switch (face.mood) {
        case Mood::Angry:
            canvas.part(ellipse(at, 3.6, 1.7), kLips, {.bevel = 1.5, .line = 0.7, .shadow = 0.15F});
            canvas.flat(curve({at + Point{-2.8, 0.5}, at + Point{-1, -0.7}, at + Point{1, -0.7}, at + Point{2.8, 0.5}}),
                        rgb(0x6f1236), {.stroke = 0.8});
            break;
        case Mood::Startled:
        case Mood::Dizzy:
            canvas.part(ellipse(at, 2.8, 2.6), kLips, {.bevel = 1.5, .line = 0.7, .shadow = 0.15F});
            canvas.flat(ellipse(at, 1.6, 1.5), rgb(0x4a1028));
            break;
    }
}

void drawFace(Canvas& canvas, const LadyFace& face) {
    const double t = face.turn;
    canvas.part(skullShape(t), kSkin, {.bevel = 9, .line = 1.3});
    for (const Point cheek : {Point{25 + t * 1.1, 21}, Point{40.6 + t * 0.6, 20.8}})
        canvas.flat(ellipse(cheek, 2.6, 1.8), kBlush, {.alpha = 0.4F});
    drawFringe(canvas, t);
    const Point left{28 + t * 1.1, 16};
    const Point right{37.2 + t * 0.95, 15.8};
    drawEye(canvas, right, 3.5, face);
    drawEye(canvas, left, 3.8, face);
    const double lift = face.mood == Mood::Angry ? 0 : 1.8;
    const double frown = face.mood == Mood::Angry ? 2.8 : -1.6;
    drawBrow(canvas, left - Point{0, 4 + lift}, 3.4, frown, 1);
    drawBrow(canvas, right - Point{0, 4 + lift}, 3.1, frown, -1);
    drawMouth(canvas, face);
    canvas.part(ellipse({32.8 + t * 1.4, 19.6}, 2.7, 2.3), kSkin, {.bevel = 2.2, .line = 0.7, .shadow = 0.25F});
}

void drawShoulders(Canvas& canvas, double turn) {
    canvas.part(ellipse({32, 28.6}, 9.4, 4.8), kDress, {.bevel = 4.4, .line = 1.1});
    const double x = 32 + turn * 0.6;
    canvas.part(loop({{x - 6.4, 25.4},
                      {x - 3, 24},
                      {x + 3, 24},
                      {x + 6.4, 25.4},
                      {x + 5, 29.6},
                      {x + 2, 29.4},
                      {x, 27.6},
                      {x - 2, 29.4},
                      {x - 5, 29.6},
                      {x - 6.4, 25.4}}),
                kApron, {.bevel = 2, .line = 0.8, .shadow = 0.25F});
}

/// The bow of the apron's strings.
void drawBow(Canvas& canvas, double swing) {
    const double low = 32 + swing;
    for (const double side : {-1.0, 1.0}) {
        canvas.part(polygon({{32, 36.4}, {32 + side * 3.4, 37}, {low + side * 8.4, 48}, {low + side * 2.6, 48.6}}, 1.2),
                    kApron, {.bevel = 2.4, .line = 0.9});
        canvas.part(ellipse({32 + side * 5.4, 35}, 5.2, 3.4, side * 0.35), kApron, {.bevel = 2.8, .line = 0.9});
    }
    canvas.part(circle({32, 35.8}, 2.3), kApron, {.bevel = 2, .line = 0.8});
}

void drawHeadFromBehind(Canvas& canvas) {
    canvas.part(limb({{{32, 23}, 4.4}, {{32, 26.4}, 4.4}}), kSkin, {.bevel = 4, .line = 1});
    for (const double side : {-1.0, 1.0})
        canvas.part(ellipse({32 + side * 12, 18}, 2.8, 3.4), kSkin, {.bevel = 2, .line = 1});
    canvas.part(ellipse({32, 15.4}, 12, 10.2), kHair, {.bevel = 9, .line = 1.3});
    for (const double x : {-10.0, -5.4, 0.0, 5.4, 10.0}) {
        canvas.flat(curve({{32 + x * 0.3, 11}, {32 + x * 0.8, 14}, {32 + x, 18}, {32 + x * 0.9, 22.6 - 0.02 * x * x}}),
                    rgb(0x6a3048), {.alpha = 0.6F, .stroke = 0.9});
    }
    drawBun(canvas, {32, 8.6});
}

void drawShoe(Canvas& canvas, Point sole, double angle, Side side) {
    const auto foot = canvas.placed(sole, angle);
    canvas.part(loop({{-4.6, -3},
                      {-4.4, -5.6},
                      {-1.6, -6.2},
                      {0.6, -5.4},
                      {2.6, -4.4},
                      {7.4, -4.4},
                      {7.6, -1.4},
                      {7.6, -0.4},
                      {7, 0},
                      {6, 0},
                      {3, 0},
                      {-3, 0},
                      {-4, 0},
                      {-4.6, 0},
                      {-4.6, -1},
                      {-4.6, -3}}),
                side == Side::Near ? kShoe : kFarShoe, {.bevel = 2.8, .line = 1.2});
}

}  // namespace

void drawLadyDress(Canvas& canvas, double turn, double swing, double flare) {
    drawSkirt(canvas, swing, flare);
    drawShoulders(canvas, turn);
    drawApron(canvas, turn, swing, flare);
}

void drawLadyHead(Canvas& canvas, const LadyFace& face) {
    drawBun(canvas, {32 - face.turn * 2.9, 6.8 + 0.5 * std::abs(face.turn)});
    // Seen straight, the bun stands above the head instead of behind it.
    const auto lower = canvas.placed({0, 1.6 - 0.4 * face.turn});
    drawFace(canvas, face);
    if (!face.pinInMouth) return;
    drawRollingPin(canvas, {32.6 + face.turn * 1.2 - 11.4, 24.4}, 0);
}

void drawLadyBack(Canvas& canvas, double swing) {
    drawSkirt(canvas, swing, 0);
    canvas.part(ellipse({32, 28.6}, 9.4, 4.8), kDress, {.bevel = 4.4, .line = 1.1});
    canvas.part(ellipse({32, 27.6}, 6.6, 2.6), kApron, {.bevel = 2, .line = 0.8});
    drawRollingPin(canvas, {24.6, 42}, -0.6);
    drawBow(canvas, swing);
    drawHeadFromBehind(canvas);
}

void drawLadyLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side) {
    const Point ankle = sole + Point{-1.4, -4};
    const Point knee = jointOf(hip, ankle, 6.4, 6.4, -1);
    canvas.part(limb({{hip, 3}, {knee, 2.8}, {ankle, 2.4}}), side == Side::Near ? kStocking : kFarStocking,
                {.bevel = 2.4, .line = 1.1});
    drawShoe(canvas, sole, angle, side);
}

void drawLadyLegFromFront(Canvas& canvas, Point hip, Point sole) {
    canvas.part(limb({{hip, 3}, {sole + Point{0, -4}, 2.5}}), kStocking, {.bevel = 2.4, .line = 1.1});
    canvas.part(rectangle(sole.x - 4, sole.y - 5.8, 8, 5.8, 2.8), kShoe, {.bevel = 2.8, .line = 1.2});
}

void drawLadyArm(Canvas& canvas, Point shoulder, Point hand, double bend, Side side, double bone) {
    const bool nearSide = side == Side::Near;
    if (bone <= 0) bone = std::max(6.6, length(hand - shoulder) / 2 * 1.05);
    const Point elbow = jointOf(shoulder, hand, bone, bone, bend);
    const Point cuff = mix(elbow, hand, 0.3);
    canvas.part(limb({{elbow, 2.6}, {hand, 2.3}}), nearSide ? kSkin : kFarSkin, {.bevel = 2.4});
    canvas.part(circle(hand, 3.6), nearSide ? kSkin : kFarSkin, {.bevel = 3.4});
    canvas.part(limb({{shoulder, 4.6}, {elbow, 3.6}, {cuff, 3.4}}), nearSide ? kDress : kFarDress,
                {.bevel = 3.6, .line = 1.1, .shadow = 0.3F});
}

void drawRollingPin(Canvas& canvas, Point grip, double angle) {
    const auto held = canvas.placed(grip, angle);
    canvas.part(limb({{{-3, 0}, 1.7}, {{5, 0}, 1.5}}), kWood, {.bevel = 1.5, .line = 1});
    canvas.part(limb({{{18, 0}, 1.5}, {{20.6, 0}, 1.7}}), kWood, {.bevel = 1.5, .line = 1});
    canvas.part(rectangle(4.6, -3.9, 13.6, 7.8, 2.6), kWood, {.bevel = 3.6, .line = 1.2});
}

}  // namespace grub
