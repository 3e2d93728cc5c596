#include <array>

#include "common_parts.h"
#include "hall_set.h"
#include "kitchen.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kWidth = 776;
constexpr double kHeight = 276;

constexpr Rgb kRock = rgb(0x5a4150);
constexpr Rgb kSteam = rgb(0xfff1cf);

/// Where Grub's lamp is when he stands at the end of his tunnel, and the row of its floor.
constexpr Point kLamp{224, 130};
constexpr double kTunnelFloor = 262;

float share(std::uint32_t number, std::uint32_t which) { return randomShare(number, which, 21); }

/// Rock in layers that rise to the right, with stones in it.
void drawRock(Canvas& canvas) {
    drawGradient(canvas, {0, 0, kWidth, kHeight}, kRock, kRock * 0.62F);
    for (int layer = 0; layer < 7; ++layer) {
        const double y = 330 - layer * 44;
        const Rgb colour = layer % 2 == 0 ? kRock * 0.86F : kRock * 0.68F;
        canvas.part(loop({{-30, y},
                          {200, y - 60},
                          {420, y + 30},
                          {820, y - 90},
                          {820, y - 40},
                          {820, y - 40},
                          {820, y - 46},
                          {420, y + 74},
                          {200, y - 16},
                          {-30, y + 44},
                          {-30, y + 40},
                          {-30, y + 20},
                          {-30, y}}),
                    stony(colour, 1.1F, 0.1F, 0), {.bevel = 8, .line = 0, .shadow = 0.2F});
    }
    for (std::uint32_t i = 0; i < 44; ++i) {
        const Point at{kWidth * share(i, 1), kHeight * share(i, 2)};
        const double size = 6 + 15 * share(i, 3);
        canvas.part(ellipse(at, size, size * (0.6 + 0.3 * share(i, 4)), share(i, 5) - 0.5),
                    stony(varied(mix(kRock, rgb(0x7a5a50), share(i, 6)) * 0.9F, i, 0.14F), 1.2F, 0.12F, 0),
                    {.bevel = size * 0.5, .line = 1.1, .shadow = 0.35F});
    }
}

/// What Grub has dug so far.
VectorPath tunnel() {
    return limb(
        {{{-40, 262}, 52}, {{60, 244}, 60}, {{140, 214}, 74}, {{226, 186}, 92}, {{306, 188}, 82}, {{350, 196}, 70}});
}

void drawTunnel(Canvas& canvas) {
    const VectorPath dug = tunnel();
    canvas.part(dug, stony(rgb(0x34232f), 1.2F, 0.12F, 0), {.bevel = 16, .line = 2.6, .shadow = 0});
    const Mask inside = canvas.mask(dug);
    const auto group = canvas.group({.clip = &inside});
    for (std::uint32_t i = 0; i < 40; ++i) {  // marks of the spoon
        const Point at{420.0 * share(i, 11), 100 + 160.0 * share(i, 12)};
        canvas.part(ellipse(at, 11, 5, -0.7), stony(rgb(0x3a2838), 1, 0.1F, 0),
                    {.bevel = 3, .line = 0, .shadow = 0.3F});
    }
    canvas.part(rectangle(-20, kTunnelFloor, 480, 40, 3), stony(rgb(0x6e5058), 1.8F, 0.15F, 0),
                {.bevel = 5, .line = 1.6});
    canvas.glow({300, 170}, 230, rgb(0xffe2a0), 0.45F);
    for (const Joint& crumb :
         {Joint{{340, 256}, 9}, Joint{{356, 258}, 7}, Joint{{349, 246}, 7}, Joint{{372, 258}, 5}, Joint{{326, 259}, 4}})
        canvas.part(circle(crumb.at, crumb.radius), stony(rgb(0x8a6258), 1, 0.12F), {.bevel = 5, .line = 1.3});
}

/// The prison's foundations with its kitchen, cut open.
void drawKitchenAbove(Canvas& canvas) {
    const VectorPath foundation = polygon(
        {{532, -10}, {540, 40}, {530, 90}, {546, 150}, {580, 164}, {660, 156}, {720, 168}, {800, 150}, {800, -10}}, 10);
    canvas.part(foundation, stony(rgb(0x241c2c), 1, 0.1F), {.bevel = 4, .line = 2.4, .shadow = 0.6F});
    const Mask inside = canvas.mask(foundation);
    {
        const auto stones = canvas.group({.box = Rect{528, 0, kWidth - 528, 170}, .clip = &inside});
        drawHall(canvas, {.hall = Hall::Turma, .columns = 5, .rows = 3, .floorRow = -1}, {520, -20});
        canvas.shadeRows(0, 1, 0.62F, 0.62F);
    }
    const Rect room{562, 16, 190, 118};
    canvas.part(room.path(7), stony(rgb(0x2a1828), 0, 0), {.bevel = 2, .line = 2.4});
    const Mask opening = canvas.mask(room.path(7));
    const auto kitchen = canvas.group({.box = room, .clip = &opening});
    drawGradient(canvas, room, rgb(0x8a5a48), rgb(0x6a4248));
    drawShelf(canvas, {572, 58}, 78);
    drawHearth(canvas, {674, 36}, 0.68);
    canvas.glow({650, 40}, 150, kTurma.glow, 0.5F);
    drawPiece(canvas, "bonuses\\modul_stol_pust", {602, 122 - 62 * 0.95}, 0.95);
    for (int i = 0; i < 14; ++i)
        canvas.part(rectangle(room.x + i * 14, 122, 14, 13, 1), material(i % 2 == 0 ? rgb(0xc9a890) : rgb(0x6d4a5a)),
                    {.bevel = 2.5, .line = 0.8, .shadow = 0});
}

void drawTunnelToKitchen(Canvas& canvas, const Rect&) {
    drawRock(canvas);
    drawTunnel(canvas);
    canvas.dimAround({340, 150}, 520, 0.5F);
    drawKitchenAbove(canvas);
    canvas.glow({650, 90}, 210, kTurma.glow, 0.3F);
}

/// What is in the air before Grub: the light of his lamp, and the smell of pie, which finds a crack in the kitchen's
/// floor and winds down to his nose.
void drawSmell(Canvas& canvas, const Rect&) {
    drawCrack(canvas, {{628, 136}, {622, 146}, {627, 154}, {620, 166}}, 1);
    drawBeam(canvas, kLamp, 16, {470, 206}, 210, rgb(0xffe2a0), 0.5F);
    constexpr std::array kWay{Point{632, 90},  Point{640, 150}, Point{590, 160}, Point{560, 196}, Point{524, 236},
                              Point{490, 262}, Point{430, 246}, Point{370, 230}, Point{310, 216}, Point{252, 172}};
    drawRibbon(canvas, kWay, 26, kSteam, 0.35F);
}

constexpr std::array kSets{
    //         name         px   px
    SetDrawing{"tunnel", 776, 276, drawTunnelToKitchen},
    SetDrawing{"pie-smell", 776, 276, drawSmell, true},
};

}  // namespace

std::span<const SetDrawing> tunnelSets() { return kSets; }

}  // namespace grub
