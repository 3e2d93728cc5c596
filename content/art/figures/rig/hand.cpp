#include "hand.h"

#include <span>
#include <vector>

#include "shapes.h"

namespace grub {

namespace {

// All of a hand is drawn with a radius of 1, the forearm coming from the left, the thumb up.

constexpr Joint kThumb[] = {{{-0.3, -0.5}, 0.34}, {{0.35, -0.62}, 0.3}};

VectorPath scaled(std::span<const Joint> joints, double size) {
    std::vector<Joint> out(joints.begin(), joints.end());
    for (Joint& joint : out) joint = {joint.at * size, joint.radius * size};
    return limb(out);
}

/// Fingers that are bent into the palm: lines between them, and the thumb laid over.
void drawFingersOfFist(Canvas& canvas, double size, const Material& skin) {
    for (const double y : {-0.12, 0.34}) {
        canvas.flat(curve({Point{0.88, y - 0.06} * size, Point{0.6, y - 0.02} * size, Point{0.4, y} * size,
                           Point{0.18, y - 0.02} * size}),
                    skin.ink, {.alpha = 0.5F, .stroke = 0.15 * size});
    }
    canvas.part(scaled(kThumb, size), skin, {.bevel = 0.34 * size, .line = 0.5, .shadow = 0.12F});
}

void drawFist(Canvas& canvas, double size, const Material& skin) {
    canvas.part(circle({}, size), skin, {.bevel = size});
    drawFingersOfFist(canvas, size, skin);
}

void drawPointing(Canvas& canvas, double size, const Material& skin) {
    constexpr Joint kFinger[] = {{{0.1, -0.58}, 0.38}, {{1.85, -0.74}, 0.33}};
    VectorPath hand = circle({}, size);
    hand.unite(scaled(kFinger, size));
    canvas.part(hand, skin, {.bevel = 0.8 * size});
    drawFingersOfFist(canvas, size, skin);
}

void drawOpen(Canvas& canvas, double size, const Material& skin) {
    constexpr Joint kOpen[][2] = {
        {{{0.1, -0.45}, 0.36}, {{1.22, -0.78}, 0.31}},
        {{{0.2, 0}, 0.36}, {{1.42, 0}, 0.32}},
        {{{0.1, 0.45}, 0.36}, {{1.16, 0.74}, 0.3}},
        {{{-0.35, -0.4}, 0.36}, {{0.25, -1.22}, 0.31}},
    };
    VectorPath hand = circle({}, 0.86 * size);
    for (const auto& finger : kOpen) hand.unite(scaled(finger, size));
    canvas.part(hand, skin, {.bevel = 0.5 * size});
}

}  // namespace

void drawHand(Canvas& canvas, Point at, double along, Thumb thumb, Grip grip, double size, const Material& skin) {
    const auto placed = canvas.placed(at, along, 1, thumb == Thumb::Left ? 1 : -1);
    switch (grip) {
        case Grip::Fist: return drawFist(canvas, size, skin);
        case Grip::Open: return drawOpen(canvas, size, skin);
        case Grip::Pointing: return drawPointing(canvas, size, skin);
    }
}

Thumb thumbOf(FigureView view, bool nearArm) {
    switch (view) {
        case FigureView::Side: return Thumb::Left;
        case FigureView::Front: return nearArm ? Thumb::Left : Thumb::Right;
        case FigureView::Back: return nearArm ? Thumb::Right : Thumb::Left;
    }
    return Thumb::Left;
}

}  // namespace grub
