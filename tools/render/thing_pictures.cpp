#include "thing_pictures.h"

#include <array>
#include <numbers>

#include "masonry.h"
#include "palette.h"
#include "rig.h"
#include "shapes.h"
#include "sparkle.h"

namespace grub {

namespace {

// ---- keys: one picture each, since a key in a cell never moves; the sparkle is part of it

/// A key lying along its own x axis: bow on the left, bit on the right.
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

void drawKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({29.5, 37}, -0.55);
        drawKeyShape(canvas, kGold, false);
    }
    drawSparkle(canvas, {41, 19.5}, 7.5);
    drawSparkle(canvas, {15.5, 51}, 4.2);
}

void drawOrnateKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({31, 37.5}, -0.55);
        drawKeyShape(canvas, glossy(material(0xffd75a, 0xc07028, 0xfffbd0), 1, 0.6F), true);
    }
    drawSparkle(canvas, {19, 22}, 7.5);
    drawSparkle(canvas, {50, 40}, 4.2);
}

// ---- doors

/// What a door is made of; `bars` leaves look through.
struct DoorKind {
    Material frame;
    Material leaf;
    bool bars;
    bool square;
};

Material doorStone(Rgb colour) {
    Material stone = stony(colour, 0.8F, 0.1F, 0.2F);
    stone.rim = 0.25F;
    return stone;
}

Material planks(std::uint32_t base, std::uint32_t shadow, std::uint32_t light) {
    Material wood = glossy(material(base, shadow, light), 0.2F);
    wood.bump = 0.35F;
    wood.grain = 0.1F;
    return wood;
}

/// Opening or frame of a door: `half` wide on each side of the middle, `top` is its highest row, standing on the
/// ground.
VectorPath doorway(double half, double top, bool square) {
    constexpr double kSill = 66;
    if (square) {
        return polygon({{32 - half, kSill},
                        {32 - half, top + 5},
                        {32 - half + 6, top},
                        {32 + half - 6, top},
                        {32 + half, top + 5},
                        {32 + half, kSill}},
                       3);
    }
    const double spring = top + 22;
    return loop({{32 - half, kSill},
                 {32 - half, spring + 8},
                 {32 - half, spring + 4},
                 {32 - half, spring},
                 {32 - half, top + 8},
                 {32 - half * 0.56, top},
                 {32, top},
                 {32 + half * 0.56, top},
                 {32 + half, top + 8},
                 {32 + half, spring},
                 {32 + half, spring + 4},
                 {32 + half, spring + 8},
                 {32 + half, kSill}});
}

void drawFrame(Canvas& canvas, const DoorKind& kind) {
    canvas.part(doorway(28.5, 5, kind.square), kind.frame, {.bevel = 5, .line = 1.4});
    constexpr double kPi = std::numbers::pi;
    const Rgb joint = kind.frame.shadow * 0.7F;
    for (int i = 1; i < 6 && !kind.square; ++i) {
        const double angle = kPi + kPi * i / 6;
        const Point ray{std::cos(angle), std::sin(angle)};
        canvas.flat(polyline({Point{32, 32} + ray * 21.5, Point{32, 32} + ray * 26.6}), joint,
                    {.alpha = 0.6F, .stroke = 1});
    }
    for (const double x : {5.6, 53.4})
        canvas.flat(polyline({{x, 47}, {x + 5, 47}}), joint, {.alpha = 0.6F, .stroke = 1});
}

/// Golden light in the opening; it grows with `open`.
void drawLightBehind(Canvas& canvas, const Mask& opening, float open) {
    canvas.flat(ellipse({32, 62}, 24, 50), rgb(0xffc860), {.alpha = 0.9F * open, .clip = &opening});
    canvas.flat(ellipse({32, 64}, 17, 38), rgb(0xffe9a8), {.alpha = 0.9F * open, .clip = &opening});
    canvas.flat(ellipse({32, 66}, 10, 26), rgb(0xfffbe6), {.alpha = 0.95F * open, .clip = &opening});
}

void drawPlankLeaf(Canvas& canvas, const DoorKind& kind, const Mask& opening) {
    for (int i = 0; i < 5; ++i) {
        canvas.part(rectangle(10.4 + i * 8.7, 2, 8.3, 66, 1.4), kind.leaf,
                    {.bevel = 2.6, .line = 0.8, .shadow = 0.1F, .clip = &opening});
    }
    for (const double y : {24.0, 50.0}) {
        canvas.part(rectangle(9, y, 46, 5, 1.6), kMetal, {.bevel = 2.2, .line = 0.9, .clip = &opening});
        for (const double x : {15.0, 32.0, 49.0})
            canvas.part(circle({x, y + 2.5}, 1.3), kDarkMetal,
                        {.bevel = 1, .line = 0.4, .shadow = 0.1F, .clip = &opening});
    }
    canvas.part(circle({45.6, 40}, 3.3), kGold, {.bevel = 2.6, .line = 1, .clip = &opening});
}

void drawBarLeaf(Canvas& canvas, const DoorKind& kind, const Mask& opening) {
    for (const double x : {16.0, 24.0, 32.0, 40.0, 48.0}) {
        canvas.part(rectangle(x - 2.1, -8, 4.2, 70, 1), kind.leaf, {.bevel = 2.1, .line = 1, .clip = &opening});
        canvas.part(polygon({{x - 2.1, 61}, {x + 2.1, 61}, {x, 66}}), kind.leaf,
                    {.bevel = 1.6, .line = 0.9, .clip = &opening});
    }
    for (const double y : {14.0, 31.0, 48.0})
        canvas.part(rectangle(9, y, 46, 4.4, 1.4), kind.leaf, {.bevel = 2.1, .line = 1, .clip = &opening});
}

void drawSignal(Canvas& canvas, bool open) {
    const Material red = glossy(material(0xff5a4a, 0x8a1430, 0xffb09a), 1);
    const Material green = glossy(material(0x5fe08a, 0x117a52, 0xd0ffd8), 1);
    canvas.part(circle({32, 7.6}, 6.2), kDarkMetal, {.bevel = 2.2, .line = 1.1});
    canvas.part(circle({32, 7.4}, 4.5), open ? green : red, {.bevel = 3.6, .line = 0.7, .shadow = 0.1F});
    canvas.glow({32, 7.4}, 15, open ? rgb(0x7df0a0) : rgb(0xff5a4a), 0.4F);
}

/// `open` 0 shut, 1 drawn up.
void drawDoor(Canvas& canvas, const DoorKind& kind, double open) {
    drawFrame(canvas, kind);
    const VectorPath hole = doorway(21.5, 12, kind.square);
    canvas.flat(hole, rgb(0x140d1c));
    const Mask opening = canvas.mask(hole);
    const auto light = static_cast<float>(eased(open * 1.6));
    drawLightBehind(canvas, opening, kind.bars ? std::max(light, 0.12F) : light);
    {
        const auto raised = canvas.placed({0, -44 * eased(open)});
        kind.bars ? drawBarLeaf(canvas, kind, opening) : drawPlankLeaf(canvas, kind, opening);
    }
    canvas.flat(hole, kInk, {.alpha = 0.9F, .stroke = 1.2});
    if (open > 0) canvas.glow({32, 60}, 34, rgb(0xffd98a), 0.35F * light);
    drawSignal(canvas, open > 0);
}

const DoorKind& doorKind(std::size_t index) {
    static const std::array kKinds{
        DoorKind{doorStone(kTurma.solid[0]), planks(0x8a4f34, 0x48263a, 0xc98450), false, false},
        DoorKind{doorStone(kTurma.solid[1]), planks(0x6b3d3a, 0x351f36, 0xa8705a), false, true},
        DoorKind{doorStone(kTurma.solid[0]), kDarkMetal, true, false},
        DoorKind{doorStone(kTurma.solid[1]), glossy(material(0x8a6f4a, 0x40303a, 0xd8b070), 0.7F), true, true},
    };
    return kKinds[index];
}

template <std::size_t Kind>
void drawOpening(Canvas& canvas, FrameOf frame) {
    drawDoor(canvas, doorKind(Kind), frame.progress());
}

template <std::size_t Kind>
void drawShut(Canvas& canvas, FrameOf) {
    drawDoor(canvas, doorKind(Kind), 0);
}

constexpr std::array kPictures{
    //            name                      px  px frames
    PictureEntry{"key_h", 64, 64, 1, Ground::Clear, drawKey},
    PictureEntry{"key", 64, 64, 1, Ground::Clear, drawOrnateKey},
    PictureEntry{"dveri\\door_a", 64, 64, 10, Ground::Clear, drawOpening<0>},
    PictureEntry{"dveri\\door_b", 64, 64, 10, Ground::Clear, drawOpening<1>},
    PictureEntry{"dveri\\door_c", 64, 64, 10, Ground::Clear, drawOpening<2>},
    PictureEntry{"dveri\\door_d", 64, 64, 10, Ground::Clear, drawOpening<3>},
    PictureEntry{"dveri\\modul_dver_1a", 64, 64, 1, Ground::Clear, drawShut<0>},
    PictureEntry{"dveri\\modul_dver_1b", 64, 64, 1, Ground::Clear, drawShut<1>},
    PictureEntry{"dveri\\modul_dver_1c", 64, 64, 1, Ground::Clear, drawShut<2>},
    PictureEntry{"dveri\\modul_dver_1d", 64, 64, 1, Ground::Clear, drawShut<3>},
};

}  // namespace

std::span<const PictureEntry> thingPictures() { return kPictures; }

}  // namespace grub
