#include "grub_parts.h"

#include <algorithm>
#include <cmath>

#include "hand.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kSleeve = glossy(material(0x22a79b, 0x0d5a72, 0x7be3c4), 0.15F);
constexpr Material kFarSleeve = glossy(material(0x17807f, 0x0b465c, 0x2fa79b), 0.1F);
constexpr Material kTrousers = glossy(material(0x1f6f86, 0x123a5c, 0x4fb0b8), 0.1F);
constexpr Material kFarTrousers = glossy(material(0x165468, 0x0f2f4c, 0x2f7f90), 0.05F);
constexpr Material kBoot = glossy(material(0x8a4a2e, 0x46223a, 0xd08a50), 0.5F);
constexpr Material kFarBoot = glossy(material(0x64362c, 0x351c34, 0x8a5138), 0.2F);
constexpr Rgb kSole = rgb(0x2b1a2c);

constexpr double kHandRadius = 3.7;
/// Bones of an arm that are not given are at least this long.
constexpr double kShortBone = 7;
/// A bone of a leg has this share of the way from hip to ankle, within limits: knees bulge only a little.
constexpr double kLegSlack = 0.6;
constexpr double kLegBoneMin = 5;
constexpr double kLegBoneMax = 7.2;

void drawSideBoot(Canvas& canvas, const Material& leather) {
    canvas.part(loop({{-5, -7.6},
                      {-2, -8.4},
                      {1.6, -8.4},
                      {3, -7},
                      {3.8, -5.2},
                      {8.8, -5.6},
                      {8.8, -1},
                      {8.8, 0},
                      {8, 0},
                      {6, 0},
                      {-2, 0},
                      {-5.2, 0},
                      {-5.2, -1},
                      {-5.6, -4},
                      {-5.5, -6},
                      {-5, -7.6}}),
                leather, {.bevel = 3.6, .line = 1.2});
    canvas.flat(rectangle(-5, -1.7, 13.6, 1.7, 0.7), kSole, {.alpha = 0.8F});
}

/// The same with the heel up and the toes flat: one piece of leather that bends at the ball of the foot.
void drawBentBoot(Canvas& canvas, const Material& leather, double toes) {
    constexpr double kSoleHeight = 1.7;
    constexpr Point kBall{3, 0};
    const Affine bent = Affine{}.translated(kBall).rotated(toes).translated(kBall * -1);
    const auto toe = [&bent](double x, double y) { return bent.apply({x, y}); };
    const Point bisector = Affine{}.rotated(toes / 2).apply({0, -1});
    canvas.part(loop({{-5, -7.6},
                      {-2, -8.4},
                      {1.6, -8.4},
                      {3, -7},
                      kBall + bisector * 4.6,
                      toe(10, -6.4),
                      toe(10, -1),
                      toe(10, 0),
                      toe(9.2, 0),
                      toe(7, 0),
                      toe(5.6, 0),
                      toe(4.4, 0),
                      kBall,
                      {1, 0},
                      {-5.2, 0},
                      {-5.2, -1},
                      {-5.6, -4},
                      {-5.5, -6},
                      {-5, -7.6}}),
                leather, {.bevel = 3.4, .line = 1.2});
    const Point welt = kBall + bisector * (kSoleHeight / std::cos(toes / 2));
    canvas.flat(polygon({{-5, 0}, {-5, -kSoleHeight}, welt, toe(9.8, -kSoleHeight), toe(9.8, 0), kBall}, 0.7), kSole,
                {.alpha = 0.8F});
    canvas.flat(polyline({kBall + bisector * 2.8, kBall + bisector * 4.6}), leather.shadow,
                {.alpha = 0.8F, .stroke = 0.7});
}

/// Seen from the toe.
void drawFrontBoot(Canvas& canvas, const Material& leather) {
    canvas.part(rectangle(-4.2, -8.6, 8.4, 7, 2.6), leather, {.bevel = 3.4, .line = 1.2});
    const VectorPath toe = loop({{-5.6, 0},
                                 {-6.4, -3.4},
                                 {-4.4, -6.4},
                                 {0, -6.4},
                                 {4.4, -6.4},
                                 {6.4, -3.4},
                                 {5.6, 0},
                                 {3, 0.02},
                                 {-3, 0.02},
                                 {-5.6, 0}});
    canvas.part(toe, leather, {.bevel = 3, .line = 1.2});
    canvas.flat(rectangle(-5.6, -1.7, 11.2, 1.7, 0.8), kSole, {.alpha = 0.8F});
}

/// Seen from the heel.
void drawBackBoot(Canvas& canvas, const Material& leather) {
    canvas.part(rectangle(-4.6, -8, 9.2, 8, 3.6), leather, {.bevel = 3.8, .line = 1.2});
    canvas.flat(rectangle(-4.4, -1.7, 8.8, 1.7, 0.8), kSole, {.alpha = 0.8F});
}

}  // namespace

void drawGrubLeg(Canvas& canvas, FigureView view, Point hip, const LegPose& leg, Side side) {
    const bool bright = side == Side::Near || view != FigureView::Side;
    const Affine foot = Affine{}.translated(leg.sole).rotated(leg.angle);
    const Point ankle = foot.apply(view == FigureView::Side ? Point{-0.8, -6.4} : Point{0, -6});
    const double bone = std::clamp(kLegSlack * length(ankle - hip), kLegBoneMin, kLegBoneMax);
    const Point knee = view == FigureView::Side ? jointOf(hip, ankle, bone, bone, leg.bend) : mix(hip, ankle, 0.5);
    canvas.part(limb({{hip, 4.2}, {knee, 3.9}, {ankle, 3.4}}), bright ? kTrousers : kFarTrousers,
                {.bevel = 3.6, .line = 1.2});
    const auto placed = canvas.placed(leg.sole, leg.angle);
    const Material& leather = bright ? kBoot : kFarBoot;
    switch (view) {
        case FigureView::Side:
            return leg.toes == 0 ? drawSideBoot(canvas, leather) : drawBentBoot(canvas, leather, leg.toes);
        case FigureView::Front: return drawFrontBoot(canvas, leather);
        case FigureView::Back: return drawBackBoot(canvas, leather);
    }
}

void drawGrubArm(Canvas& canvas, FigureView view, Point shoulder, const ArmPose& arm, Side side) {
    const bool bright = side == Side::Near || view != FigureView::Side;
    const Material& skin = bright ? kGrubSkin : kGrubFarSkin;
    const double bone = arm.bone > 0 ? arm.bone : std::max(kShortBone, length(arm.hand - shoulder) / 2 * 1.05);
    const Point elbow = jointOf(shoulder, arm.hand, bone, bone, arm.bend);
    canvas.part(limb({{shoulder, 3.2}, {elbow, 3.0}, {arm.hand, 2.7}}), skin, {.bevel = 3});
    canvas.part(limb({{shoulder, 4}, {mix(shoulder, elbow, 0.6), 3.8}}), bright ? kSleeve : kFarSleeve,
                {.bevel = 3.6, .shadow = 0.25F});
    drawProp(canvas, arm.hand, arm.held);
    const Point forearm = arm.hand - elbow;
    drawHand(canvas, arm.hand, std::atan2(forearm.y, forearm.x), thumbOf(view, side == Side::Near), arm.grip,
             kHandRadius, skin);
}

}  // namespace grub
