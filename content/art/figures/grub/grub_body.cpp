#include "grub.h"

#include <algorithm>

#include "grub_parts.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kShirt = glossy(material(0x22a79b, 0x0d5a72, 0x7be3c4), 0.15F);
constexpr Rgb kStripe = rgb(0xfff1d6);

/// Width of the line round the whole figure, added to the lines of its parts.
constexpr double kOutline = 0.4;

constexpr Point kMiddle{32, 32};
/// The body leans and squashes about it.
constexpr Point kHips{32, 50};
/// A head is squashed with its body by this share at most.
constexpr double kHeadSquash = 0.1;
/// A hand above this row, the body being in its place, reaches up behind the head.
constexpr double kRaised = 26;

/// Where arms and legs begin while the body is upright.
struct Joints {
    Point nearShoulder;
    Point farShoulder;
    Point nearHip;
    Point farHip;
};

constexpr Joints jointsOf(FigureView view) {
    if (view == FigureView::Side) return {{24, 39}, {42, 38.6}, {33, 46.5}, {31, 46.5}};
    return {{21, 37.5}, {43, 37.5}, {27, 46}, {37, 46}};
}

/// The lower part of the pear; the head covers its upper end.
VectorPath torsoShape() {
    return loop({{32, 28},
                 {38, 28},
                 {43.4, 28.4},
                 {44.8, 31.2},
                 {45.9, 33.4},
                 {47.4, 36},
                 {47.4, 39.6},
                 {47.4, 46.6},
                 {40, 50},
                 {32, 50},
                 {24, 50},
                 {16.6, 46.6},
                 {16.6, 39.6},
                 {16.6, 36},
                 {18.1, 33.4},
                 {19.2, 31.2},
                 {20.6, 28.4},
                 {26, 28},
                 {32, 28}});
}

/// A stripe across the belly that follows its round; from `y` at the sides, `thickness` pixels high.
VectorPath stripe(double y, double thickness) {
    const double low = y + thickness;
    return loop({{12, y - 1.2},
                 {22, y + 3},
                 {42, y + 3},
                 {52, y - 1.2},
                 {52, y},
                 {52, low - 1},
                 {52, low - 1.2},
                 {42, low + 3},
                 {22, low + 3},
                 {12, low - 1.2},
                 {12, low - 1},
                 {12, y},
                 {12, y - 1.2}});
}

/// The light comes from above, so that only an upright body is darker towards its legs.
void drawTorso(Canvas& canvas, bool upright) {
    const VectorPath torso = torsoShape();
    canvas.part(torso, kShirt, {.bevel = 12, .line = 1.2});
    const Mask inTorso = canvas.mask(torso);
    for (const double y : {38.0, 43.4}) canvas.flat(stripe(y, 2.5), kStripe, {.alpha = 0.9F, .clip = &inTorso});
    if (upright) canvas.shadeRows(41, 51, 1, 0.62F, &inTorso);
}

/// What all of a pose's parts need while they are drawn.
struct Drawing {
    Canvas& canvas;
    const Pose& pose;
    const Expression& expression;
    Joints joints;
    /// Of the body: what moves with it.
    Affine body;

    Point hung(Point joint, Point shift) const { return body.apply(joint + shift); }

    bool behindHead(const ArmPose& arm) const { return !arm.acrossHead && arm.hand.y < kRaised + pose.hips.y; }
    bool beyondBody() const {
        return pose.view == FigureView::Side && !pose.farArm.acrossBody && !behindHead(pose.farArm);
    }

    void nearArm() const {
        drawGrubArm(canvas, pose.view, hung(joints.nearShoulder, pose.nearArm.shoulder), pose.nearArm, Side::Near);
    }
    void farArm() const {
        drawGrubArm(canvas, pose.view, hung(joints.farShoulder, pose.farArm.shoulder), pose.farArm, Side::Far);
    }
    void legs() const {
        drawGrubLeg(canvas, pose.view, hung(joints.farHip, pose.farLeg.hip), pose.farLeg, Side::Far);
        drawGrubLeg(canvas, pose.view, hung(joints.nearHip, pose.nearLeg.hip), pose.nearLeg, Side::Near);
    }
    void torso() const {
        const auto inBody = canvas.placed({body.x0, body.y0}, pose.lean, 1 + pose.squash, 1 - pose.squash);
        drawTorso(canvas, pose.roll == 0);
    }
    void head() const {
        const double squash = std::clamp(pose.squash, -kHeadSquash, kHeadSquash);
        const auto atNeck = canvas.placed(body.apply(kGrubNeck), pose.lean, 1 + squash, 1 - squash);
        const auto onBody = canvas.placed(kGrubNeck * -1);
        drawGrubHeadParts(canvas, pose.view, pose.head, expression);
        if (expression.eyes == Eyes::Spiral) drawGrubStars(canvas, pose.head, expression.stars);
    }
};

/// From the back to the front. Arms that reach up pass between body and head.
void drawParts(const Drawing& grub) {
    const Pose& pose = grub.pose;
    if (grub.beyondBody()) grub.farArm();
    grub.legs();
    grub.torso();
    if (grub.behindHead(pose.farArm)) grub.farArm();
    if (grub.behindHead(pose.nearArm)) grub.nearArm();
    grub.head();
    if (!grub.beyondBody() && !grub.behindHead(pose.farArm)) grub.farArm();
    if (!grub.behindHead(pose.nearArm)) grub.nearArm();
}

}  // namespace

void drawGrub(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style) {
    const auto group = canvas.group(figureGroup(style, kOutline));
    const auto rolled = canvas.placed(kMiddle, pose.roll, pose.size, pose.size);
    const auto cell = canvas.placed(kMiddle * -1);
    drawParts({canvas, pose, expression, jointsOf(pose.view), bodyPlace(pose, kHips)});
}

void drawGrubHead(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style) {
    const auto group = canvas.group(figureGroup(style, kOutline));
    drawGrubHeadParts(canvas, FigureView::Side, head, expression);
    if (expression.eyes == Eyes::Spiral) drawGrubStars(canvas, head, expression.stars);
}

}  // namespace grub
