#include "common_room.h"

#include <array>
#include <cmath>
#include <numbers>

#include "common_parts.h"
#include "motion.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

/// How the leaf is made. One looks through bars.
enum class Leaf { Planks, Bars, Plates };

/// What a door is made of.
struct DoorKind {
    Material frame;
    Material leaf;
    Leaf shape;
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

/// Two riveted plates with a wheel between them.
void drawPlateLeaf(Canvas& canvas, const DoorKind& kind, const Mask& opening) {
    const PartStyle edge{.bevel = 3, .line = 0.9, .shadow = 0.15F, .clip = &opening};
    for (const double x : {8.0, 32.3}) canvas.part(rectangle(x, -4, 23.7, 72, 1.6), kind.leaf, edge);
    for (const double x : {13.5, 28.0, 36.0, 50.5}) {
        for (const double y : {18.0, 29.0, 47.0, 58.0})
            canvas.part(circle({x, y}, 1.4), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F, .clip = &opening});
    }
    const PartStyle spoke{.bevel = 1.2, .line = 0.9, .stroke = 2.6, .clip = &opening};
    canvas.part(polyline({{24.4, 38}, {39.6, 38}}), kMetal, spoke);
    canvas.part(polyline({{32, 30.4}, {32, 45.6}}), kMetal, spoke);
    canvas.part(ring({32, 38}, 9, 6), kMetal, {.bevel = 1.5, .line = 1, .clip = &opening});
}

void drawLeaf(Canvas& canvas, const DoorKind& kind, const Mask& opening) {
    switch (kind.shape) {
        case Leaf::Planks: return drawPlankLeaf(canvas, kind, opening);
        case Leaf::Bars: return drawBarLeaf(canvas, kind, opening);
        case Leaf::Plates: return drawPlateLeaf(canvas, kind, opening);
    }
}

void drawSignal(Canvas& canvas, bool open) {
    const Material red = glossy(material(0xff5a4a, 0x8a1430, 0xffb09a), 1);
    const Material green = glossy(material(0x5fe08a, 0x117a52, 0xd0ffd8), 1);
    canvas.part(circle({32, 7.6}, 6.2), kDarkMetal, {.bevel = 2.2, .line = 1.1});
    canvas.part(circle({32, 7.4}, 4.5), open ? green : red, {.bevel = 3.6, .line = 0.7, .shadow = 0.1F});
    canvas.glow({32, 7.4}, 15, open ? rgb(0x7df0a0) : rgb(0xff5a4a), 0.4F);
}

/// `open` 0 shut, 1 drawn up.
void drawDoorway(Canvas& canvas, const DoorKind& kind, double open) {
    drawFrame(canvas, kind);
    const VectorPath hole = doorway(21.5, 12, kind.square);
    canvas.flat(hole, rgb(0x140d1c));
    const Mask opening = canvas.mask(hole);
    const auto light = static_cast<float>(eased(open * 1.6));
    drawLightBehind(canvas, opening, kind.shape == Leaf::Bars ? std::max(light, 0.12F) : light);
    {
        const auto raised = canvas.placed({0, -44 * eased(open)});
        drawLeaf(canvas, kind, opening);
    }
    canvas.flat(hole, kInk, {.alpha = 0.9F, .stroke = 1.2});
    if (open > 0) canvas.glow({32, 60}, 34, rgb(0xffd98a), 0.35F * light);
}

void drawDoor(Canvas& canvas, const DoorKind& kind, double open) {
    drawDoorway(canvas, kind, open);
    drawSignal(canvas, open > 0);
}

/// Arched and square doors of wood and of bars for each world; jelezo has plates instead of wood.
const DoorKind& doorKind(std::size_t index) {
    constexpr auto steel = glossy(material(0x6d8792, 0x2d4252, 0xb8ced6), 0.5F);
    constexpr auto brass = glossy(material(0x8a6f4a, 0x40303a, 0xd8b070), 0.7F);
    constexpr auto rust = glossy(material(0x8f5a40, 0x43263a, 0xd09068), 0.3F);
    static const std::array kKinds{
        DoorKind{doorStone(kTurma.solid[0]), planks(0x8a4f34, 0x48263a, 0xc98450), Leaf::Planks, false},
        DoorKind{doorStone(kTurma.solid[1]), planks(0x6b3d3a, 0x351f36, 0xa8705a), Leaf::Planks, true},
        DoorKind{doorStone(kTurma.solid[0]), kDarkMetal, Leaf::Bars, false},
        DoorKind{doorStone(kTurma.solid[1]), brass, Leaf::Bars, true},
        DoorKind{doorStone(kJelezo.solid[0]), steel, Leaf::Plates, false},
        DoorKind{doorStone(kJelezo.solid[1]), rust, Leaf::Plates, true},
        DoorKind{doorStone(kJelezo.solid[0]), steel, Leaf::Bars, false},
        DoorKind{doorStone(kJelezo.solid[1]), brass, Leaf::Bars, true},
        DoorKind{doorStone(kPodval.solid[0]), planks(0x7a6038, 0x3a2c2c, 0xb89a60), Leaf::Planks, false},
        DoorKind{doorStone(kPodval.solid[1]), planks(0x5f6a3c, 0x2c3028, 0x9cab62), Leaf::Planks, true},
        DoorKind{doorStone(kPodval.solid[0]), rust, Leaf::Bars, false},
        DoorKind{doorStone(kPodval.solid[1]), kDarkMetal, Leaf::Bars, true},
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

/// A quarter of a gate of two by two cells that is only looked at: it has no lamp.
template <int Column, int Row>
void drawGate(Canvas& canvas, FrameOf) {
    const auto large = canvas.placed({-kCellSize * Column, -kCellSize * Row}, 0, 2, 2);
    drawDoorway(canvas, doorKind(5), 0);
}

constexpr int kOpening = 10;

constexpr std::array kStrips{
    //            name                               px  px frames
    StripDrawing{"dveri\\door_a", 64, 64, kOpening, Ground::Clear, drawOpening<0>},
    StripDrawing{"dveri\\door_b", 64, 64, kOpening, Ground::Clear, drawOpening<1>},
    StripDrawing{"dveri\\door_c", 64, 64, kOpening, Ground::Clear, drawOpening<2>},
    StripDrawing{"dveri\\door_d", 64, 64, kOpening, Ground::Clear, drawOpening<3>},
    StripDrawing{"dveri\\animation_door_iron_01", 64, 64, kOpening, Ground::Clear, drawOpening<4>},
    StripDrawing{"dveri\\animation_door_iron_02", 64, 64, kOpening, Ground::Clear, drawOpening<5>},
    StripDrawing{"dveri\\animation_door_iron_03", 64, 64, kOpening, Ground::Clear, drawOpening<6>},
    StripDrawing{"dveri\\animation_door_iron_04", 64, 64, kOpening, Ground::Clear, drawOpening<7>},
    StripDrawing{"dveri\\dverfin1", 64, 64, kOpening, Ground::Clear, drawOpening<8>},
    StripDrawing{"dveri\\dverfin2", 64, 64, kOpening, Ground::Clear, drawOpening<9>},
    StripDrawing{"dveri\\dverfin3", 64, 64, kOpening, Ground::Clear, drawOpening<10>},
    StripDrawing{"dveri\\dverfin4", 64, 64, kOpening, Ground::Clear, drawOpening<11>},
    StripDrawing{"dveri\\modul_dver_1a", 64, 64, 1, Ground::Clear, drawShut<0>},
    StripDrawing{"dveri\\modul_dver_1b", 64, 64, 1, Ground::Clear, drawShut<1>},
    StripDrawing{"dveri\\modul_dver_1c", 64, 64, 1, Ground::Clear, drawShut<2>},
    StripDrawing{"dveri\\modul_dver_1d", 64, 64, 1, Ground::Clear, drawShut<3>},
    StripDrawing{"dveri\\dverfin2-red", 64, 64, 1, Ground::Clear, drawShut<9>},
    StripDrawing{"dveri\\d11", 64, 64, 1, Ground::Joined, drawGate<0, 0>},
    StripDrawing{"dveri\\d12", 64, 64, 1, Ground::Joined, drawGate<1, 0>},
    StripDrawing{"dveri\\d21", 64, 64, 1, Ground::Joined, drawGate<0, 1>},
    StripDrawing{"dveri\\d22", 64, 64, 1, Ground::Joined, drawGate<1, 1>},
};

}  // namespace

std::span<const StripDrawing> doorStrips() { return kStrips; }

}  // namespace grub
