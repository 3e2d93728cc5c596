#include "dog_parts.h"

#include <algorithm>

#include "shapes.h"

namespace grub {

namespace {

constexpr Material kMuzzle = glossy(material(0xc98f5c, 0x744250, 0xecc08a), 0.15F, 0.35F);
constexpr Material kNose = glossy(material(0x2a2030, 0x120c1c, 0x6b5a78), 1);
constexpr Material kTongue = glossy(material(0xf07b86, 0xa03a58, 0xffb9b4), 0.5F);
constexpr Material kThroat = material(0x5a2034, 0x32182e, 0x8a3448);

/// What a mouth does to the muzzle. Lengths in pixels.
struct MuzzleShape {
    /// How far the corners of the mouth are raised; drooping ones are negative.
    double corners;
    /// How far the under jaw is dropped.
    double jaw;
    /// Length of the two fangs that stand up from it.
    double fangs;
};

/// A smile with the chin up is a broad one.
constexpr double kBroadChin = 1;

/// A broad smile under heavy lids is a smug one.
bool isSmug(const Expression& expression) { return expression.mouth == Mouth::Smile && expression.lid > 0.3; }

MuzzleShape shapeOf(const Expression& expression) {
    switch (expression.mouth) {
        case Mouth::Smile:
            if (isSmug(expression)) return {3.4, 0.4, 3.6};
            return expression.chin > kBroadChin ? MuzzleShape{3.6, 1.8, 3.4} : MuzzleShape{2, 1.2, 3.6};
        case Mouth::Open: return {0.4, 3.4, 4};
        case Mouth::Grit: return {-0.4, 0, 6};
        case Mouth::Frown: return {-1.8, -0.6, 3.2};
        case Mouth::Pout: return {0, -0.4, 3.2};
    }
    return {};
}

/// Two jowls under one bridge: they hang lower than the jaw between them. On a head turned to the right, the right one
/// is seen from the side.
VectorPath jowls(double turn, double corners) {
    const double near = 13.2 - 0.55 * turn;
    const double far = 13.2 - 0.9 * turn;
    // Raised corners draw the jowls up and in; drooping ones let them hang.
    const double low = 12.8 - (corners > 0 ? 1.0 : 0.35) * corners;
    const double outer = low - 0.8 * std::max(corners, 0.0);
    const double side = 9 - corners;
    const double lobe = 0.64 - 0.05 * std::max(corners, 0.0);
    const double middle = 7 + 0.5 * std::max(corners, 0.0);
    return loop({{0, 1.6},
                 {0.3 * far, -1.2},
                 {0.84 * far, -0.6},
                 {0.97 * far, 4 - 0.6 * corners},
                 {1.06 * far, 0.5 * (4 + side)},
                 {1.02 * far, outer},
                 {lobe * far, low},
                 {(lobe - 0.24) * far, low},
                 {0.32 * far, middle + 0.6},
                 {0, middle},
                 {-0.32 * near, middle + 0.6},
                 {(0.24 - lobe) * near, low},
                 {-lobe * near, low},
                 {-1.02 * near, outer},
                 {-1.06 * near, 0.5 * (4 + side)},
                 {-0.97 * near, 4 - 0.6 * corners},
                 {-0.84 * near, -0.6},
                 {-0.3 * near, -1.2},
                 {0, 1.6}});
}

void drawFang(Canvas& canvas, Point root, double half, double up) {
    canvas.part(polygon({root + Point{-half, 0}, root + Point{0, -up}, root + Point{half, 0}}, 0.7), kEnamel,
                {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
}

void drawTongue(Canvas& canvas, Point root, Point tip) {
    canvas.part(limb({{root, 2.7}, {mix(root, tip, 0.6), 3}, {tip, 2.7}}), kTongue,
                {.bevel = 2.4, .line = 0.9, .shadow = 0.2F});
    canvas.flat(polyline({root + Point{0, 1}, mix(root, tip, 0.8)}), kTongue.shadow, {.alpha = 0.6F, .stroke = 0.8});
}

/// The under jaw, pushed forward as a bulldog's is, and what lies in it.
void drawUnderJaw(Canvas& canvas, const Expression& expression, const MuzzleShape& shape) {
    const bool smiles = expression.mouth == Mouth::Smile;
    canvas.part(ellipse({0, 9.6 + 0.7 * shape.jaw}, smiles ? 7.8 : 7, 3.4 + 0.4 * shape.jaw), kMuzzle,
                {.bevel = 3, .line = 1});
    const PartStyle hollow{.bevel = 3, .line = 0.8};
    if (expression.mouth == Mouth::Open) {
        canvas.part(ellipse({0, 9.8}, 5.8, 4.4), kThroat, hollow);
        canvas.part(ellipse({0, 12.2}, 3.4, 1.8), kTongue, {.bevel = 1.8, .line = 0.5, .shadow = 0});
    } else if (smiles) {
        canvas.part(ellipse({0, 8.4}, 7.6, 3.8), kThroat, hollow);
    }
}

void drawJowls(Canvas& canvas, double turn, const MuzzleShape& shape) {
    canvas.part(jowls(turn, shape.corners), kMuzzle, {.bevel = 5, .line = 1.1});
    for (const double side : {-1.0, 1.0}) {
        const double reach = side * (1 - 0.05 * turn * side);
        // The fold that runs from the nose around each jowl.
        canvas.flat(curve({{reach * 4.8, 1.6},
                           {reach * 7.6, 1},
                           {reach * 9.8, 2.8 - 0.5 * shape.corners},
                           {reach * 10.4, 6 - 0.8 * shape.corners}}),
                    kDogFold, {.alpha = 0.4F, .stroke = 0.9});
    }
    canvas.flat(polyline({{0, 3}, {0, 7.2}}), kDogFold, {.stroke = 1});
}

}  // namespace

void drawDogMuzzle(Canvas& canvas, double turn, const Expression& expression) {
    const MuzzleShape shape = shapeOf(expression);
    const auto place = canvas.placed({turn * 1.15, 0});
    drawUnderJaw(canvas, expression, shape);
    drawJowls(canvas, turn, shape);
    // A tongue that hangs out does so beside the fangs, and they stand before it.
    if (expression.eyes == Eyes::Spiral) {
        drawTongue(canvas, {0.8, 10}, {1.4, 14.2});
    } else if (expression.mouth == Mouth::Smile && !isSmug(expression)) {
        drawTongue(canvas, {0.8, 9.8}, {1.4, 13});
    }
    const double row = 10.8 + 0.9 * shape.jaw;
    for (const double side : {-1.0, 1.0}) {
        drawFang(canvas, {side * 4.7, row}, 1.7, shape.fangs);
        if (expression.mouth == Mouth::Grit) drawFang(canvas, {side * 1.6, row + 0.3}, 1, 2.4);
    }
    canvas.part(ellipse({turn * 0.2, 1.4}, 3.8, 2.6), kNose, {.bevel = 2.5, .line = 0.8, .shadow = 0.25F});
}

}  // namespace grub
