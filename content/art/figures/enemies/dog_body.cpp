#include "dog_parts.h"

#include <algorithm>

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

/// All that a bulldog has of a tail.
VectorPath stump(Point root, Point tip) { return limb({{root, 3.4}, {mix(root, tip, 0.5), 3}, {tip, 2.2}}); }

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
    canvas.part(limb({{hip, 5.4}, {mix(hip, knee, 0.7), 4.4}, {knee, 3.8}, {ankle, 3.1}}), fur,
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
    canvas.part(limb({{shoulder, 5.6}, {elbow, 4.5}, {wrist, 3.7}}), fur, {.bevel = 3.8, .line = 1.2});
    if (!stands) return drawRoundPaw(canvas, leg.hand, leg.grip, fur);
    const auto turned = canvas.placed(leg.hand, leg.paw);
    const auto paw = canvas.placed({0, kPawHeight});
    drawStandingPaw(canvas, fur);
}

void drawDogHaunch(Canvas& canvas, Point hip, const LegPose& leg) {
    const Point paw = leg.sole + Point{0, -kRoundPaw};
    const Point knee = jointOf(hip, paw, 8, 8, leg.bend);
    canvas.part(limb({{hip, 6}, {mix(hip, knee, 0.7), 5.2}, {knee, 4.2}, {paw, 3.2}}), kDogFarFur,
                {.bevel = 4.6, .line = 1.2});
    canvas.part(ellipse(paw, 4.8, 4.4), kDogFur, {.bevel = 3.8, .line = 1.1, .shadow = 0.25F});
    drawPads(canvas, paw);
}

void drawDogSide(Canvas& canvas, Point tail) {
    canvas.part(stump({12.5, 33.4}, Point{9.2, 28.8} + tail), kDogFur, {.bevel = 2.6, .line = 1.2});
    // Deep in the chest, drawn in at the flanks, narrow at the rump.
    const VectorPath trunk =
        loop({{9.6, 39}, {9.6, 33},  {13, 30}, {19, 30},   {26, 30},  {30, 25}, {38, 24}, {46, 23.4},
              {53, 28},  {53, 38},   {53, 47}, {50, 53},   {43, 53},  {36, 53}, {33, 47}, {27, 45.6},
              {22, 45},  {19, 48.6}, {14, 48}, {10.4, 47}, {9.6, 43}, {9.6, 39}});
    canvas.part(trunk, kDogFur, {.bevel = 10, .line = 1.3});
    // The crease behind the shoulder.
    canvas.flat(curve({{33.4, 34}, {31.8, 37}, {31.8, 41}, {33.6, 44.6}}), kDogFold, {.alpha = 0.35F, .stroke = 0.9});
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
    canvas.part(loop({{12, 39},
                      {11.6, 29},
                      {21, 25},
                      {32, 25},
                      {43, 25},
                      {52.4, 29},
                      {52, 39},
                      {51.4, 48},
                      {43, 53.4},
                      {32, 53.4},
                      {21, 53.4},
                      {12.6, 48},
                      {12, 39}}),
                kDogFur, {.bevel = 11, .line = 1.3});
    canvas.part(ellipse({32, 46}, 10.4, 6.4), kDogPale, kDogPatch);
    canvas.flat(curve({{32, 44.6}, {31.7, 46.6}, {31.7, 49}, {32, 51}}), kDogFold, {.alpha = 0.35F, .stroke = 0.9});
}

void drawDogBack(Canvas& canvas) {
    // Broad at the shoulders, narrow at the waist.
    canvas.part(loop({{15.6, 35},
                      {15.6, 28.6},
                      {23, 27},
                      {32, 27},
                      {41, 27},
                      {48.4, 28.6},
                      {48.4, 35},
                      {48.4, 40.4},
                      {43.6, 41},
                      {43, 45.6},
                      {42.4, 51.6},
                      {38, 53},
                      {32, 53},
                      {26, 53},
                      {21.6, 51.6},
                      {21, 45.6},
                      {20.4, 41},
                      {15.6, 40.4},
                      {15.6, 35}}),
                kDogFur, {.bevel = 9, .line = 1.3});
    // The spine.
    canvas.flat(curve({{32, 37.4}, {31.7, 38.4}, {31.7, 39.6}, {32, 40.4}}), kDogFold, {.alpha = 0.45F, .stroke = 1.1});
}

void drawDogTailBehind(Canvas& canvas, Point tail) {
    canvas.part(limb({{{32, 45.4}, 3}, {Point{32.6, 42.4} + tail, 2.2}}), kDogFur,
                {.bevel = 2.6, .line = 1.1, .shadow = 0.3F});
}

}  // namespace grub
