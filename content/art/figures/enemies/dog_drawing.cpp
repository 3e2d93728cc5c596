#include "dog.h"
#include "dog_parts.h"
#include "figure.h"
#include "props.h"

namespace grub {

namespace {

/// Where the parts meet while he stands, for one view. The hips are what the body turns about.
struct Joints {
    Point hips;
    Point neck;
    Point nearShoulder;
    Point farShoulder;
    Point nearHip;
    Point farHip;
};
constexpr Joints kSide{{20, 44}, {44.6, 30.5}, {42, 43}, {44, 42.4}, {20, 43}, {23, 43}};
constexpr Joints kFront{{32, 46}, {32, 30}, {18.6, 38.6}, {45.4, 38.6}, {25, 46}, {39, 46}};
constexpr Joints kBack{{32, 46}, {32, 22}, {20, 33}, {44, 33}, {25.6, 47.6}, {38.4, 47.6}};

/// A body that leans back further than this, in radians, shows its breast below the collar.
constexpr double kRearing = -0.4;

/// Tip of the tail at rest, seen from the side.
constexpr Point kTailTip{9.2, 28.8};

/// Hips lowered by more than this are those of a sitting dog.
constexpr double kSitting = 2;

const Joints& jointsOf(FigureView view) {
    switch (view) {
        case FigureView::Side: return kSide;
        case FigureView::Front: return kFront;
        case FigureView::Back: return kBack;
    }
    return kSide;
}

/// The joints as the pose has moved them.
Joints posed(const Pose& pose) {
    const Joints& rest = jointsOf(pose.view);
    const Affine body = bodyPlace(pose, rest.hips);
    return {rest.hips,
            body.apply(rest.neck) + pose.head.shift,
            body.apply(rest.nearShoulder + pose.nearArm.shoulder),
            body.apply(rest.farShoulder + pose.farArm.shoulder),
            body.apply(rest.nearHip + pose.nearLeg.hip),
            body.apply(rest.farHip + pose.farLeg.hip)};
}

/// The tail's swing in the coordinates of the body, which leans.
Point tailInBody(const Pose& pose) { return Affine{}.rotated(-pose.lean).apply(pose.tail); }

void drawTrunk(Canvas& canvas, const Pose& pose) {
    switch (pose.view) {
        case FigureView::Side: return drawDogSide(canvas, tailInBody(pose));
        case FigureView::Front: return drawDogChest(canvas);
        case FigureView::Back: return drawDogBack(canvas);
    }
}

void drawBody(Canvas& canvas, const Pose& pose) {
    const Point hips = jointsOf(pose.view).hips;
    const auto turned =
        canvas.placed(hips + pose.hips, pose.lean, 1 + pose.squash, (pose.bellyUp ? -1 : 1) * (1 - pose.squash));
    const auto fromHips = canvas.placed(hips * -1);
    drawTrunk(canvas, pose);
    if (pose.onTail != Prop::None) drawProp(canvas, kTailTip + tailInBody(pose), {pose.onTail, -pose.lean});
}

/// A raised chin turns a head that is seen from the side, by radians for each pixel.
constexpr double kChinTurn = 0.06;

double headTilt(const HeadPose& head, const Expression& expression) {
    return head.turn > 1 ? head.tilt - kChinTurn * expression.chin : head.tilt;
}

/// Collar, what is tied round it, head, and what the teeth hold.
void drawHead(Canvas& canvas, const HeadPose& head, Expression expression, Prop atNeck, Prop inMouth) {
    if (head.mouthOpen) expression.mouth = Mouth::Open;
    drawDogCollar(canvas, head.turn);
    drawProp(canvas, {-head.turn * 0.4, 11}, {atNeck});
    drawDogFace(canvas, head.turn, expression);
    drawProp(canvas, {head.turn * 1.15, 9 - expression.chin}, {inMouth});
}

void drawForeleg(Canvas& canvas, Point shoulder, const ArmPose& leg, PawView view, const Material& fur) {
    drawDogForeleg(canvas, shoulder, leg, view, fur);
    drawProp(canvas, leg.hand, leg.held);
}

void drawFromSide(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    const PawView paws = pose.bellyUp ? PawView::Round : PawView::Side;
    drawDogHindLeg(canvas, at.farHip, pose.farLeg, paws, kDogFarFur);
    drawForeleg(canvas, at.farShoulder, pose.farArm, paws, kDogFarFur);
    drawBody(canvas, pose);
    if (pose.lean < kRearing) drawDogBreast(canvas, at.neck);
    drawDogHindLeg(canvas, at.nearHip, pose.nearLeg, paws, kDogFur);
    drawForeleg(canvas, at.nearShoulder, pose.nearArm, paws, kDogFur);
    const auto head = canvas.placed(at.neck, headTilt(pose.head, expression));
    drawHead(canvas, pose.head, expression, pose.atNeck, pose.inMouth);
}

void drawFromFront(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    const auto hindLegs = [&](const Material& fur) {
        drawDogHindLeg(canvas, at.nearHip, pose.nearLeg, PawView::Round, fur);
        drawDogHindLeg(canvas, at.farHip, pose.farLeg, PawView::Round, fur);
    };
    const bool sits = pose.hips.y > kSitting;
    if (!sits) hindLegs(kDogFarFur);
    drawBody(canvas, pose);
    if (sits) hindLegs(kDogFur);
    drawForeleg(canvas, at.nearShoulder, pose.nearArm, PawView::Round, kDogFur);
    drawForeleg(canvas, at.farShoulder, pose.farArm, PawView::Round, kDogFur);
    const auto head = canvas.placed(at.neck, headTilt(pose.head, expression));
    drawHead(canvas, pose.head, expression, pose.atNeck, pose.inMouth);
}

void drawFromBehind(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    drawForeleg(canvas, at.nearShoulder, pose.nearArm, PawView::Round, kDogFur);
    drawForeleg(canvas, at.farShoulder, pose.farArm, PawView::Round, kDogFur);
    drawDogHaunch(canvas, at.nearHip, pose.nearLeg);
    drawDogHaunch(canvas, at.farHip, pose.farLeg);
    drawBody(canvas, pose);
    drawDogTailBehind(canvas, pose.tail + pose.hips);
    const auto head = canvas.placed(at.neck, pose.head.tilt);
    drawDogNape(canvas, expression);
}

}  // namespace

void drawDog(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style) {
    constexpr Point kMiddle{32, 32};
    const auto whole = canvas.group(figureGroup(style, kEnemyOutline));
    const auto turned = canvas.placed(kMiddle, pose.roll, pose.size, pose.size);
    const auto cell = canvas.placed(kMiddle * -1);
    const Joints at = posed(pose);
    switch (pose.view) {
        case FigureView::Side: return drawFromSide(canvas, pose, expression, at);
        case FigureView::Front: return drawFromFront(canvas, pose, expression, at);
        case FigureView::Back: return drawFromBehind(canvas, pose, expression, at);
    }
}

void drawDogHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style) {
    const auto whole = canvas.group(figureGroup(style, kEnemyOutline));
    const auto placed = canvas.placed(kSide.neck + head.shift, headTilt(head, expression));
    drawHead(canvas, head, expression, Prop::None, Prop::None);
}

}  // namespace grub
