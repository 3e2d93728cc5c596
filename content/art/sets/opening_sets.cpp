#include <array>
#include <tuple>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kWidth = 800;
constexpr double kHeight = 600;

/// Row where the ground begins, and the column of the middle of the shaft.
constexpr double kGroundTop = 326;
constexpr double kShaft = 400;

/// The light of the lamp that comes up the shaft.
constexpr Rgb kLampLight = rgb(0xffe2a0);
constexpr Point kLamp{kShaft, 350};

// ---- above the ground

constexpr Material kPrisonStone = stony(rgb(0x252b52), 0.9F, 0.1F, 0);
constexpr Material kPrisonRoof = stony(rgb(0x33294e), 0.5F, 0.1F, 0);

void drawLitWindow(Canvas& canvas, Point at) {
    canvas.halo(at, 22, kTurma.glow, 0.5F);
    canvas.flat(limb({{{at.x, at.y - 2}, 4}, {{at.x, at.y + 5}, 4}}), rgb(0x2a1828));
    canvas.flat(limb({{{at.x, at.y - 2}, 2.8}, {{at.x, at.y + 5}, 2.8}}), kTurma.glow);
    canvas.flat(polyline({{at.x, at.y - 5}, {at.x, at.y + 8}}), rgb(0x4a2c3f), {.stroke = 1.2});
}

struct Tower {
    double middle;
    double width;
    double top;
};

void drawTower(Canvas& canvas, const Tower& tower) {
    const double half = tower.width / 2;
    const double x = tower.middle;
    canvas.part(rectangle(x - half, tower.top, tower.width, kGroundTop - tower.top, 2), kPrisonStone,
                {.bevel = half * 0.8, .line = 1});
    canvas.part(rectangle(x - half - 4, tower.top - 4, tower.width + 8, 10, 2), kPrisonStone, {.bevel = 4, .line = 1});
    canvas.part(polygon({{x - half - 5, tower.top - 4}, {x, tower.top - 34}, {x + half + 5, tower.top - 4}}, 3),
                kPrisonRoof, {.bevel = 8, .line = 1});
    drawLitWindow(canvas, {x, tower.top + 20});
}

void drawWallBetween(Canvas& canvas, double from, double to, double top) {
    VectorPath wall = rectangle(from, top, to - from, kGroundTop - top + 8);
    constexpr double kEvery = 15;
    for (int i = 0; i * kEvery < to - from - 4; ++i) wall.unite(rectangle(from + i * kEvery, top - 7, 8, 9, 1));
    canvas.part(wall, kPrisonStone, {.bevel = 4, .line = 1});
}

void drawPrison(Canvas& canvas) {
    drawWallBetween(canvas, 130, 292, 286);
    drawWallBetween(canvas, 508, 674, 288);
    for (const Tower& tower : {Tower{204, 30, 262}, Tower{148, 34, 276}, Tower{268, 42, 252}, Tower{596, 30, 268},
                               Tower{652, 36, 274}, Tower{532, 42, 254}})
        drawTower(canvas, tower);
}

void drawNight(Canvas& canvas) {
    drawGradient(canvas, {0, 0, kWidth, kGroundTop + 20}, rgb(0x1b2038), rgb(0x35406a));
    drawStars(canvas, {0, 0, kWidth, 250}, 34, 12);
    drawMoon(canvas, {90, 90}, 34);
    canvas.flat(ellipse({140, 380}, 260, 110), rgb(0x2a3258));
    canvas.flat(ellipse({700, 390}, 280, 130), rgb(0x272f54));
    canvas.part(ellipse({kShaft, 440}, 440, 128), stony(rgb(0x26344a), 1.2F, 0.14F, 0), {.bevel = 12, .line = 1});
    const auto onHill = canvas.placed({0, -4});
    drawPrison(canvas);
}

// ---- the cut through the ground

/// A band of the ground, and the row down to which it goes.
struct Band {
    Hall hall;
    double bottom;
    Rgb soil;
};
constexpr std::array kBands{Band{Hall::Turma, 410, rgb(0x3d2a38)}, Band{Hall::Jelezo, 492, rgb(0x1d2f38)},
                            Band{Hall::Podval, kHeight, rgb(0x2b2a26)}};

void drawSoil(Canvas& canvas) {
    double top = kGroundTop;
    for (const Band& band : kBands) {
        canvas.part(rectangle(-20, top, kWidth + 40, band.bottom - top + 12), stony(band.soil, 2, 0.16F, 0),
                    {.bevel = 6, .line = 0, .shadow = 0});
        for (std::uint32_t i = 0; i < 26; ++i) {
            const auto number = static_cast<std::uint32_t>(band.bottom) + i;
            const Point at{kWidth * randomShare(number, 1, 4), top + (band.bottom - top) * randomShare(number, 2, 4)};
            canvas.part(ellipse(at, 7 + number % 5, 5 + number % 3), stony(band.soil * 1.35F, 1, 0.1F, 0),
                        {.bevel = 4, .line = 0.8, .shadow = 0.3F});
        }
        top = band.bottom;
    }
    // The grass on top of it.
    VectorPath grass;
    for (int x = -6; x < kWidth; x += 9) grass.unite(circle({1.0 * x, kGroundTop + 2 + 2.0 * (x / 9 % 3)}, 6.5));
    canvas.part(grass, stony(rgb(0x33503f), 1, 0.15F, 0), {.bevel = 4, .line = 1.1});
}

/// A room in the ground that shows the wall of its hall; its floor is the lowest rows of the area.
void drawRoom(Canvas& canvas, Hall hall, const Rect& area) {
    constexpr double kSlab = 13;
    const VectorPath outline = area.path(9);
    canvas.part(outline, stony(rgb(0x17131f), 0, 0), {.bevel = 2, .line = 2.2, .shadow = 0});
    const Mask inside = canvas.mask(outline);
    const auto room = canvas.group({.box = area, .clip = &inside});
    const int columns = static_cast<int>(area.width / kCellSize) + 2;
    drawHall(canvas, {.hall = hall, .columns = columns, .rows = 2, .floorRow = 2}, {area.x - 20, area.y - 30});
    canvas.shadeRows(area.y, area.y + 26, 0.35F, 0.95F);
    const auto slab = canvas.group({.box = Rect{area.x, area.bottom() - kSlab, area.width, kSlab}});
    drawHall(canvas, {.hall = hall, .columns = columns, .rows = 1, .floorRow = 0},
             {area.x - 20, area.bottom() - kSlab});
    canvas.shadeRows(area.bottom() - kSlab, area.bottom(), 0.85F, 0.6F);
}

void drawTurmaRooms(Canvas& canvas) {
    drawRoom(canvas, Hall::Turma, {18, 342, 270, 66});
    drawPiece(canvas, "dveri\\door_b", {34, 354}, 0.66);
    drawPiece(canvas, "fon\\ruki", {110, 346}, 0.62);
    canvas.glow({196, 364}, 90, kTurma.glow, 0.5F);
    drawPiece(canvas, "fon\\fakel", {176, 348}, 0.62);
    drawPiece(canvas, "dveri\\reshet", {232, 352}, 0.66);
    drawRoom(canvas, Hall::Turma, {512, 342, 270, 66});
    canvas.glow({590, 364}, 90, kTurma.glow, 0.5F);
    drawPiece(canvas, "fon\\fakel", {570, 348}, 0.62);
    drawPiece(canvas, "dveri\\door_c", {524, 353}, 0.66);
    drawPiece(canvas, "fon\\kreslo", {640, 357}, 0.6);
    drawPiece(canvas, "dveri\\reshet", {706, 352}, 0.66);
}

void drawJelezoRooms(Canvas& canvas) {
    drawRoom(canvas, Hall::Jelezo, {18, 424, 270, 66});
    drawPiece(canvas, "fon\\mashine1", {30, 428}, 0.7);
    drawPiece(canvas, "fon\\mashine4", {236, 430}, 0.62);
    drawPiece(canvas, "fon\\lampa1_proz", {196, 424}, 0.7);
    canvas.glow({218, 444}, 60, kJelezo.glow, 0.5F);
    drawRoom(canvas, Hall::Jelezo, {512, 424, 270, 66});
    drawPiece(canvas, "fon\\mashine2", {530, 435}, 0.67);
    drawPiece(canvas, "fon\\mashine3", {584, 435}, 0.67);
    constexpr double kFurnace = 0.42;
    constexpr Point kCorner{692, 424};
    for (const auto& [name, column, row] : {std::tuple{"fon\\p11", 0, 0}, std::tuple{"fon\\p12", 1, 0},
                                            std::tuple{"fon\\p21", 0, 1}, std::tuple{"fon\\p22", 1, 1}})
        drawPiece(canvas, name, kCorner + Point{column * kCellSize, row * kCellSize} * kFurnace, kFurnace);
    canvas.glow({719, 462}, 130, kJelezo.glow, 0.75F);
}

void drawPodvalRooms(Canvas& canvas) {
    drawRoom(canvas, Hall::Podval, {18, 506, 270, 78});
    drawPiece(canvas, "fon\\bochka", {22, 519}, 0.86);
    drawPiece(canvas, "fon\\bochka", {72, 532}, 0.64);
    drawPiece(canvas, "fon\\dpip1", {140, 506}, 0.7);
    drawPiece(canvas, "fon\\lamp", {212, 506}, 0.7);
    canvas.glow({236, 528}, 80, kPodval.glow, 0.45F);
    drawPiece(canvas, "fon\\kam4", {222, 528}, 0.7);
    drawRoom(canvas, Hall::Podval, {512, 506, 156, 78});
    drawPiece(canvas, "fon\\pol_lam", {622, 524}, 0.8);
    canvas.glow({648, 532}, 80, kPodval.glow, 0.45F);
    drawRoom(canvas, Hall::Podval, {694, 502, 88, 56});
    drawPiece(canvas, "fon\\bochka", {716, 503}, 0.68);
}

constexpr double kShaftHalf = 90;
constexpr double kShaftTop = kGroundTop - 10;
constexpr double kShaftBottom = 582;

/// The hole in the ground: broken edges at its mouth, uneven sides.
VectorPath shaftOutline() {
    constexpr double left = kShaft - kShaftHalf;
    constexpr double right = kShaft + kShaftHalf;
    return polygon({{left - 16, kShaftTop - 6},
                    {left - 10, kShaftTop + 12},
                    {left + 2, kShaftTop + 20},
                    {left - 4, 366},
                    {left + 5, 400},
                    {left - 4, 440},
                    {left + 3, 486},
                    {left - 1, 530},
                    {left + 8, 564},
                    {left + 26, kShaftBottom},
                    {right - 26, kShaftBottom},
                    {right - 8, 564},
                    {right + 1, 530},
                    {right - 3, 486},
                    {right + 4, 440},
                    {right - 5, 400},
                    {right + 4, 366},
                    {right - 2, kShaftTop + 20},
                    {right + 10, kShaftTop + 12},
                    {right + 16, kShaftTop - 6}},
                   9);
}

/// The ladder that Grub climbs, as large as he is on the page: even rungs from the bottom to above the ground.
void drawLadder(Canvas& canvas) {
    constexpr double kHalf = 62;
    constexpr double kLowestRung = 554;
    constexpr double kEvery = 26;
    const Material wood = glossy(material(rgb(0x8a5a3c), rgb(0x4a2b33), rgb(0xc08a56)), 0.2F, 0.15F);
    for (double y = kLowestRung; y > kShaftTop - 10; y -= kEvery)
        canvas.part(rectangle(kShaft - kHalf, y - 5, 2 * kHalf, 11, 3), wood, {.bevel = 4.5, .line = 1.6});
    for (const double side : {-1.0, 1.0}) {
        const double x = kShaft + side * kHalf;
        canvas.part(rectangle(x - 9, kShaftTop - 24, 18, kShaftBottom - kShaftTop + 20, 4), wood,
                    {.bevel = 6, .line = 1.8});
        for (double y = kLowestRung; y > kShaftTop - 10; y -= kEvery)
            canvas.part(circle({x, y}, 2.6), kMetal, {.bevel = 2.2, .line = 0.9, .shadow = 0.3F});
    }
}

/// Clods and tufts that hang over the edges of the mouth.
void drawBrokenEdge(Canvas& canvas) {
    const Material earth = stony(rgb(0x5a4048), 1.6F, 0.16F, 0);
    for (const double side : {-1.0, 1.0}) {
        const auto at = [&](double out, double down) {
            return Point{kShaft + side * (kShaftHalf + out), kShaftTop + down};
        };
        for (const auto& [out, down, size] : {std::tuple{-2.0, 27.0, 9.0}, std::tuple{5.0, 16.0, 12.0},
                                              std::tuple{17.0, 8.0, 14.0}, std::tuple{34.0, 10.0, 12.0}})
            canvas.part(ellipse(at(out, down), size, size * 0.8, side * 0.4), earth, {.bevel = 7, .line = 1.4});
        VectorPath tuft;
        for (int i = 0; i < 5; ++i) tuft.unite(circle(at(6 + 9 * i, 1 + i % 2 * 2.0 + (i == 0 ? 3 : 0)), 6.5));
        canvas.part(tuft, stony(rgb(0x33503f), 1, 0.15F, 0), {.bevel = 4, .line = 1.1});
    }
}

/// The shaft, open above.
void drawShaft(Canvas& canvas) {
    const VectorPath hole = shaftOutline();
    canvas.part(hole, stony(rgb(0x241a2c), 2, 0.2F, 0), {.bevel = 10, .line = 2.4, .shadow = 0});
    const Mask inside = canvas.mask(hole);
    {
        const auto group = canvas.group({.clip = &inside});
        for (int i = 0; i < 8; ++i) {
            const double y = kShaftTop + 30 + 33 * i;
            for (const double side : {-1.0, 1.0})
                canvas.part(ellipse({kShaft + side * 96, y + side * 8}, 22, 20), stony(rgb(0x4a3540), 1.6F, 0.16F, 0),
                            {.bevel = 9, .line = 1.2});
        }
        canvas.shadeRows(kShaftTop + 40, kShaftBottom, 1, 0.6F);
    }
    {
        const auto ladder = canvas.group({.shadow = 0.4F});
        drawLadder(canvas);
        canvas.shadeRows(kShaftTop + 40, kShaftBottom, 1, 0.7F);
    }
    drawBrokenEdge(canvas);
    canvas.glow(kLamp, 170, kLampLight, 0.5F);
}

void drawOpening(Canvas& canvas, const Rect&) {
    drawNight(canvas);
    drawSoil(canvas);
    drawTurmaRooms(canvas);
    drawJelezoRooms(canvas);
    drawPodvalRooms(canvas);
    drawShaft(canvas);
    drawBeam(canvas, kLamp + Point{0, 10}, 110, {kShaft, -240}, 900, kLampLight, 0.55F);
}

constexpr std::array kSets{
    //         name       px   px
    SetDrawing{"opening", 800, 600, drawOpening},
};

}  // namespace

std::span<const SetDrawing> openingSets() { return kSets; }

}  // namespace grub
