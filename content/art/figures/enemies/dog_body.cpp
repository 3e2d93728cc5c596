#include "dog_parts.h"

#include <algorithm>
#include <array>

#include "figure.h"
#include "shapes.h"

namespace grub {

namespace {

/// From the sole to the middle of a paw: one that stands, seen from the side, and a round one.
constexpr double kPawHeight = 3;
constexpr double kRoundPaw = 4.4;

/// A paw from the side; the origin is the middle of its sole.
void drawStandingPaw(Canvas& canvas, const Material& fur) {
    canvas.part(loop({{-4.6, -2.6},
                      {-4.6, -5.4},
                      {-2, -6},
                      {0.6, -5.8},
                      {3, -5.6},
                      {6, -4.6},
                      {6, -2.2},
                      {6, -0.6},
                      {5, 0},
                      {3.6, 0},
                      {0.6, 0},
                      {-1.4, 0},
                      {-3, 0},
                      {-4.2, 0},
                      {-4.6, -0.8},
                      {-4.6, -2.6}}),
                fur, {.bevel = 3.2, .line = 1.2, .shadow = 0.25F});
    for (const double x : {1.6, 4.0}) {
        canvas.flat(curve({{x, -2.8}, {x + 0.4, -2}, {x + 0.2, -1}, {x - 0.3, -0.2}}), kDogFold, {.stroke = 0.8});
    }
}

/// A tail from its root, bent towards `by`, growing thinner.
VectorPath tapered(Point root, Point by, Point tip) {
    constexpr int kJoints = 8;
    std::array<Joint, kJoints> joints;
    for (int i = 0; i < kJoints; ++i) {
        const double t = i / (kJoints - 1.0);
        joints[static_cast<std::size_t>(i)] = {mix(mix(root, by, t), mix(by, tip, t), t), 3.2 - 1.5 * t};
    }
    return limb(joints);
}

void drawPads(Canvas& canvas, Point at) {
    const PartStyle pad{.bevel = 1, .line = 0.5, .shadow = 0.1F};
    canvas.part(ellipse(at + Point{0, 1.3}, 2.3, 1.7), kDogSkin, pad);
    for (const Point toe : {Point{-2.7, -0.9}, Point{0, -2}, Point{2.7, -0.9}}) {
        canvas.part(ellipse(at + toe, 1.05, 1.2), kDogSkin, pad);
    }
}

/// A paw towards the viewer: round with toes, spread with its pads, or with one toe stretched.
void drawRoundPaw(Canvas& canvas, Point at, Grip grip, const Material& fur) {
    const PartStyle style{.bevel = 3.8, .line = 1.1, .shadow = 0.25F};
    VectorPath paw = ellipse(at, 4.8, 4.2);
    if (grip == Grip::Open) {
        for (const double x : {-3.2, 0.0, 3.2}) paw.unite(circle(at + Point{x, -2.4 - 0.08 * (10 - x * x)}, 2.1));
    }
    if (grip == Grip::Pointing) paw.unite(limb({{at, 3}, {at + Point{6.6, -1}, 2}}));
    canvas.part(paw, fur, style);
    if (grip == Grip::Open) return drawPads(canvas, at);
    for (const double x : {-1.5, 1.5}) {
        canvas.flat(curve({at + Point{x, 0.6}, at + Point{x * 1.1, 1.6}, at + Point{x, 2.6}, at + Point{x * 0.9, 3.7}}),
                    kDogFold, {.stroke = 0.8});
    }
}

}  // namespace

void drawDogHindLeg(Canvas& canvas, Point hip, const LegPose& leg, PawView view, const Material& fur) {
    const bool stands = view == PawView::Side;
    const Point ankle = leg.sole + (stands ? Point{-1.4, -4.6} : Point{0, -kRoundPaw});
    const Point knee = jointOf(hip, ankle, 7, 7, leg.bend);
    canvas.part(limb({{hip, 5.6}, {mix(hip, knee, 0.7), 4.6}, {knee, 4}, {ankle, 3.2}}), fur,
                {.bevel = 4.2, .line = 1.2});
    if (!stands) return drawRoundPaw(canvas, ankle, Grip::Fist, fur);
    const auto paw = canvas.placed(leg.sole, leg.angle);
    drawStandingPaw(canvas, fur);
}

void drawDogForeleg(Canvas& canvas, Point shoulder, const ArmPose& leg, PawView view, const Material& fur) {
    const bool stands = view == PawView::Side;
    const Point wrist = stands ? leg.hand + Point{-1, -1.4} : leg.hand;
    const double bone = leg.bone > 0 ? leg.bone : std::max(6.0, length(wrist - shoulder) / 2 * 1.02);
    const Point elbow = jointOf(shoulder, wrist, bone, bone, leg.bend);
    canvas.part(limb({{shoulder, 5}, {elbow, 4}, {wrist, 3.3}}), fur, {.bevel = 3.8, .line = 1.2});
    if (!stands) return drawRoundPaw(canvas, leg.hand, leg.grip, fur);
    const auto turned = canvas.placed(leg.hand, leg.paw);
    const auto paw = canvas.placed({0, kPawHeight});
    drawStandingPaw(canvas, fur);
}

void drawDogHaunch(Canvas& canvas, Point hip, const LegPose& leg) {
    const Point paw = leg.sole + Point{0, -kRoundPaw};
    const double side = hip.x < 32 ? -1 : 1;
    const Point knee = jointOf(hip, paw, 7, 7, leg.bend);
    canvas.part(limb({{knee, 4.2}, {paw, 3.4}}), kDogFur, {.bevel = 3.8, .line = 1.2});
    canvas.part(limb({{hip, 6.6}, {mix(hip, knee, 0.75), 5}}), kDogFur, {.bevel = 5.6, .line = 1.1, .shadow = 0.25F});
    canvas.part(ellipse(paw, 4.8, 4.4, side * 0.2), kDogFur, {.bevel = 3.8, .line = 1.1, .shadow = 0.25F});
    drawPads(canvas, paw);
}

void drawDogSide(Canvas& canvas, Point tail) {
    const Point tip = Point{8, 23.5} + tail;
    canvas.part(tapered({12, 33}, {5.5, 29}, tip), kDogFur, {.bevel = 2.6, .line = 1.2});
    const VectorPath trunk = loop({{9.5, 39},
                                   {9.5, 31},
                                   {15, 28.6},
                                   {22, 28.6},
                                   {30, 28.6},
                                   {36, 25},
                                   {44, 25.6},
                                   {51, 26},
                                   {52, 36},
                                   {51, 42},
                                   {50, 50},
                                   {42, 51.4},
                                   {36, 50},
                                   {30, 48.4},
                                   {26, 47.4},
                                   {21, 48.6},
                                   {14, 50},
                                   {9.5, 46},
                                   {9.5, 39}});
    canvas.part(trunk, kDogFur, {.bevel = 10, .line = 1.3});
    const Mask inTrunk = canvas.mask(trunk);
    canvas.part(ellipse({47, 48.6}, 7.4, 6.6), kDogPale,
                {.bevel = 4, .line = 0, .shadow = 0, .clip = &inTrunk, .alpha = 0.7F});
    // The crease behind the shoulder.
    canvas.flat(curve({{33.4, 36}, {32, 39}, {32, 42.6}, {33.6, 45.6}}), kDogFold, {.alpha = 0.35F, .stroke = 0.9});
}

void drawDogBreast(Canvas& canvas, Point neck) {
    const auto place = canvas.placed(neck + Point{3, 0});
    const VectorPath breast = loop({{-8, 8},
                                    {-2, 5},
                                    {6, 6},
                                    {8.6, 12},
                                    {10.6, 17},
                                    {9, 24},
                                    {2.6, 27.4},
                                    {-3, 30},
                                    {-9, 26},
                                    {-10, 19},
                                    {-10.6, 14},
                                    {-10, 10},
                                    {-8, 8}});
    canvas.part(breast, kDogFur, {.bevel = 8, .line = 1.2, .shadow = 0.2F});
    const Mask inBreast = canvas.mask(breast);
    canvas.part(ellipse({6.4, 18.6}, 6, 8, -0.25), kDogPale,
                {.bevel = 4, .line = 0, .shadow = 0, .clip = &inBreast, .alpha = 0.8F});
}

void drawDogChest(Canvas& canvas) {
    canvas.part(loop({{15, 42},
                      {14, 31},
                      {22, 26},
                      {32, 26},
                      {42, 26},
                      {50, 31},
                      {49, 42},
                      {48.4, 50},
                      {42, 53},
                      {32, 53},
                      {22, 53},
                      {15.6, 50},
                      {15, 42}}),
                kDogFur, {.bevel = 10, .line = 1.3});
    canvas.part(ellipse({32, 45.4}, 10.4, 6.6), kDogPale, kDogPatch);
    canvas.flat(curve({{32, 44}, {31.7, 46}, {31.7, 48.6}, {32, 50.6}}), kDogFold, {.alpha = 0.35F, .stroke = 0.9});
}

void drawDogBack(Canvas& canvas) {
    canvas.part(loop({{19.4, 41},
                      {17, 34},
                      {24, 30.4},
                      {32, 30.4},
                      {40, 30.4},
                      {47, 34},
                      {44.6, 41},
                      {46.4, 48.6},
                      {40, 52.6},
                      {32, 52.6},
                      {24, 52.6},
                      {17.6, 48.6},
                      {19.4, 41}}),
                kDogFur, {.bevel = 10, .line = 1.3});
    // Shoulder blades, and the spine between them.
    for (const double side : {-1.0, 1.0}) {
        canvas.flat(
            curve({{32 + side * 4.6, 34.4}, {32 + side * 7.4, 35}, {32 + side * 8, 37.6}, {32 + side * 6.4, 39.6}}),
            kDogFold, {.alpha = 0.4F, .stroke = 1});
    }
    canvas.flat(curve({{32, 34}, {31.6, 37}, {31.6, 40}, {32, 42.6}}), kDogFold, {.alpha = 0.5F, .stroke = 1.1});
}

void drawDogTailBehind(Canvas& canvas, Point tail) {
    const Point tip = Point{35, 37} + tail;
    canvas.part(tapered({32, 47.4}, {31 - 0.5 * tail.x, 41}, tip), kDogFur, {.bevel = 2.6, .line = 1.2});
}

}  // namespace grub
