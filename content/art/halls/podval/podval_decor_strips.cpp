#include "podval_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Rgb kHollow = rgb(0x11120e);
constexpr Material kSlime = glossy(material(0x7d9a4a, 0x37502f, 0xc4dc86), 0.8F, 0.3F);

Material fieldStone(float brightness) { return stony(kPodval.solid[1] * brightness, 1, 0.13F, 0.1F); }

// ---- the hearth: two by two cells, drawn once and cut in four

void drawHearthFire(Canvas& canvas, const Mask& inside) {
    canvas.flat(ellipse({64, 116}, 36, 40), rgb(0xd8541f), {.alpha = 0.7F, .clip = &inside});
    for (const double x : {50.0, 64.0, 78.0}) {
        const double tip = x == 64 ? 80 : 90;
        canvas.part(loop({{x, tip},
                          {x + 6, tip + 9},
                          {x + 10, 100},
                          {x + 10, 106},
                          {x + 10, 113},
                          {x + 5, 115},
                          {x, 115},
                          {x - 5, 115},
                          {x - 10, 113},
                          {x - 10, 106},
                          {x - 10, 100},
                          {x - 3, tip + 10},
                          {x, tip}}),
                    glossy(material(0xff8a2a, 0xe8482a, 0xffd25a), 0), {.bevel = 7, .line = 0.9, .clip = &inside});
        canvas.flat(ellipse({x, 108}, 5, 7), rgb(0xfff2a8), {.alpha = 0.9F, .clip = &inside});
    }
    canvas.part(limb({{{44, 117}, 4}, {{82, 113}, 4}}), kWood, {.bevel = 4, .line = 1.1, .clip = &inside});
    canvas.part(limb({{{46, 112}, 4}, {{85, 118}, 4}}), kWood, {.bevel = 4, .line = 1.1, .clip = &inside});
}

void drawKettle(Canvas& canvas) {
    canvas.part(polyline({{64, 44}, {64, 58}}), kDarkMetal, {.bevel = 1, .line = 0.9, .stroke = 2.6});
    canvas.part(curve({{52, 66}, {54, 56}, {74, 56}, {76, 66}}), kDarkMetal, {.bevel = 1, .line = 0.9, .stroke = 2.4});
    canvas.part(
        loop({{50, 66}, {47, 84}, {56, 88}, {64, 88}, {72, 88}, {81, 84}, {78, 66}, {70, 64}, {58, 64}, {50, 66}}),
        kDarkMetal, {.bevel = 9, .line = 1.2});
}

template <int Column, int Row>
void drawHearth(Canvas& canvas, FrameOf) {
    const auto whole = canvas.placed({-kCellSize * Column, -kCellSize * Row});
    for (int course = 0; course < 5; ++course) {
        for (int i = 0; i < 4; ++i) {
            const double inset = course == 0 ? 14 : 8;
            const double width = (128 - 2 * inset) / 4;
            const auto number = static_cast<std::uint32_t>(course * 4 + i);
            canvas.part(rectangle(inset + i * width + 0.6, 24.0 + 21.5 * course, width - 1.2, 20.5, 6),
                        stony(varied(kPodval.solid[number % 2] * 0.78F, number, 0.08F), 1.2F, 0.13F, 0.1F),
                        {.bevel = 5, .line = 0.9, .shadow = 0.2F});
        }
    }
    canvas.part(rectangle(3, 14, 122, 10, 3), kWood, {.bevel = 4, .line = 1.3});
    const VectorPath mouth =
        loop({{30, 126}, {30, 70}, {36, 46}, {64, 46}, {92, 46}, {98, 70}, {98, 126}, {98, 127}, {30, 127}, {30, 126}});
    canvas.flat(mouth, kHollow);
    const Mask inside = canvas.mask(mouth);
    drawHearthFire(canvas, inside);
    drawKettle(canvas);
    canvas.flat(mouth, kInk, {.alpha = 0.85F, .stroke = 1.6});
    canvas.glow({64, 104}, 58, rgb(0xffa048), 0.4F);
}

// ---- lamps

/// Glow-worms in a jar that hangs from a hook on the wall: light that asks for no oil.
void drawGlowJar(Canvas& canvas, FrameOf) {
    constexpr Material kJar = glossy(material(0xb9cc6a, 0x5f7a3c, 0xf2f8c0), 1, 0.6F);
    constexpr Material kCork = glossy(material(0xa87b4a, 0x5a3a36, 0xdcb47c), 0.15F);
    canvas.halo({32, 27}, 25, kPodval.glow, 0.5F);
    canvas.part(rectangle(41.4, 2, 5.2, 13, 2), kDarkMetal, {.bevel = 2.2, .line = 1});
    canvas.part(curve({{44, 5}, {44, 1.4}, {32, 1.4}, {32, 6}}), kDarkMetal,
                {.bevel = 1.2, .line = 0.9, .stroke = 2.4});
    canvas.part(curve({{25, 19}, {25, 7}, {39, 7}, {39, 19}}), kDarkMetal,
                {.bevel = 0.8, .line = 0.7, .shadow = 0.2F, .stroke = 1.5});
    canvas.part(loop({{26, 18},
                      {22, 20},
                      {20.5, 24},
                      {20.5, 30},
                      {20.5, 37},
                      {23, 41},
                      {32, 41},
                      {41, 41},
                      {43.5, 37},
                      {43.5, 30},
                      {43.5, 24},
                      {42, 20},
                      {38, 18},
                      {34, 17},
                      {30, 17},
                      {26, 18}}),
                kJar, {.bevel = 9, .line = 1.2});
    canvas.part(rectangle(26, 12.4, 12, 6.2, 1.8), kCork, {.bevel = 2.4, .line = 1});
    for (const Joint& worm :
         {Joint{{28, 34.5}, 2.6}, Joint{{36.4, 31}, 2.3}, Joint{{31.4, 25.6}, 2}, Joint{{37, 37}, 1.7}}) {
        canvas.halo(worm.at, worm.radius * 2.4, rgb(0xfdfcc8), 0.75F);
        canvas.flat(ellipse(worm.at, worm.radius * 1.15, worm.radius * 0.75, 0.5), rgb(0xfffef0));
    }
    canvas.flat(limb({{{24.2, 24}, 0.9}, {{23.6, 33}, 0.7}}), rgb(0xffffff), {.alpha = 0.65F});
}
void drawStandingLamp(Canvas& canvas, FrameOf) {
    canvas.halo({32, 12}, 12, kPodval.glow, 0.6F);
    canvas.part(polygon({{20, 62}, {25, 56}, {39, 56}, {44, 62}}, 2), kDarkMetal, {.bevel = 2.6, .line = 1.2});
    canvas.part(limb({{{32, 28}, 1.8}, {{32, 57}, 2.2}}), kDarkMetal, {.bevel = 2, .line = 1.1});
    canvas.part(circle({32, 43}, 3.2), kDarkMetal, {.bevel = 2.6, .line = 0.9});
    canvas.part(rectangle(24, 26, 16, 4, 1.8), kDarkMetal, {.bevel = 2, .line = 1});
    canvas.part(rectangle(28.6, 16, 6.8, 11, 1.6), glossy(material(0xeadfc0, 0xa08868, 0xfffbea), 0.3F),
                {.bevel = 3, .line = 1});
    canvas.part(loop({{32, 4.6},
                      {34, 8},
                      {35.4, 10},
                      {35.4, 12.4},
                      {35.4, 15},
                      {34, 16},
                      {32, 16},
                      {30, 16},
                      {28.6, 15},
                      {28.6, 12.4},
                      {28.6, 10},
                      {31, 8},
                      {32, 4.6}}),
                glossy(material(0xffb040, 0xf0702c, 0xfff0a0), 0), {.bevel = 3, .line = 0.8, .shadow = 0});
}

// ---- drains

void drawSquareDrain(Canvas& canvas, FrameOf) {
    canvas.part(rectangle(14, 16, 36, 32, 4), fieldStone(0.75F), {.bevel = 4, .line = 1.2});
    const VectorPath mouth = rectangle(19, 21, 26, 22, 2);
    canvas.flat(mouth, kHollow);
    const Mask inside = canvas.mask(mouth);
    for (const double y : {26.0, 32.0, 38.0})
        canvas.part(rectangle(16, y - 1.2, 32, 2.4, 0.8), kDarkMetal, {.bevel = 1.2, .line = 0.7, .clip = &inside});
    canvas.flat(mouth, kInk, {.alpha = 0.8F, .stroke = 1});
}

/// A pipe's mouth out of which slime runs.
void drawSlimyDrain(Canvas& canvas, FrameOf) {
    canvas.part(circle({32, 24}, 15), fieldStone(0.8F), {.bevel = 4, .line = 1.2});
    canvas.flat(circle({32, 24}, 10), kHollow);
    canvas.part(loop({{23, 28},   {26, 31},   {38, 31},   {41, 28},   {42, 34},   {39, 36}, {39, 42}, {39, 47},
                      {35.5, 47}, {35.5, 42}, {35, 38},   {34, 38},   {33.5, 44}, {33, 58}, {29, 58}, {28.6, 44},
                      {28, 38},   {26, 38},   {25.6, 36}, {24.6, 34}, {22, 33},   {23, 28}}),
                kSlime, {.bevel = 3, .line = 0.9});
}

/// A stub of pipe that points down.
void drawBentDrain(Canvas& canvas, FrameOf) {
    const Material pipe = glossy(material(mix(kPodval.pipe, kPodval.backdrop[0], 0.45F)), 0.35F, 0.25F);
    canvas.part(rectangle(22, 8, 20, 7, 2), fieldStone(0.8F), {.bevel = 3, .line = 1.1});
    canvas.part(polyline({{32, 14}, {32, 30}}), pipe, {.bevel = 6, .line = 1.1, .stroke = 13});
    canvas.part(rectangle(23, 30, 18, 6, 2), pipe, {.bevel = 3, .line = 1.1});
    canvas.flat(ellipse({32, 36}, 6.6, 1.6), kHollow);
    canvas.part(ellipse({32, 47}, 2, 3.2), kSlime, {.bevel = 2, .line = 0.8});
}

// ---- on the floor

void drawMossyBoulder(Canvas& canvas, FrameOf) {
    canvas.part(loop({{4, 50},
                      {4, 34},
                      {14, 22},
                      {30, 21},
                      {48, 20},
                      {60, 32},
                      {60, 48},
                      {60, 58},
                      {52, 62},
                      {34, 62},
                      {14, 62},
                      {4, 60},
                      {4, 50}}),
                stony(kPodval.solid[0] * 0.95F, 1.5F, 0.14F, 0.12F), {.bevel = 13, .line = 1.4});
    drawCrack(canvas, {{42, 28}, {39, 36}, {44, 42}, {41, 50}}, 0.7F);
    VectorPath moss;
    for (const Joint& tuft : {Joint{{13, 29}, 4}, Joint{{20, 25.4}, 4.6}, Joint{{28, 24.6}, 4}, Joint{{35, 24}, 2.8}})
        moss.unite(circle(tuft.at, tuft.radius));
    canvas.part(moss, stony(kPodval.capShade * 1.2F, 1.2F, 0.2F), {.bevel = 3, .line = 0, .shadow = 0.35F});
}

/// A table with nothing on it.
void drawTable(Canvas& canvas, FrameOf) {
    for (const double x : {11.0, 47.0}) canvas.part(rectangle(x, 36, 6, 26, 2), kWood, {.bevel = 2.8, .line = 1.2});
    canvas.part(rectangle(14, 48, 36, 4.4, 1.6), kWood, {.bevel = 2, .line = 1});
    canvas.part(rectangle(4, 29, 56, 9, 3), kWood, {.bevel = 4, .line = 1.4});
}

/// A railing that goes on from cell to cell.
void drawRailing(Canvas& canvas, FrameOf) {
    for (int i = -1; i < 6; ++i) {
        const double x = 8.0 + 16 * i;
        canvas.part(rectangle(x - 1.6, 28, 3.2, 34, 1), kDarkMetal, {.bevel = 1.6, .line = 1});
        canvas.part(circle({x, 44}, 3), kDarkMetal, {.bevel = 2.4, .line = 0.9});
    }
    canvas.part(rectangle(-40, 57, 144, 4.4, 0), kDarkMetal, {.bevel = 2.2, .line = 1});
    canvas.part(rectangle(-40, 24, 144, 5.6, 0), kDarkMetal, {.bevel = 2.8, .line = 1.1});
}

constexpr std::array kStrips{
    //            name                      px  px frames
    StripDrawing{"fon\\k11", 64, 64, 1, Ground::Joined, drawHearth<0, 0>},
    StripDrawing{"fon\\k12", 64, 64, 1, Ground::Joined, drawHearth<1, 0>},
    StripDrawing{"fon\\k21", 64, 64, 1, Ground::Joined, drawHearth<0, 1>},
    StripDrawing{"fon\\k22", 64, 64, 1, Ground::Joined, drawHearth<1, 1>},
    StripDrawing{"fon\\lamp", 64, 64, 1, Ground::Clear, drawGlowJar},
    StripDrawing{"fon\\pol_lam", 64, 64, 1, Ground::Clear, drawStandingLamp},
    StripDrawing{"fon\\dpip0", 64, 64, 1, Ground::Clear, drawSquareDrain},
    StripDrawing{"fon\\dpip1", 64, 64, 1, Ground::Clear, drawSlimyDrain},
    StripDrawing{"fon\\dpipsk", 64, 64, 1, Ground::Clear, drawBentDrain},
    StripDrawing{"fon\\kam4", 64, 64, 1, Ground::Clear, drawMossyBoulder},
    StripDrawing{"bonuses\\modul_stol_pust", 64, 64, 1, Ground::Clear, drawTable},
    StripDrawing{"fon\\perila", 64, 64, 1, Ground::Joined, drawRailing},
};

}  // namespace

std::span<const StripDrawing> podvalDecorStrips() { return kStrips; }

}  // namespace grub
