#include <algorithm>

#include "figure.h"
#include "props.h"
#include "rat.h"
#include "rat_parts.h"
#include "shapes.h"

namespace grub {

namespace {

/// Width of the line round the whole rat: more than the others', since its parts are small.
constexpr double kOutline = 0.8;

/// Middles of head, shoulders and hips while it stands, for one view. The body turns about `hips`.
struct Joints {
    Point hips;
    Point head;
    Point nearShoulder;
    Point farShoulder;
    Point nearHip;
    Point farHip;
    Point tail;
};
constexpr Joints kSide{{18, 53}, {42, 49.5}, {38.5, 54}, {42, 54}, {17, 54}, {20, 54}, {12, 53}};
constexpr Joints kFront{{32, 54}, {32, 41}, {21, 48}, {43, 48}, {21, 57}, {43, 57}, {20, 56}};

/// Tip of the tail at rest, from its root.
constexpr Point kTail{-9, -13};

/// From the middle of a standing forepaw to its sole.
constexpr double kPawHeight = 1.6;

/// Radii of the upper ends of legs.
constexpr double kForeleg = 3.4;
constexpr double kThigh = 4.6;

/// Turned by less, a head looks at the viewer.
constexpr double kProfileTurn = 1.5;

/// From the front the rat sits; it has no view from behind.
const Joints& jointsOf(FigureView view) { return view == FigureView::Side ? kSide : kFront; }

/// A raised chin turns a head that is seen from the side, by radians for each pixel.
constexpr double kChinTurn = 0.07;

double headTilt(const HeadPose& head, const Expression& expression) {
    return head.turn >= kProfileTurn ? head.tilt - kChinTurn * expression.chin : head.tilt;
}

/// The joints as the pose has moved them.
Joints posed(const Pose& pose) {
    const Joints& rest = jointsOf(pose.view);
    const Affine body = bodyPlace(pose, jointsOf(pose.view).hips);
    return {rest.hips,
            body.apply(rest.head) + pose.head.shift,
            body.apply(rest.nearShoulder + pose.nearArm.shoulder),
            body.apply(rest.farShoulder + pose.farArm.shoulder),
            body.apply(rest.nearHip + pose.nearLeg.hip),
            body.apply(rest.farHip + pose.farLeg.hip),
            body.apply(rest.tail)};
}

/// Appends a path as the placement shows it.
void append(VectorPath& to, const VectorPath& path, const Affine& place) {
    for (const VectorPath::Segment& segment : path.segments()) {
        const auto& [a, b, c] = segment.points;
        switch (segment.verb) {
            case VectorPath::Verb::Move: to.moveTo(place.apply(a)); break;
            case VectorPath::Verb::Line: to.lineTo(place.apply(a)); break;
            case VectorPath::Verb::Curve: to.curveTo(place.apply(a), place.apply(b), place.apply(c)); break;
            case VectorPath::Verb::Close: to.close(); break;
        }
    }
}

void drawForeleg(Canvas& canvas, Point shoulder, const ArmPose& leg, const Material& fur, const Material& pink) {
    drawProp(canvas, leg.hand, leg.held);
    if (leg.grip != Grip::Fist) return drawRatArm(canvas, shoulder, leg, fur, pink);
    drawRatLeg(canvas, shoulder, kForeleg, {.sole = leg.hand + Point{0, kPawHeight}, .angle = leg.paw}, fur, pink);
}

/// Head and trunk from the side are one shape, a pebble.
void drawPebble(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    const bool profile = pose.head.turn >= kProfileTurn;
    if (profile) {
        const auto head = canvas.placed(at.head, headTilt(pose.head, expression));
        drawRatFarEar(canvas, expression);
    }
    VectorPath pebble;
    append(pebble, ratTrunk(), bodyPlace(pose, jointsOf(pose.view).hips));
    if (profile) append(pebble, ratProfile(), Affine{}.translated(at.head).rotated(headTilt(pose.head, expression)));
    canvas.part(pebble, kRatFur, {.bevel = 9, .line = 1.5});
    const auto turned = canvas.placed(kSide.hips + pose.hips, pose.lean, 1 + pose.squash, 1 - pose.squash);
    const auto body = canvas.placed(kSide.hips * -1);
    drawRatTufts(canvas);
}

/// All of the head, or what lies on it where the body has drawn its shape.
void drawHead(Canvas& canvas, const Pose& pose, const Expression& expression, Point at) {
    const bool profile = pose.view == FigureView::Side && pose.head.turn >= kProfileTurn;
    const auto head = canvas.placed(at, headTilt(pose.head, expression));
    drawProp(canvas, {0, 10}, {pose.atNeck});
    if (profile) {
        drawRatProfile(canvas, expression, pose.inMouth);
    } else {
        drawRatFace(canvas, std::min(pose.head.turn, kProfileTurn), expression, pose.inMouth);
    }
}

void drawFromSide(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    const Point tip = at.tail + kTail + pose.tail;
    // A tail whose tip is before the hips lies round the body.
    const bool around = tip.x > at.nearHip.x;
    if (!around) drawRatTail(canvas, at.tail, tip);
    drawRatLeg(canvas, at.farHip, kThigh, pose.farLeg, kRatFarFur, kRatFarPink);
    drawForeleg(canvas, at.farShoulder, pose.farArm, kRatFarFur, kRatFarPink);
    drawPebble(canvas, pose, expression, at);
    drawProp(canvas, tip, {pose.onTail});
    drawRatLeg(canvas, at.nearHip, kThigh, pose.nearLeg, kRatFur, kRatPink);
    const bool handBeforeHead = pose.nearArm.grip != Grip::Fist;
    if (!handBeforeHead) drawForeleg(canvas, at.nearShoulder, pose.nearArm, kRatFur, kRatPink);
    drawHead(canvas, pose, expression, at.head);
    if (handBeforeHead) drawForeleg(canvas, at.nearShoulder, pose.nearArm, kRatFur, kRatPink);
    if (around) drawRatTailAround(canvas, at.tail, tip);
}

void drawFromFront(Canvas& canvas, const Pose& pose, const Expression& expression, const Joints& at) {
    const Point tip = at.tail + Point{-2, 1} + kTail + pose.tail;
    drawRatTail(canvas, at.tail, tip);
    {
        const auto turned = canvas.placed(kFront.hips + pose.hips, pose.lean, 1 + pose.squash, 1 - pose.squash);
        const auto body = canvas.placed(kFront.hips * -1);
        drawRatChest(canvas);
    }
    drawProp(canvas, tip, {pose.onTail});
    drawRatFoot(canvas, pose.nearLeg.sole);
    drawRatFoot(canvas, pose.farLeg.sole);
    drawForeleg(canvas, at.nearShoulder, pose.nearArm, kRatFur, kRatPink);
    drawForeleg(canvas, at.farShoulder, pose.farArm, kRatFur, kRatPink);
    drawHead(canvas, pose, expression, at.head);
}

}  // namespace

void drawRat(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style) {
    constexpr Point kMiddle{32, 32};
    const auto whole = canvas.group(figureGroup(style, kOutline));
    const auto turned = canvas.placed(kMiddle, pose.roll, pose.size, pose.size);
    const auto cell = canvas.placed(kMiddle * -1);
    const Joints at = posed(pose);
    if (pose.view == FigureView::Side) return drawFromSide(canvas, pose, expression, at);
    drawFromFront(canvas, pose, expression, at);
}

void drawRatHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style) {
    const auto whole = canvas.group(figureGroup(style, kOutline));
    const auto placed = canvas.placed(kSide.head + head.shift, headTilt(head, expression));
    if (head.turn < kProfileTurn) return drawRatFace(canvas, head.turn, expression, Prop::None);
    drawRatFarEar(canvas, expression);
    canvas.part(ratProfile(), kRatFur, {.bevel = 9, .line = 1.5});
    drawRatProfile(canvas, expression, Prop::None);
}

}  // namespace grub
