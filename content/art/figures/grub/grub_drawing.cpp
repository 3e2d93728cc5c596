#include "grub_drawing.h"

#include "figure.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kSkin = glossy(material(0xf6d7a2, 0xb8715a, 0xfff3cf), 0.25F);
constexpr Material kFarSkin = glossy(material(0xd9a877, 0x8f5350, 0xf0cd98), 0.1F);
constexpr Material kShirt = glossy(material(0x22a79b, 0x0d5a72, 0x7be3c4), 0.15F);
constexpr Material kFarShirt = glossy(material(0x17807f, 0x0b465c, 0x2fa79b), 0.1F);
constexpr Material kTrousers = glossy(material(0x1f6f86, 0x123a5c, 0x4fb0b8), 0.1F);
constexpr Material kFarTrousers = glossy(material(0x165468, 0x0f2f4c, 0x2f7f90), 0.05F);
constexpr Material kBoot = glossy(material(0x8a4a2e, 0x46223a, 0xd08a50), 0.5F);
constexpr Material kFarBoot = glossy(material(0x64362c, 0x351c34, 0x8a5138), 0.2F);
constexpr Material kHair = glossy(material(0x7a4630, 0x40213a, 0xb07848), 0.3F);
constexpr Material kHelmet = glossy(material(0xf0592b, 0x9a1f3c, 0xffb066), 0.85F, 0.5F);
constexpr Material kLamp = glossy(material(0xfff2b0, 0xe0a23a, 0xffffff), 1);
constexpr Material kBowl = glossy(material(0x8b98ae, 0x59657f, 0xcfd9e6), 0.2F);

constexpr Rgb kStripe = rgb(0xfff1d6);
constexpr Rgb kMouth = rgb(0x5a2632);
constexpr Rgb kBlush = rgb(0xf08f6c);
constexpr Rgb kIris = rgb(0x3a2030);
constexpr Rgb kSole = rgb(0x2b1a2c);

VectorPath bodyShape() {
    return loop({{32, 9},
                 {41, 9},
                 {45, 17},
                 {45, 25},
                 {45, 31},
                 {47.4, 34},
                 {47.4, 39.6},
                 {47.4, 46.6},
                 {40, 50},
                 {32, 50},
                 {24, 50},
                 {16.6, 46.6},
                 {16.6, 39.6},
                 {16.6, 34},
                 {19, 31},
                 {19, 25},
                 {19, 17},
                 {23, 9},
                 {32, 9}});
}

/// A band across the belly that follows its round; from `y` at the sides, `thickness` pixels high.
VectorPath belt(double y, double thickness) {
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

void drawTorso(Canvas& canvas) {
    const VectorPath body = bodyShape();
    canvas.part(body, kSkin, {.bevel = 12, .line = 1.2});
    const Mask inBody = canvas.mask(body);
    canvas.part(belt(34, 30), kShirt, {.bevel = 11, .line = 0.9, .shadow = 0.25F, .clip = &inBody});
    for (const double y : {38.0, 43.4}) canvas.flat(belt(y, 2.5), kStripe, {.alpha = 0.9F, .clip = &inBody});
    canvas.shadeRows(41, 51, 1, 0.62F, &inBody);
}

void drawEye(Canvas& canvas, Point at, double radius, const Face& face) {
    const VectorPath ball = ellipse(at, radius * 0.92, radius * 1.12);
    canvas.part(ball, kEnamel, {.bevel = 2, .line = 0.8, .shadow = 0.2F});
    const Mask inEye = canvas.mask(ball);
    const Point pupil = at + face.look * (radius * 0.36);
    canvas.flat(ellipse(pupil, radius * 0.56, radius * 0.66), kIris, {.clip = &inEye});
    canvas.flat(circle(pupil + Point{-radius * 0.2, -radius * 0.28}, radius * 0.21), rgb(0xffffff));
    if (face.lid <= 0) return;
    const double drop = radius * (0.2 + 2.3 * face.lid);
    canvas.part(rectangle(at.x - 2 * radius, at.y - 2 * radius, 4 * radius, drop + radius * 0.8), kSkin,
                {.bevel = 2, .line = 0.8, .shadow = 0, .clip = &inEye});
}

void drawMouth(Canvas& canvas, Mouth mouth, double turn) {
    switch (mouth) {
        case Mouth::Smile:
            canvas.flat(curve({{28.6 + turn, 32.2}, {30.6 + turn, 35.4}, {35.6 + turn, 35.6}, {37.8 + turn, 31.6}}),
                        kMouth, {.stroke = 1.3});
            break;
        case Mouth::Open:
            canvas.flat(ellipse({33 + turn, 33.6}, 2.5, 2.9), kMouth);
            canvas.flat(ellipse({33 + turn, 35}, 1.6, 1.1), rgb(0xd8636a));
            break;
        case Mouth::Grit:
            canvas.flat(rectangle(29.4 + turn, 31.8, 7.4, 3.4, 1.4), kMouth);
            canvas.flat(rectangle(30.2 + turn, 32.5, 5.8, 1.8, 0.7), rgb(0xffffff));
            break;
    }
}

void drawFace(Canvas& canvas, const Face& face) {
    const double t = face.turn;
    for (const Point cheek : {Point{23.6 + t, 31.4}, Point{41.8 + t * 0.5, 31.2}}) {
        canvas.flat(ellipse(cheek, 2.6, 1.7), kBlush, {.alpha = 0.5F});
    }
    drawMouth(canvas, face.mouth, t);
    drawEye(canvas, {37.4 + t * 0.8, 25.6}, 4.6, face);
    drawEye(canvas, {28 + t, 25.6}, 5.1, face);
    canvas.part(ellipse({33.4 + t * 1.4, 29.6}, 2.6, 2.2), kSkin, {.bevel = 2.4, .line = 0.7, .shadow = 0.25F});
    const double brow = 20.8 - face.brow;
    canvas.flat(curve({{25 + t, brow + 0.6}, {26.6 + t, brow - 1}, {29 + t, brow - 1}, {31 + t, brow}}), kMouth,
                {.stroke = 1.2});
    canvas.flat(curve({{35.6 + t, brow}, {37.2 + t, brow - 1}, {38.8 + t, brow - 1}, {40.4 + t, brow + 0.6}}), kMouth,
                {.stroke = 1.2});
}

/// Hair below the helmet: all round the back of the head, or what shows of it behind the cheek.
void drawHairBehind(Canvas& canvas) {
    const Mask inBody = canvas.mask(bodyShape());
    VectorPath hair = rectangle(14, 12, 36, 13.5, 3);
    for (int i = 0; i < 6; ++i) hair.unite(circle({20.5 + 4.6 * i, 25}, 2.9));
    canvas.part(hair, kHair, {.bevel = 3, .line = 0.9, .shadow = 0.25F, .clip = &inBody});
}

void drawHairAtCheek(Canvas& canvas) {
    const Mask inBody = canvas.mask(bodyShape());
    canvas.part(limb({{{18.6, 14}, 4}, {{18.8, 24.5}, 3.4}}), kHair,
                {.bevel = 3, .line = 0.8, .shadow = 0.2F, .clip = &inBody});
}

void drawHelmetLamp(Canvas& canvas, double turn) {
    const Point at{32 + turn * 1.6, 12.6};
    canvas.part(circle(at, 5), kMetal, {.bevel = 2.2});
    canvas.part(circle(at, 3.4), kLamp, {.bevel = 2.5, .line = 0.5, .shadow = 0});
}

void drawHelmet(Canvas& canvas, double turn) {
    const VectorPath dome = loop({{18.2, 20.6},
                                  {16.6, 8.4},
                                  {24, 4.2},
                                  {32, 4.2},
                                  {40, 4.2},
                                  {47.4, 8.4},
                                  {45.8, 20.6},
                                  {38, 17.6},
                                  {26, 17.6},
                                  {18.2, 20.6}});
    canvas.part(dome, kHelmet, {.bevel = 9, .line = 1.2});
    const VectorPath brim = loop({{16, 20.6},
                                  {24, 16},
                                  {40, 16},
                                  {48, 20.6},
                                  {48.8, 23},
                                  {46.6, 23.8},
                                  {45.4, 23},
                                  {39, 19.8},
                                  {25, 19.8},
                                  {18.6, 23},
                                  {17.4, 23.8},
                                  {15.2, 23},
                                  {16, 20.6}});
    canvas.part(brim, kHelmet, {.bevel = 2.4, .line = 1, .shadow = 0.5F});
    const double x = 32 + turn;
    const double lean = turn * 0.2;
    canvas.part(loop({{x - 1.6, 4.6},
                      {x - 1, 3.2},
                      {x + 1, 3.2},
                      {x + 1.6, 4.6},
                      {x + 2.6 + lean, 9},
                      {x + 2.8 + lean, 13},
                      {x + 2.6 + lean, 16.4},
                      {x + 1, 17},
                      {x - 1, 17},
                      {x - 2.6 + lean, 16.4},
                      {x - 2.8 + lean, 13},
                      {x - 2.6, 9},
                      {x - 1.6, 4.6}}),
                kHelmet, {.bevel = 1.6, .line = 0.6, .shadow = 0.3F});
}

void drawBoot(Canvas& canvas, Point sole, double angle, Side side) {
    const auto foot = canvas.placed(sole, angle);
    const VectorPath boot = loop({{-5, -7.6},
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
                                  {-5, -7.6}});
    canvas.part(boot, side == Side::Near ? kBoot : kFarBoot, {.bevel = 3.6, .line = 1.2});
    canvas.flat(rectangle(-5, -1.7, 13.6, 1.7, 0.7), kSole, {.alpha = 0.8F});
}

}  // namespace

void drawHeroBody(Canvas& canvas, const Face& face, double helmetLag) {
    drawTorso(canvas);
    if (face.turn > 1) drawHairAtCheek(canvas);
    drawFace(canvas, face);
    const auto late = canvas.placed({0, helmetLag});
    drawHelmet(canvas, face.turn);
    drawHelmetLamp(canvas, face.turn);
}

void drawHeroBack(Canvas& canvas, double helmetLag) {
    drawTorso(canvas);
    drawHairBehind(canvas);
    const auto late = canvas.placed({0, helmetLag});
    drawHelmet(canvas, 0);
}

void drawHeroLeg(Canvas& canvas, Point hip, Point sole, double angle, Side side) {
    const Point ankle = sole + Point{-0.6, -6.4};
    const Point knee = jointOf(hip, ankle, 7.2, 7.2, -1);
    canvas.part(limb({{hip, 4.2}, {knee, 3.9}, {ankle, 3.4}}), side == Side::Near ? kTrousers : kFarTrousers,
                {.bevel = 3.6, .line = 1.2});
    drawBoot(canvas, sole, angle, side);
}

void drawHeroLegFromBehind(Canvas& canvas, Point hip, Point sole) {
    const Point ankle = sole + Point{0, -6};
    canvas.part(limb({{hip, 4.2}, {ankle, 3.4}}), kTrousers, {.bevel = 3.6, .line = 1.2});
    canvas.part(rectangle(sole.x - 4.6, sole.y - 8, 9.2, 8, 3.6), kBoot, {.bevel = 3.8, .line = 1.2});
    canvas.flat(rectangle(sole.x - 4.4, sole.y - 1.7, 8.8, 1.7, 0.8), kSole, {.alpha = 0.8F});
}

void drawHeroHand(Canvas& canvas, Point at, Side side) {
    canvas.part(circle(at, 3.7), side == Side::Near ? kSkin : kFarSkin, {.bevel = 3.7});
}

void drawHeroArm(Canvas& canvas, Point shoulder, Point hand, double bend, Side side, double bone) {
    if (bone <= 0) bone = std::max(7.0, length(hand - shoulder) / 2 * 1.05);
    const bool nearSide = side == Side::Near;
    const Point elbow = jointOf(shoulder, hand, bone, bone, bend);
    canvas.part(limb({{shoulder, 3.2}, {elbow, 3.0}, {hand, 2.7}}), nearSide ? kSkin : kFarSkin, {.bevel = 3});
    const Point cuff = mix(shoulder, elbow, 0.6);
    canvas.part(limb({{shoulder, 4}, {cuff, 3.8}}), nearSide ? kShirt : kFarShirt, {.bevel = 3.6, .shadow = 0.25F});
    drawHeroHand(canvas, hand, side);
}

void drawSpoon(Canvas& canvas, Point grip, double angle) {
    const auto held = canvas.placed(grip, angle);
    canvas.part(limb({{{-10.5, 0}, 1.9}, {{-8, 0}, 1.4}, {{8, 0}, 1.5}}), kMetal, {.bevel = 1.6, .line = 1.1});
    canvas.part(ellipse({13.4, 0}, 7.2, 5.8), kMetal, {.bevel = 4.2, .line = 1.2});
    canvas.part(ellipse({13.6, 0.2}, 4.8, 3.5), kBowl, {.bevel = 3, .line = 0, .shadow = 0});
}

}  // namespace grub
