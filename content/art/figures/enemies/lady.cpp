#include "lady.h"

#include <algorithm>
#include <cmath>

#include "figure.h"
#include "hand.h"
#include "lady_parts.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kDress = glossy(material(0xc4489c, 0x6c2a86, 0xf79fd2), 0.2F, 0.5F);
constexpr Material kFarDress = glossy(material(0x8f3379, 0x4f1f66, 0xc05fa8), 0.1F, 0.2F);
constexpr Material kFarSkin = glossy(material(0xcf917e, 0x7d4560, 0xe8b49c), 0.1F);
constexpr Material kFarCuff = glossy(material(0xbfb2c6, 0x6f6592, 0xd8cfe0), 0.1F);
constexpr Material kStocking = glossy(material(0xd9c3cf, 0x7b6790, 0xf6e9f0), 0.1F);
constexpr Material kFarStocking = glossy(material(0xa08aa2, 0x58466e, 0xc0aabf), 0.05F);
constexpr Material kShoe = glossy(material(0x6a5488, 0x2c2044, 0xb09ccb), 0.8F);
constexpr Material kFarShoe = glossy(material(0x483a62, 0x221834, 0x6f5c8c), 0.3F);

constexpr Rgb kTrim = rgb(0xf7b9da);
constexpr Rgb kStitch = rgb(0xb9a6c6);

/// The middle of her hips, about which she leans.
constexpr Point kHips{32, 50};

/// Half the hem's width, and its row.
constexpr double kHem = 17.4;
constexpr double kHemRow = 51;

/// Radius of a fist.
constexpr double kFist = 3.6;

// ---- dress

/// How the skirt hangs: pixels to the right, and pixels that the air in it widens and lifts it.
struct Skirt {
    double swing;
    double flare;

    double row() const { return kHemRow - flare * 0.8; }
    double left() const { return 32 - kHem - flare + swing; }
    double right() const { return 32 + kHem + flare + swing; }
};

void drawSkirt(Canvas& canvas, const Skirt& skirt) {
    const double swing = skirt.swing;
    const double left = skirt.left();
    const double right = skirt.right();
    const double row = skirt.row();
    const VectorPath dress = loop({{24.6, 28},
                                   {25, 24},
                                   {39, 24},
                                   {39.4, 28},
                                   {40, 36},
                                   {45 + skirt.flare, 41},
                                   {right, row - 2},
                                   {right + 0.6, row + 2.2},
                                   {40 + swing, row + 3.6},
                                   {32 + swing, row + 3.6},
                                   {24 + swing, row + 3.6},
                                   {left - 0.6, row + 2.2},
                                   {left, row - 2},
                                   {19 - skirt.flare, 41},
                                   {24, 36},
                                   {24.6, 28}});
    canvas.part(dress, kDress, {.bevel = 10, .line = 1.3});
    const Mask inDress = canvas.mask(dress);
    canvas.flat(
        curve({{left - 1, row - 3.2}, {24 + swing, row + 1.4}, {40 + swing, row + 1.4}, {right + 1, row - 3.2}}), kTrim,
        {.alpha = 0.85F, .stroke = 1.7, .clip = &inDress});
    for (const double x : {-11.6, 11.6}) {
        canvas.flat(curve({{32 + x * 0.75, 40},
                           {32 + x * 0.95, 43},
                           {32 + x + swing * 0.6, row - 5},
                           {32 + x * 1.12 + swing, row - 1.6}}),
                    kDress.shadow, {.alpha = 0.32F, .stroke = 1.2, .clip = &inDress});
    }
}

void drawApron(Canvas& canvas, double turn, const Skirt& skirt) {
    const double x = 32 + turn * 0.9;
    const double low = x + skirt.swing;
    const double row = skirt.row() - 4.4;
    const VectorPath lap = loop({{x - 6, 35},
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
                                 {x - 6, 35}});
    canvas.part(lap, kLadyApron, {.bevel = 5, .line = 0.9, .shadow = 0.3F});
    const Mask inLap = canvas.mask(lap);
    canvas.flat(curve({{low - 10, row - 3}, {low - 8, row - 0.1}, {low + 8, row - 0.1}, {low + 10, row - 3}}), kStitch,
                {.alpha = 0.8F, .stroke = 0.7, .clip = &inLap});
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
                kLadyApron, {.bevel = 3, .line = 0.9, .shadow = 0.25F});
    const double pocket = (x + low) / 2;
    canvas.part(polygon({{pocket - 3.6, 40.4}, {pocket + 3.6, 40.4}, {pocket + 3.4, 44.6}, {pocket - 3.4, 44.6}}, 1.4),
                kLadyApron, {.bevel = 1, .line = 0.4, .shadow = 0.15F});
}

/// Shoulders with the collar.
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
                kLadyApron, {.bevel = 2, .line = 0.8, .shadow = 0.25F});
}

/// The bow of the apron's strings.
void drawBow(Canvas& canvas, double swing) {
    const double low = 32 + swing;
    for (const double side : {-1.0, 1.0}) {
        canvas.part(polygon({{32, 36.4}, {32 + side * 3.4, 37}, {low + side * 8.4, 48}, {low + side * 2.6, 48.6}}, 1.2),
                    kLadyApron, {.bevel = 2.4, .line = 0.9});
        canvas.part(ellipse({32 + side * 5.4, 35}, 5.2, 3.4, side * 0.35), kLadyApron, {.bevel = 2.8, .line = 0.9});
    }
    canvas.part(circle({32, 35.8}, 2.3), kLadyApron, {.bevel = 2, .line = 0.8});
}

void drawDress(Canvas& canvas, View view, const Skirt& skirt) {
    drawSkirt(canvas, skirt);
    if (view != View::Back) {
        const double turn = view == View::Side ? 4 : 0;
        drawShoulders(canvas, turn);
        return drawApron(canvas, turn, skirt);
    }
    canvas.part(ellipse({32, 28.6}, 9.4, 4.8), kDress, {.bevel = 4.4, .line = 1.1});
    canvas.part(ellipse({32, 27.6}, 6.6, 2.6), kLadyApron, {.bevel = 2, .line = 0.8});
    // She needs both hands when she turns her back: the pin is stuck in the bow.
    drawProp(canvas, {24.6, 42}, {Prop::RollingPin, -0.6});
    drawBow(canvas, skirt.swing);
}

// ---- limbs

void drawShoeFromSide(Canvas& canvas, const LegPose& leg, const Material& leather) {
    const auto foot = canvas.placed(leg.sole, leg.angle);
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
                leather, {.bevel = 2.8, .line = 1.2});
    canvas.flat(curve({{-4.4, -0.9}, {-1, -0.9}, {3, -0.8}, {7.2, -0.9}}), leather.ink, {.alpha = 0.6F, .stroke = 0.6});
}

void drawShoeFromFront(Canvas& canvas, const LegPose& leg, const Material& leather) {
    const auto foot = canvas.placed(leg.sole, leg.angle);
    canvas.part(rectangle(-4, -5.8, 8, 5.8, 2.8), leather, {.bevel = 2.8, .line = 1.2});
    canvas.flat(curve({{-3.6, -1}, {-1.4, -0.5}, {1.4, -0.5}, {3.6, -1}}), leather.ink, {.alpha = 0.6F, .stroke = 0.6});
}

void drawLeg(Canvas& canvas, View view, Point hip, const LegPose& leg, Side side) {
    const bool dark = view == View::Side && side == Side::Far;
    const Material& stocking = dark ? kFarStocking : kStocking;
    const Material& leather = dark ? kFarShoe : kShoe;
    if (view != View::Side) {
        canvas.part(limb({{hip, 3}, {leg.sole + Point{0, -4}, 2.5}}), stocking, {.bevel = 2.4, .line = 1.1});
        return drawShoeFromFront(canvas, leg, leather);
    }
    const Point ankle = leg.sole + Point{-1.4, -4};
    const Point knee = jointOf(hip, ankle, 6.4, 6.4, leg.bend);
    canvas.part(limb({{hip, 3}, {knee, 2.8}, {ankle, 2.4}}), stocking, {.bevel = 2.4, .line = 1.1});
    drawShoeFromSide(canvas, leg, leather);
}

/// A sleeved arm with a cuff, its hand, and what it holds: a fist closes around it, on an open hand it lies.
void drawArm(Canvas& canvas, View view, Point shoulder, const ArmPose& arm, Side side) {
    const bool dark = view == View::Side && side == Side::Far && !arm.acrossBody;
    const Material& skin = dark ? kFarSkin : kLadySkin;
    const double bone = arm.bone > 0 ? arm.bone : std::max(6.6, length(arm.hand - shoulder) / 2 * 1.05);
    const Point elbow = jointOf(shoulder, arm.hand, bone, bone, arm.bend);
    const Point wrist = mix(elbow, arm.hand, 0.3);
    const Point forearm = arm.hand - elbow;
    const double along = std::atan2(forearm.y, forearm.x);
    canvas.part(limb({{elbow, 2.6}, {arm.hand, 2.3}}), skin, {.bevel = 2.4});
    canvas.part(limb({{shoulder, 4.6}, {elbow, 3.6}, {wrist, 3.2}}), dark ? kFarDress : kDress,
                {.bevel = 3.6, .line = 1.1, .shadow = 0.3F});
    {
        const auto cuff = canvas.placed(wrist, along);
        canvas.part(rectangle(1, -3.7, 3, 7.4, 1.4), dark ? kFarCuff : kLadyApron,
                    {.bevel = 1.8, .line = 0.8, .shadow = 0.25F});
    }
    const auto drawOwnHand = [&] {
        drawHand(canvas, arm.hand, along, thumbOf(view, side == Side::Near), arm.grip, kFist, skin);
    };
    if (arm.grip != Grip::Open) {
        drawProp(canvas, arm.hand, arm.held);
        return drawOwnHand();
    }
    drawOwnHand();
    drawProp(canvas, arm.hand + Point{0, -0.7 * kFist}, arm.held);
}

// ---- order of parts

/// What an arm lies behind, if anything.
enum class ArmLayer { BehindBody, BehindHead, OverAll };

/// Where the joints of the body are.
struct Joints {
    Point nearShoulder;
    Point farShoulder;
    Point nearHip;
    Point farHip;
};

constexpr Joints jointsOf(View view) {
    switch (view) {
        case View::Side: return {{27, 30.6}, {38, 30}, {33, 47}, {31, 47}};
        case View::Front: return {{23.6, 30}, {40.4, 30}, {28, 48}, {36, 48}};
        case View::Back: return {{24, 30}, {40, 30}, {27, 48}, {37, 48}};
    }
    return {};
}

}  // namespace

void drawLady(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style) {
    constexpr Point kMiddle{32, 32};
    const auto all = canvas.group(figureGroup(style, kEnemyOutline));
    const auto rolled = canvas.placed(kMiddle, pose.roll, pose.size, pose.size);
    const auto cell = canvas.placed(kMiddle * -1);

    const Affine body = Affine{}
                            .translated(kHips + pose.hips)
                            .rotated(pose.lean)
                            .scaled(1 + pose.squash, 1 - pose.squash)
                            .translated(kHips * -1);
    const Joints joints = jointsOf(pose.view);
    const Point neck = body.apply(kLadyNeck);
    const auto layerOf = [&](const ArmPose& arm, Side side) {
        const bool farFromSide = pose.view == View::Side && side == Side::Far && !arm.acrossBody;
        if (farFromSide || pose.view == View::Back) return ArmLayer::BehindBody;
        // No sleeve hides the face.
        return pose.view == View::Front || arm.hand.y < neck.y ? ArmLayer::BehindHead : ArmLayer::OverAll;
    };
    const auto drawArms = [&](ArmLayer layer) {
        if (layerOf(pose.farArm, Side::Far) == layer) {
            drawArm(canvas, pose.view, body.apply(joints.farShoulder + pose.farArm.shoulder), pose.farArm, Side::Far);
        }
        if (layerOf(pose.nearArm, Side::Near) == layer) {
            drawArm(canvas, pose.view, body.apply(joints.nearShoulder + pose.nearArm.shoulder), pose.nearArm,
                    Side::Near);
        }
    };

    drawArms(ArmLayer::BehindBody);
    drawLeg(canvas, pose.view, joints.farHip + pose.hips + pose.farLeg.hip, pose.farLeg, Side::Far);
    drawLeg(canvas, pose.view, joints.nearHip + pose.hips + pose.nearLeg.hip, pose.nearLeg, Side::Near);
    {
        const auto leant = canvas.placed(kHips + pose.hips, pose.lean, 1 + pose.squash, 1 - pose.squash);
        const auto dress = canvas.placed(kHips * -1);
        drawDress(canvas, pose.view, {pose.tail.x, -pose.tail.y});
    }
    drawArms(ArmLayer::BehindHead);
    {
        const auto onNeck = canvas.placed(neck, pose.lean);
        const auto head = canvas.placed(kLadyNeck * -1);
        drawLadyHeadParts(canvas, pose.view, pose.head, expression, pose.inMouth);
        drawProp(canvas, kLadyNeck + Point{0.6 * pose.head.turn, 1.6}, {pose.atNeck, 0});
    }
    drawArms(ArmLayer::OverAll);
}

void drawLadyHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style) {
    const auto all = canvas.group(figureGroup(style, kEnemyOutline));
    drawLadyHeadParts(canvas, View::Side, head, expression, Prop::None);
}

}  // namespace grub
