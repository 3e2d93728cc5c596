#include "props.h"

#include <numbers>

#include "motion.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kBowl = glossy(material(0x8b98ae, 0x59657f, 0xcfd9e6), 0.2F);
constexpr Material kCrust = glossy(material(0xe6a94e, 0x9a5a34, 0xffe0a0), 0.4F);
constexpr Material kPlum = glossy(material(0x7c2c63, 0x3c143c, 0xd477a8), 0.9F);
constexpr Material kTin = glossy(material(0x9aa6b8, 0x46506c, 0xe4eef6), 0.9F, 0.5F);
constexpr Material kLinen = glossy(material(0xfbf0e0, 0xb9a3b4, 0xffffff), 0.1F);

constexpr Rgb kCheck = rgb(0xa2588c);

/// Size of a key that is carried, as a share of one that lies in a cell.
constexpr double kCarriedKey = 0.42;

void drawSpoon(Canvas& canvas) {
    canvas.part(limb({{{-10.5, 0}, 1.9}, {{-8, 0}, 1.4}, {{8, 0}, 1.5}}), kMetal, {.bevel = 1.6, .line = 1.1});
    canvas.part(ellipse({13.4, 0}, 7.2, 5.8), kMetal, {.bevel = 4.2, .line = 1.2});
    canvas.part(ellipse({13.6, 0.2}, 4.8, 3.5), kBowl, {.bevel = 3, .line = 0, .shadow = 0});
}

void drawRollingPin(Canvas& canvas) {
    canvas.part(limb({{{-3, 0}, 1.7}, {{5, 0}, 1.5}}), kWood, {.bevel = 1.5, .line = 1});
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

/// Five keys that fan out from a ring, whose top is the origin.
void drawKeys(Canvas& canvas) {
    constexpr double kRing = 4.6;
    constexpr double kKey = 0.32;
    /// Radians from key to key, and from the ring's middle to where the bows end.
    constexpr double kFan = 0.58;
    constexpr double kBows = 1.6;
    const auto atRing = canvas.placed({0, kRing});
    canvas.part(ring({}, kRing, kRing - 1.2), kMetal, {.bevel = 0.6, .line = 0.9});
    for (const double place : {-2.0, 2.0, -1.0, 1.0, 0.0}) {
        const auto turned = canvas.placed({}, kFan * place + std::numbers::pi / 2);
        const auto key = canvas.placed({kBows + 19.6 * kKey, 0}, 0, kKey, kKey);
        drawKeyShape(canvas, kGold, false);
    }
    // The ring goes through the bows: in front of them there is a piece of it.
    const double r = kRing - 0.6;
    canvas.part(curve({{-r, 0}, {-r, 1.33 * r}, {r, 1.33 * r}, {r, 0}}), kMetal,
                {.bevel = 0.6, .line = 0.7, .shadow = 0.2F, .stroke = 1.2});
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
    switch (held.prop) {
        case Prop::None: return;
        case Prop::Spoon: return drawSpoon(canvas);
        case Prop::SpoonWithKeys: {
            drawSpoon(canvas);
            // Whatever way the spoon points, the keys hang down.
            const auto hung = canvas.placed({-9.4, 0}, -held.angle);
            return drawKeys(canvas);
        }
        case Prop::RollingPin: return drawRollingPin(canvas);
        case Prop::Pie: return drawPie(canvas);
        case Prop::Key: return drawCarriedKey(canvas);
        case Prop::Keys: return drawKeys(canvas);
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
        canvas.part(ring({-9.4, 0}, 10.2, 4.6), metal, {.bevel = 2.8, .line = 1.4});
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
