#include "figure.h"
#include "lady.h"
#include "lady_parts.h"
#include "props.h"

namespace grub {

namespace {

/// The middle of her hips, about which she leans.
constexpr Point kHips{32, 50};

/// What an arm lies behind, if anything.
enum class ArmLayer { BehindBody, BehindHead, OverAll };

/// Where the joints of the body are.
struct Joints {
    Point nearShoulder;
    Point farShoulder;
    Point nearHip;
    Point farHip;
};

constexpr Joints jointsOf(FigureView view) {
    switch (view) {
        case FigureView::Side: return {{27, 30.6}, {38, 30}, {33, 47}, {31, 47}};
        case FigureView::Front: return {{23.6, 30}, {40.4, 30}, {28, 48}, {36, 48}};
        case FigureView::Back: return {{24, 30}, {40, 30}, {27, 48}, {37, 48}};
    }
    return {};
}

}  // namespace

void drawLady(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style) {
    constexpr Point kMiddle{32, 32};
    const auto all = canvas.group(figureGroup(style, kEnemyOutline));
    const auto rolled = canvas.placed(kMiddle, pose.roll, pose.size, pose.size);
    const auto cell = canvas.placed(kMiddle * -1);

    const Affine body = bodyPlace(pose, kHips);
    const Joints joints = jointsOf(pose.view);
    const Point neck = body.apply(kLadyNeck);
    const auto layerOf = [&](const ArmPose& arm, Side side) {
        const bool farFromSide = pose.view == FigureView::Side && side == Side::Far && !arm.acrossBody;
        if (farFromSide || pose.view == FigureView::Back) return ArmLayer::BehindBody;
        // No sleeve hides the face.
        const bool below = pose.view == FigureView::Side && side == Side::Near && arm.hand.y >= neck.y;
        return below ? ArmLayer::OverAll : ArmLayer::BehindHead;
    };
    const auto drawArms = [&](ArmLayer layer) {
        if (layerOf(pose.farArm, Side::Far) == layer) {
            drawLadyArm(canvas, pose.view, body.apply(joints.farShoulder + pose.farArm.shoulder), pose.farArm,
                        Side::Far);
        }
        if (layerOf(pose.nearArm, Side::Near) == layer) {
            drawLadyArm(canvas, pose.view, body.apply(joints.nearShoulder + pose.nearArm.shoulder), pose.nearArm,
                        Side::Near);
        }
    };

    const bool emptyHands = pose.nearArm.held.prop == Prop::None && pose.farArm.held.prop == Prop::None;
    const LadySkirt skirt{.swing = pose.tail.x, .flare = -pose.tail.y, .pinInBow = emptyHands};

    drawArms(ArmLayer::BehindBody);
    drawLadyLeg(canvas, pose.view, joints.farHip + pose.hips + pose.farLeg.hip, pose.farLeg, Side::Far);
    drawLadyLeg(canvas, pose.view, joints.nearHip + pose.hips + pose.nearLeg.hip, pose.nearLeg, Side::Near);
    {
        const auto leant = canvas.placed(kHips + pose.hips, pose.lean, 1 + pose.squash, 1 - pose.squash);
        const auto dress = canvas.placed(kHips * -1);
        drawLadyDress(canvas, pose.view, skirt);
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
    drawLadyHeadParts(canvas, FigureView::Side, head, expression, Prop::None);
}

}  // namespace grub
