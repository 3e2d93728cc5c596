#include "jelezo_room.h"

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "common_parts.h"
#include "jelezo_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Material kBrass = glossy(material(0x937241, 0x4a3230, 0xc0a46e), 0.7F, 0.4F);
constexpr Material kRust = glossy(material(0x784636, 0x382036, 0xa87054), 0.3F);
constexpr Rgb kHollow = rgb(0x0e1820);

// ---- machines

VectorPath gear(Point centre, double radius, int teeth, double turn) {
    std::vector<Point> corners;
    for (int i = 0; i < teeth * 4; ++i) {
        const double angle = turn + 2 * std::numbers::pi * (i + 0.5) / (teeth * 4);
        const double reach = i % 4 < 2 ? radius : radius * 0.78;
        corners.push_back(centre + Point{reach * std::cos(angle), reach * std::sin(angle)});
    }
    return polygon(corners, 1);
}

void drawGear(Canvas& canvas, const Material& metal, Point centre, double radius, int teeth, double turn = 0) {
    canvas.part(gear(centre, radius, teeth, turn), metal, {.bevel = 2.6, .line = 1.1});
    canvas.part(ring(centre, radius * 0.6, radius * 0.4), metal, {.bevel = 1.4, .line = 0.8, .shadow = 0.2F});
    canvas.flat(circle(centre, radius * 0.16), kHollow);
}

void drawGears(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(7, 8, 50, 54, 5), kMachineCasing, {.bevel = 4, .line = 1.3});
    const VectorPath window = rectangle(13, 14, 38, 42, 4);
    canvas.flat(window, kHollow);
    const Mask inside = canvas.mask(window);
    {
        const auto works = canvas.group({.clip = &inside});
        drawGear(canvas, kBrass, {25, 28}, 13, 9);
        drawGear(canvas, kMachineSteel, {41, 43}, 10.5, 8, 0.2);
        drawGear(canvas, kRust, {22, 50}, 8, 7, 0.1);
    }
    canvas.flat(window, kInk, {.alpha = 0.8F, .stroke = 1.2});
}

void drawDial(Canvas& canvas, Point at, double radius, double angle) {
    canvas.part(circle(at, radius), kBrass, {.bevel = 2, .line = 1});
    canvas.flat(circle(at, radius * 0.7), rgb(0xb8b29e));
    canvas.flat(polyline({at, at + Point{std::cos(angle), std::sin(angle)} * (radius * 0.6)}), rgb(0xb03038),
                {.stroke = 1.2});
}

void drawBoiler(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(27, 0.8, 10, 14, 2), kMachineSteel, {.bevel = 4, .line = 1.1});
    canvas.part(rectangle(9, 8, 46, 48, 16), kMachineCasing, {.bevel = 16, .line = 1.4});
    for (const double y : {21.0, 44.0}) canvas.part(rectangle(8, y, 48, 4.6, 1.6), kBrass, {.bevel = 2.2, .line = 0.9});
    for (const double x : {16.0, 44.0})
        canvas.part(rectangle(x - 4, 54, 10, 8, 2), kMachineSteel, {.bevel = 2.4, .line = 1});
    drawDial(canvas, {32, 34}, 8, -0.9);
}

void drawControls(Canvas& canvas, FrameOf) {
    canvas.part(polygon({{8, 62}, {10, 34}, {16, 24}, {48, 24}, {54, 34}, {56, 62}}, 3), kMachineCasing,
                {.bevel = 4, .line = 1.3});
    canvas.part(rectangle(13, 6, 38, 22, 4), kMachineSteel, {.bevel = 3, .line = 1.2});
    drawDial(canvas, {23, 16.6}, 7, -2.2);
    drawDial(canvas, {41, 16.6}, 7, -0.6);
    for (int i = 0; i < 3; ++i) {
        const double x = 20 + 12 * i;
        canvas.part(circle({x, 36}, 2.6), glossy(material(i == 1 ? 0xd8a040 : 0x7a5a48, 0x4a2c30, 0xffe0a0), 0.9F),
                    {.bevel = 2, .line = 0.8});
        canvas.part(rectangle(x - 1.6, 43, 3.2, 12, 1.4), material(kHollow * 1.4F), {.bevel = 1.2, .line = 0.6});
        canvas.part(circle({x, 46.0 + 3 * (i % 2)}, 2.8), kRust, {.bevel = 2, .line = 0.8});
    }
}

void drawFan(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(5, 5, 54, 54, 6), kMachineCasing, {.bevel = 4, .line = 1.3});
    canvas.flat(circle({32, 32}, 22), kHollow);
    for (int i = 0; i < 4; ++i) {
        const auto blade = canvas.placed({32, 32}, std::numbers::pi * i / 2 + 0.3);
        canvas.part(
            loop({{2, -2}, {8, -12}, {16, -15}, {19.5, -9}, {18, -3}, {10, 0}, {2, 2}, {1, 1}, {1, -1}, {2, -2}}),
            kMachineSteel, {.bevel = 3, .line = 0.9});
    }
    canvas.part(circle({32, 32}, 5), kBrass, {.bevel = 3.4, .line = 1});
    canvas.part(ring({32, 32}, 24.4, 21.4), kMachineSteel, {.bevel = 1.5, .line = 1});
    for (const double x : {10.4, 53.6}) {
        for (const double y : {10.4, 53.6}) canvas.part(circle({x, y}, 2), kMachineSteel, {.bevel = 1.7, .line = 0.6});
    }
}

void drawPress(Canvas& canvas, FrameOf) {
    for (const double x : {8.0, 46.0})
        canvas.part(rectangle(x, 6, 10, 56, 2.4), kMachineCasing, {.bevel = 3.4, .line = 1.2});
    canvas.part(rectangle(5, 4, 54, 11, 3), kMachineCasing, {.bevel = 3.4, .line = 1.3});
    canvas.part(rectangle(28, 14, 8, 16, 1.4), kMachineSteel, {.bevel = 3.6, .line = 1});
    canvas.part(rectangle(20, 28, 24, 9, 2.4), kMachineSteel, {.bevel = 3, .line = 1.1});
    canvas.part(rectangle(17, 48, 30, 14, 2.4), kRust, {.bevel = 3.4, .line = 1.2});
    canvas.part(rectangle(24, 44.4, 16, 4.4, 1.6), glossy(material(0xff9a3c, 0xb8402a, 0xffe08a), 0.2F),
                {.bevel = 2, .line = 0.8});
    canvas.halo({32, 45}, 15, kJelezo.glow, 0.35F);
}

/// A furnace of two by two cells, drawn once and cut in four.
template <int Column, int Row>
void drawFurnace(Canvas& canvas, FrameOf) {
    const auto whole = canvas.placed({-kCellSize * Column, -kCellSize * Row});
    canvas.part(rectangle(46, 1, 36, 34, 4), kMachineCasing, {.bevel = 8, .line = 1.3});
    canvas.part(rectangle(10, 24, 108, 102, 16), stony(kJelezo.solid[1] * 0.62F, 0.8F, 0.12F, 0.2F),
                {.bevel = 9, .line = 1.5});
    for (const double y : {40.0, 106.0}) canvas.part(rectangle(8, y, 112, 8, 2), kRust, {.bevel = 3, .line = 1.1});
    for (const double x : {16.0, 40.0, 64.0, 88.0, 112.0}) {
        for (const double y : {44.0, 110.0})
            canvas.part(circle({x, y}, 2.2), kMachineSteel, {.bevel = 1.8, .line = 0.6});
    }
    const VectorPath mouth =
        loop({{34, 100}, {34, 76}, {40, 58}, {64, 58}, {88, 58}, {94, 76}, {94, 100}, {94, 101}, {34, 101}, {34, 100}});
    canvas.part(mouth, kMachineSteel, {.bevel = 3, .line = 1.2, .stroke = 7});
    canvas.flat(mouth, rgb(0x2a1210));
    const Mask inside = canvas.mask(mouth);
    canvas.flat(ellipse({64, 104}, 38, 40), rgb(0xff6a24), {.alpha = 0.85F, .clip = &inside});
    canvas.flat(ellipse({64, 105}, 26, 26), rgb(0xffb044), {.alpha = 0.9F, .clip = &inside});
    canvas.flat(ellipse({64, 106}, 15, 14), rgb(0xfff0a8), {.alpha = 0.9F, .clip = &inside});
    for (const double x : {44.0, 54.0, 64.0, 74.0, 84.0})
        canvas.part(rectangle(x - 1.7, 56, 3.4, 48, 1), kDarkMetal, {.bevel = 1.7, .line = 0.9, .clip = &inside});
    canvas.glow({64, 92}, 62, kJelezo.glow, 0.45F);
}

// ---- things

void drawCagedLamp(Canvas& canvas, FrameOf) {
    canvas.halo({32, 24}, 23, kJelezo.glow, 0.5F);
    drawBulkheadLamp(canvas, {32, 24});
}

void drawCart(Canvas& canvas, FrameOf) {
    for (const Joint& lump : {Joint{{20, 27}, 7}, Joint{{32, 23}, 8.4}, Joint{{44, 27}, 7}, Joint{{27, 28}, 6}})
        canvas.part(circle(lump.at, lump.radius), stony(rgb(0x34323e), 1.4F, 0.2F, 0.3F), {.bevel = 5, .line = 1.1});
    canvas.part(polygon({{7, 28}, {57, 28}, {50, 53}, {14, 53}}, 3), kRust, {.bevel = 5, .line = 1.4});
    canvas.part(rectangle(5, 26, 54, 5.4, 2), kMachineSteel, {.bevel = 2.4, .line = 1.1});
    for (const double x : {17.0, 47.0}) {
        canvas.flat(polyline({{x + (32 - x) * 0.05, 33}, {x + (32 - x) * 0.2, 51}}), kInk,
                    {.alpha = 0.45F, .stroke = 1.2});
        canvas.part(circle({x + (32 - x) * 0.1, 55}, 7), kDarkMetal, {.bevel = 2.6, .line = 1.2});
        canvas.part(circle({x + (32 - x) * 0.1, 55}, 2.4), kMachineSteel, {.bevel = 1.8, .line = 0.7});
    }
}

/// A chain that hangs through the cell.
void drawLongChain(Canvas& canvas, FrameOf) {
    for (int i = -1; i < 6; ++i) {
        const double y = 12.8 * i + 6.4;
        canvas.part(ellipse({32, y}, 3.2, 5.2), kMachineSteel, {.bevel = 1, .line = 0.8, .stroke = 2});
        canvas.part(polyline({{32, y + 4.8}, {32, y + 8}}), kMachineSteel, {.bevel = 1, .line = 0.8, .stroke = 2.4});
    }
}

/// Heavy shackles on one plate.
void drawIronShackles(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(24, 6, 16, 9, 2.4), kMachineCasing, {.bevel = 2.6, .line = 1.1});
    for (const double side : {-1.0, 1.0}) {
        for (int i = 0; i < 3; ++i) {
            canvas.part(ellipse({32 + side * (6 + 3 * i), 19.0 + 6.4 * i}, 2.2, 4, -side * 0.4), kMachineSteel,
                        {.bevel = 0.9, .line = 0.7, .stroke = 1.7});
        }
        canvas.part(ring({32 + side * 15, 44}, 9, 5.8), kDarkMetal, {.bevel = 1.8, .line = 1.1});
        canvas.part(rectangle(32 + side * 15 - 2.4, 33.6, 4.8, 4.6, 1), kMachineSteel, {.bevel = 1.6, .line = 0.8});
    }
}

/// A fork as large as a spade, hung up by its handle, for large eaters.
void drawFork(Canvas& canvas, FrameOf) {
    canvas.part(circle({32, 6.4}, 2.8), kDarkMetal, {.bevel = 2, .line = 0.9});
    canvas.part(limb({{{32, 9}, 3.4}, {{32, 20}, 2.2}, {{32, 36}, 2.4}}), kMachineSteel, {.bevel = 2.4, .line = 1.1});
    for (const double x : {23.6, 29.2, 34.8, 40.4})
        canvas.part(limb({{{x, 42}, 1.9}, {{x, 57}, 1.2}}), kMachineSteel, {.bevel = 1.6, .line = 1});
    canvas.part(loop({{21.8, 43},
                      {21.8, 36},
                      {27, 34},
                      {32, 34},
                      {37, 34},
                      {42.2, 36},
                      {42.2, 43},
                      {42.2, 46},
                      {21.8, 46},
                      {21.8, 43}}),
                kMachineSteel, {.bevel = 2.6, .line = 1});
}

constexpr std::array kStrips{
    //            name                      px  px frames
    StripDrawing{"fon\\mashine1", 64, 64, 1, Ground::Clear, drawGears},
    StripDrawing{"fon\\mashine2", 64, 64, 1, Ground::Clear, drawBoiler},
    StripDrawing{"fon\\mashine3", 64, 64, 1, Ground::Clear, drawControls},
    StripDrawing{"fon\\mashine4", 64, 64, 1, Ground::Clear, drawFan},
    StripDrawing{"fon\\mashine5", 64, 64, 1, Ground::Clear, drawPress},
    StripDrawing{"fon\\p11", 64, 64, 1, Ground::Joined, drawFurnace<0, 0>},
    StripDrawing{"fon\\p12", 64, 64, 1, Ground::Joined, drawFurnace<1, 0>},
    StripDrawing{"fon\\p21", 64, 64, 1, Ground::Joined, drawFurnace<0, 1>},
    StripDrawing{"fon\\p22", 64, 64, 1, Ground::Joined, drawFurnace<1, 1>},
    StripDrawing{"fon\\lampa1_proz", 64, 64, 1, Ground::Clear, drawCagedLamp},
    StripDrawing{"jelezo\\telek_jel", 64, 64, 1, Ground::Clear, drawCart},
    StripDrawing{"sten_jel\\chain_proz", 64, 64, 1, Ground::Joined, drawLongChain},
    StripDrawing{"sten_jel\\kand_proz", 64, 64, 1, Ground::Clear, drawIronShackles},
    StripDrawing{"sten_jel\\vilka", 64, 64, 1, Ground::Clear, drawFork},
};

}  // namespace

std::span<const StripDrawing> jelezoDecorStrips() { return kStrips; }

}  // namespace grub
