#include <cmath>

#include "face.h"
#include "lady_parts.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kHair = glossy(material(0x9c4c5c, 0x5c2a4c, 0xd48484), 0.5F);
constexpr Material kPearl = glossy(material(0xfaf3f4, 0xa79bc0, 0xffffff), 1);

constexpr Rgb kStrand = rgb(0x6a3048);
constexpr Rgb kShine = rgb(0xd98a74);
constexpr Rgb kIris = rgb(0x2c1a30);
constexpr Rgb kBlush = rgb(0xe0617a);

constexpr EyeStyle kEye{.lid = glossy(material(0xe0a098, 0xa8627c, 0xf6c6b6), 0.3F),
                        .pupil = kIris,
                        .shape = {0.95, 1.1},
                        .pupilShape = {0.46, 0.54},
                        .reach = 0.34,
                        .lashes = true};
constexpr BrowStyle kBrow{.colour = rgb(0x3a1530), .half = 3.3, .thickness = 1.4, .arch = 1.9};

/// The face as the turn of the head shows it: where its features are.
struct Features {
    /// As HeadPose, but to the right only.
    double turn;
    /// Pixels that the raised chin moves them up.
    double up;

    Point leftEye() const { return {28 + turn * 1.1, 16.8 - 0.5 * up}; }
    Point rightEye() const { return {37.2 + turn * 0.95, 16.6 - 0.5 * up}; }
    Point nose() const { return {32.8 + turn * 1.4, 20.2 - up}; }
    Point mouth() const { return {32.6 + turn * 1.05, 24.2 - 0.8 * up}; }
};

VectorPath skullShape(double turn) { return ellipse({32 + turn * 0.3, 16}, 12.8, 11.2); }

void drawBun(Canvas& canvas, Point at) {
    canvas.part(ellipse(at, 5.8, 4.4), kHair, {.bevel = 4.6, .line = 1.2});
    canvas.flat(curve({{at.x - 3, at.y + 0.6}, {at.x - 2.4, at.y - 2.6}, {at.x + 2, at.y - 2.8}, {at.x + 2.6, at.y}}),
                kShine, {.alpha = 0.7F, .stroke = 1});
    canvas.flat(curve({{at.x - 4.2, at.y + 1.8}, {at.x - 1, at.y + 3.2}, {at.x + 2.6, at.y + 2.6}, {at.x + 3.4, at.y}}),
                kStrand, {.alpha = 0.6F, .stroke = 0.7});
}

/// Hair parted in the middle, down to the temples; more of it on the side turned away.
void drawFringe(Canvas& canvas, double turn) {
    const VectorPath skull = skullShape(turn);
    const Mask inSkull = canvas.mask(skull);
    const double part = 32.6 + turn * 1.6;
    const double left = 20.4 + turn * 1.3;
    const double right = 44.2 + turn * 0.7;
    const double temple = 15.6 - turn * 1.1;
    const VectorPath fringe = loop({{10, 25 + turn},
                                    {left, 25 + turn * 0.4},
                                    {left + 0.4, 20},
                                    {left - 0.2, 16},
                                    {left + 0.4, 11},
                                    {part - 5, 8.6},
                                    {part, 5.8},
                                    {part + 4, 7.8},
                                    {right - 0.4, 9.6},
                                    {right, temple},
                                    {right + 0.4, temple + 1.4},
                                    {right + 1.6, temple + 2.4},
                                    {54, temple + 2},
                                    {54, 0},
                                    {44, -2},
                                    {32, -2},
                                    {20, -2},
                                    {10, 2},
                                    {10, 25 + turn}});
    canvas.part(fringe, kHair, {.bevel = 4, .line = 0.9, .shadow = 0.3F, .clip = &inSkull});
    // Combed from the parting down to both temples.
    for (const double share : {0.0, 1.0}) {
        const Point crown{part - 0.5, 6.2 - 0.9 * share};
        canvas.flat(curve({crown,
                           {part - 5, 7.4 - 1.2 * share},
                           {left - 0.6 - 1.9 * share, 10 - share},
                           {left - 1.6 - 2 * share, 17 + share}}),
                    kStrand, {.alpha = 0.45F, .stroke = 0.7, .clip = &inSkull});
        canvas.flat(curve({crown,
                           {part + 3, 6.8 - share},
                           {right + 0.2 + share, 8.2 - share},
                           {right + 0.9 + 0.7 * share, temple - 1 + share}}),
                    kStrand, {.alpha = 0.45F, .stroke = 0.7, .clip = &inSkull});
    }
}

/// An ear with a pearl at the end of the fringe, which shows as soon as she looks to a side.
void drawEar(Canvas& canvas, double turn) {
    const Point at{20.4 + turn * 0.9, 19.4};
    canvas.part(ellipse(at, 2, 2.8), kLadySkin, {.bevel = 1.8, .line = 0.8, .shadow = 0.25F});
    canvas.flat(curve({at + Point{0.8, -1.2}, at + Point{-0.8, -1.2}, at + Point{-0.8, 1}, at + Point{0.5, 1}}),
                kLadySkin.ink, {.alpha = 0.5F, .stroke = 0.5});
    canvas.part(circle(at + Point{0, 3.8}, 1.3), kPearl, {.bevel = 1.2, .line = 0.6, .shadow = 0.25F});
}

/// Two lashes at the outer corner of an open eye.
void drawLashes(Canvas& canvas, Point eye, double radius, double nose) {
    for (const double rise : {-0.62, -0.28}) {
        const Point root = eye + Point{-nose * radius * 0.86, rise * radius};
        canvas.flat(polyline({root, root + Point{-nose * 1.2, -0.9}}), kIris, {.stroke = 0.7});
    }
}

/// Brows that stay on the forehead: between the eyes and the hair, and off the face's edge when it is turned.
void drawBrows(Canvas& canvas, const Features& face, Expression expression) {
    constexpr double kRoom = 0.6;
    expression.browHeight *= kRoom;
    BrowStyle away = kBrow;
    away.half -= 0.25 * face.turn;
    drawBrow(canvas, face.rightEye() + Point{-0.3 * face.turn, -5}, -1, expression, away);
    drawBrow(canvas, face.leftEye() + Point{0, -5.2}, 1, expression, kBrow);
}

void drawFace(Canvas& canvas, const Features& face, const Expression& expression) {
    const double t = face.turn;
    canvas.part(skullShape(t), kLadySkin, {.bevel = 9, .line = 1.3});
    for (const Point cheek : {Point{25 + t * 1.1, 21}, Point{40.6 + t * 0.6, 20.8}}) {
        canvas.flat(ellipse(cheek - Point{0, face.up}, 2.6, 1.8), kBlush, {.alpha = 0.4F});
    }
    drawFringe(canvas, t);
    if (t > 1) drawEar(canvas, t);
    constexpr double kLeftRadius = 3.8;
    constexpr double kRightRadius = 3.5;
    drawEye(canvas, face.rightEye(), kRightRadius, -1, expression, kEye);
    drawEye(canvas, face.leftEye(), kLeftRadius, 1, expression, kEye);
    if (expression.lid < 0.8) {
        drawLashes(canvas, face.leftEye(), kLeftRadius, 1);
        // Those of the other eye would stick out of a face from the side.
        if (t < 2.5) drawLashes(canvas, face.rightEye(), kRightRadius, -1);
    }
    drawBrows(canvas, face, expression);
    {
        // The side turned away is foreshortened.
        const auto placed = canvas.placed(face.mouth(), 0, 1 - 0.04 * t, 1);
        drawLadyMouth(canvas, expression);
    }
    canvas.part(ellipse(face.nose(), 2.7, 2.3), kLadySkin, {.bevel = 2.2, .line = 0.7, .shadow = 0.25F});
}

void drawHeadTowardsUs(Canvas& canvas, const HeadPose& head, Expression expression, Prop inMouth) {
    const double turn = std::abs(head.turn);
    const bool looksLeft = head.turn < 0;
    if (looksLeft) expression.look.x = -expression.look.x;
    const auto mirrored = canvas.placed({looksLeft ? 2 * kLadyNeck.x : 0, 0}, 0, looksLeft ? -1 : 1, 1);
    {
        const Point bun{32 - turn * 2.9, 6.8 + 0.5 * turn};
        const auto slipped = canvas.bent(bun, head.hatTilt, head.hatShift);
        drawBun(canvas, bun);
    }
    // Seen straight, the bun stands above the head instead of behind it.
    const auto lower = canvas.placed({0, 1.6 - 0.4 * turn});
    const Features face{turn, expression.chin};
    drawFace(canvas, face, expression);
    drawProp(canvas, face.mouth(), {inMouth});
}

void drawHeadFromBehind(Canvas& canvas, const HeadPose& head) {
    canvas.part(limb({{{32, 23}, 4.4}, {{32, 26.4}, 4.4}}), kLadySkin, {.bevel = 4, .line = 1});
    for (const double side : {-1.0, 1.0}) {
        const Point ear{32 + side * 12, 18};
        canvas.part(circle(ear + Point{side * 0.4, 4}, 1.3), kPearl, {.bevel = 1.2, .line = 0.6});
        canvas.part(ellipse(ear, 2.8, 3.4), kLadySkin, {.bevel = 2, .line = 1});
    }
    canvas.part(ellipse({32, 15.4}, 12, 10.2), kHair, {.bevel = 9, .line = 1.3});
    for (const double x : {-10.0, -5.4, 0.0, 5.4, 10.0}) {
        canvas.flat(curve({{32 + x * 0.3, 11}, {32 + x * 0.8, 14}, {32 + x, 18}, {32 + x * 0.9, 22.6 - 0.02 * x * x}}),
                    kStrand, {.alpha = 0.6F, .stroke = 0.9});
    }
    const auto slipped = canvas.placed(head.hatShift);
    drawBun(canvas, {32, 8.6});
}

}  // namespace

void drawLadyHeadParts(Canvas& canvas, FigureView view, const HeadPose& head, const Expression& expression,
                       Prop inMouth) {
    const auto placed = canvas.bent(kLadyNeck, head.tilt, head.shift);
    if (view == FigureView::Back) {
        drawHeadFromBehind(canvas, head);
    } else {
        drawHeadTowardsUs(canvas, head, expression, inMouth);
    }
    if (expression.eyes == Eyes::Spiral) drawDizzyStars(canvas, {32, 6}, 18, 5, expression.stars);
}

}  // namespace grub
