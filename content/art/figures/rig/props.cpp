#include "props.h"

#include <cmath>
#include <numbers>

#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kBowl = glossy(material(0x8b98ae, 0x59657f, 0xcfd9e6), 0.2F);
constexpr Material kGoldBowl = glossy(material(0xdf9f2e, 0x9c5a22, 0xffdf86), 0.3F);
constexpr Material kCrust = glossy(material(0xe6a94e, 0x9a5a34, 0xffe0a0), 0.4F);
constexpr Material kPlum = glossy(material(0x7c2c63, 0x3c143c, 0xd477a8), 0.9F);
constexpr Material kTin = glossy(material(0x9aa6b8, 0x46506c, 0xe4eef6), 0.9F, 0.5F);
constexpr Material kLinen = glossy(material(0xfbf0e0, 0xb9a3b4, 0xffffff), 0.1F);

constexpr Rgb kCheck = rgb(0xa2588c);

/// Size of a key that is carried, as a share of one that lies in a cell.
constexpr double kCarriedKey = 0.42;

/// The middle of the bow of drawKeyShape.
constexpr Point kKeyBow{-9.4, 0};

/// Where the bowl of a spoon begins, away from the hand: keys need a longer handle.
constexpr double kSpoonNeck = 6.2;
constexpr double kLongSpoonNeck = 20;

void drawSpoon(Canvas& canvas, double neck, const Material& metal, const Material& bowl) {
    canvas.part(limb({{{-10.5, 0}, 1.9}, {{-8, 0}, 1.4}, {{neck + 1.8, 0}, 1.5}}), metal, {.bevel = 1.6, .line = 1.1});
    canvas.part(ellipse({neck + 7.2, 0}, 7.2, 5.8), metal, {.bevel = 4.2, .line = 1.2});
    canvas.part(ellipse({neck + 7.4, 0.2}, 4.8, 3.5), bowl, {.bevel = 3, .line = 0, .shadow = 0});
}

void drawRollingPin(Canvas& canvas) {
    canvas.part(limb({{{-6.6, 0}, 1.8}, {{5, 0}, 1.5}}), kWood, {.bevel = 1.5, .line = 1});
    canvas.part(limb({{{18, 0}, 1.5}, {{20.6, 0}, 1.7}}), kWood, {.bevel = 1.5, .line = 1});
    canvas.part(rectangle(4.6, -3.9, 13.6, 7.8, 2.6), kWood, {.bevel = 3.6, .line = 1.2});
    for (const double x : {7.0, 15.8}) {
        canvas.flat(curve({{x, -3.4}, {x + 0.6, -1.2}, {x + 0.6, 1.2}, {x, 3.4}}), kWood.ink,
                    {.alpha = 0.35F, .stroke = 0.5});
    }
}

void drawCarriedKey(Canvas& canvas) {
    const auto key = canvas.placed({}, 0, kCarriedKey, kCarriedKey);
    const auto fromStem = canvas.placed({-7, 0});
    drawKeyShape(canvas, kGold, false);
}

/// Keys fanned out on a ring of wire, far enough from each other to be counted.
struct KeyRing {
    int keys;
    /// Outer radius of the wire.
    double radius;
    /// Size of a key, as a share of one that lies in a cell.
    double key;
    /// Radians from key to key: where their bows are on the wire, and where their stems point.
    double apart;
    double fan;
};
constexpr KeyRing kFiveKeys{.keys = 5, .radius = 7.4, .key = 0.27, .apart = 0.8, .fan = 0.56};
/// Three stand for all where there is less room.
constexpr KeyRing kThreeKeys{.keys = 3, .radius = 6, .key = 0.31, .apart = 1.05, .fan = 0.7};

/// The top of the wire is the origin.
void drawKeys(Canvas& canvas, const KeyRing& keys) {
    constexpr double kWire = 1.4;
    constexpr double kDown = std::numbers::pi / 2;
    const auto atMiddle = canvas.placed({0, keys.radius});
    const VectorPath wire = ring({}, keys.radius, keys.radius - kWire);
    PartStyle wireStyle{.bevel = 0.6, .line = 0.8};
    canvas.part(wire, kMetal, wireStyle);
    VectorPath oneSide;
    for (int i = 0; i < keys.keys; ++i) {
        const double place = i - (keys.keys - 1) / 2.0;
        // Its own weight pulls a bow outwards.
        const Point bow = Affine{}.rotated(kDown + keys.apart * place).apply({keys.radius + 0.4, 0});
        const auto hung = canvas.placed(bow, kDown + keys.fan * place, keys.key, keys.key);
        const auto fromBow = canvas.placed(kKeyBow * -1);
        drawKeyShape(canvas, kGold, false);
        oneSide.unite(polygon({{}, bow * 1.5, Affine{}.rotated(keys.apart / 2).apply(bow * 1.5)}, 0));
    }
    // The wire goes through the bows: on one side of a hole over the rim, on the other under it.
    const Mask over = canvas.mask(oneSide);
    wireStyle.clip = &over;
    canvas.part(wire, kMetal, wireStyle);
}

/// Keys slide down an upright handle to its end; on a shoulder they hang behind it, before the bowl.
void drawSpoonWithKeys(Canvas& canvas, double angle) {
    drawSpoon(canvas, kLongSpoonNeck, kMetal, kBowl);
    const bool upright = std::abs(std::sin(angle)) > 0.8;
    // Whatever way the spoon points, the keys hang down.
    const auto hung = canvas.placed({upright ? -9.2 : kLongSpoonNeck - 2.6, 0}, -angle);
    const auto aroundHandle = canvas.placed({0, -1.8});
    drawKeys(canvas, kThreeKeys);
}

/// Seen a little from above; the origin is the middle of the tin's underside.
void drawPie(Canvas& canvas) {
    constexpr Point kMiddle{0, -7};
    constexpr double kWide = 12.4;
    constexpr double kDeep = 5.2;
    canvas.part(loop({{-12, -6.6},
                      {-11, -3},
                      {-10, 0.4},
                      {-8.4, 0.8},
                      {-4, 1.6},
                      {4, 1.6},
                      {8.4, 0.8},
                      {10, 0.4},
                      {11, -3},
                      {12, -6.6},
                      {6, -3},
                      {-6, -3},
                      {-12, -6.6}}),
                kTin, {.bevel = 4, .line = 1.1});
    VectorPath crust = ellipse(kMiddle, kWide - 0.8, kDeep - 0.6);
    constexpr int kCrimps = 16;
    for (int i = 0; i < kCrimps; ++i) {
        const double turn = (i + 0.5) / kCrimps;
        crust.unite(ellipse(kMiddle + Point{(kWide - 1) * wave(turn), (kDeep - 0.7) * wave(turn + 0.25)}, 2.5, 1.9));
    }
    canvas.part(crust, kCrust, {.bevel = 2.4, .line = 1.1});
    const VectorPath filling = ellipse(kMiddle + Point{0, -0.4}, kWide - 3.2, kDeep - 1.5);
    canvas.part(filling, kPlum, {.bevel = 2, .line = 0.8, .shadow = 0});
    const Mask inFilling = canvas.mask(filling);
    for (const double slant : {-1.0, 1.0}) {
        for (const double x : {-9.0, -3.0, 3.0, 9.0}) {
            const Point at = kMiddle + Point{x, -0.4};
            canvas.part(polyline({at + Point{-4 * slant, -4}, at + Point{4 * slant, 4}}), kCrust,
                        {.bevel = 0.8, .line = 0.5, .shadow = 0.3F, .stroke = 1.5, .clip = &inFilling});
        }
    }
}

void drawCrumb(Canvas& canvas) {
    canvas.part(polygon({{-3.4, 1}, {-2, -2}, {0.4, -2.8}, {3.2, -1.4}, {2.4, 1.8}, {-1, 2.6}}, 0.8), kCrust,
                {.bevel = 2, .line = 0.9});
    canvas.part(ellipse({0.9, 0.6}, 1.2, 0.9), kPlum, {.bevel = 0.8, .line = 0.4, .shadow = 0});
}

/// A bib under two ends of a knot; the origin is the middle of its upper edge.
void drawNapkin(Canvas& canvas) {
    for (const double side : {-1.0, 1.0}) {
        canvas.part(polygon({{side * 6.4, 0.4}, {side * 11.6, -3.6}, {side * 12.2, 1.6}}, 1.2), kLinen,
                    {.bevel = 1.6, .line = 0.9});
    }
    const VectorPath bib = loop({{-8.4, -0.6},
                                 {-4, 1},
                                 {4, 1},
                                 {8.4, -0.6},
                                 {9.6, 3},
                                 {9.2, 8},
                                 {7.6, 11.4},
                                 {4, 13.4},
                                 {-4, 13.4},
                                 {-7.6, 11.4},
                                 {-9.2, 8},
                                 {-9.6, 3},
                                 {-8.4, -0.6}});
    canvas.part(bib, kLinen, {.bevel = 3, .line = 1.1});
    const Mask inBib = canvas.mask(bib);
    const FlatStyle thread{.alpha = 0.55F, .stroke = 0.7, .clip = &inBib};
    for (const double at : {-6.3, -2.1, 2.1, 6.3}) {
        canvas.flat(curve({{at * 0.86, -2}, {at, 3}, {at * 1.04, 9}, {at * 0.9, 15}}), kCheck, thread);
    }
    for (const double at : {2.6, 6.4, 10.2}) {
        canvas.flat(curve({{-11, at - 0.8}, {-4, at + 0.8}, {4, at + 0.8}, {11, at - 0.8}}), kCheck, thread);
    }
}

}  // namespace

void drawProp(Canvas& canvas, Point grip, const Held& held) {
    const auto placed = canvas.placed(grip, held.angle);
    const auto moved = canvas.placed({held.along, 0});
    switch (held.prop) {
        case Prop::None: return;
        case Prop::Spoon: return drawSpoon(canvas, kSpoonNeck, kMetal, kBowl);
        case Prop::GoldSpoon: return drawSpoon(canvas, kSpoonNeck, kGold, kGoldBowl);
        case Prop::SpoonWithKeys: return drawSpoonWithKeys(canvas, held.angle);
        case Prop::RollingPin: return drawRollingPin(canvas);
        case Prop::Pie: return drawPie(canvas);
        case Prop::Key: return drawCarriedKey(canvas);
        case Prop::Keys: return drawKeys(canvas, kFiveKeys);
        case Prop::Crumb: return drawCrumb(canvas);
        case Prop::Napkin: return drawNapkin(canvas);
    }
}

void drawKeyShape(Canvas& canvas, const Material& metal, bool trefoil) {
    const PartStyle tooth{.bevel = 2.2, .line = 1.3};
    canvas.part(limb({{{-2, 0}, 2.9}, {{19, 0}, 2.9}}), metal, {.bevel = 2.8, .line = 1.4});
    canvas.part(rectangle(10.3, 1, 4.6, 8.6, 1.2), metal, tooth);
    canvas.part(rectangle(16.8, 1, 4.6, 6.8, 1.2), metal, tooth);
    canvas.part(limb({{{-2, 0}, 2.9}, {{19, 0}, 2.9}}), metal, {.bevel = 2.8, .line = 0, .shadow = 0});
    canvas.part(rectangle(1.4, -4.4, 3.6, 8.8, 1.4), metal, {.bevel = 1.8, .line = 1.1});
    if (!trefoil) {
        canvas.part(ring(kKeyBow, 10.2, 4.6), metal, {.bevel = 2.8, .line = 1.4});
        return;
    }
    for (const Point lobe : {Point{-6, -6.4}, Point{-6, 6.4}, Point{-14, 0}}) {
        canvas.part(ring(lobe, 6.6, 2.6), metal, {.bevel = 2.1, .line = 1.3});
    }
    canvas.part(circle({-7, 0}, 3.4), metal, {.bevel = 2.4, .line = 0.9});
}

void drawSteam(Canvas& canvas, Point at, double turn) {
    constexpr Rgb kSteam = rgb(0xfff6e6);
    for (const double x : {-5.0, 0.0, 5.0}) {
        const double sway = 1.6 * wave(turn + 0.09 * x);
        const double high = x == 0 ? 16 : 12.5;
        const auto wisp = canvas.placed(at + Point{x, 0});
        const VectorPath line = curve({{0, -1.5},
                                       {-2.4 - sway, -0.25 * high},
                                       {2.2, -0.36 * high},
                                       {0.2 + sway, -0.58 * high},
                                       {-1.6, -0.76 * high},
                                       {1.4 - sway, -0.88 * high},
                                       {0.4 + sway, -high}});
        canvas.flat(line, kSteam, {.alpha = 0.28F, .stroke = 2.6});
        canvas.flat(line, kSteam, {.alpha = 0.5F, .stroke = 1.2});
    }
}

}  // namespace grub
