#include <array>
#include <cmath>
#include <numbers>
#include <tuple>
#include <vector>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kScale = 1.5;
constexpr double kTile = 64 * kScale;

/// The light of the prison, seen from below.
constexpr Rgb kLightAbove = rgb(0xffe6b0);

/// The floor of the prison as a ceiling: its bricks down to the row `bottom`.
void drawBrickCeiling(Canvas& canvas, double width, double bottom) {
    const auto slab = canvas.group({.box = Rect{0, 0, width, bottom}});
    const int rows = static_cast<int>(std::ceil(bottom / kTile)) + 1;  // the first one, with its cap, lies above
    drawHall(canvas,
             {.hall = Hall::Turma,
              .columns = static_cast<int>(width / kTile) + 2,
              .rows = rows,
              .floorRow = 0,
              .scale = kScale},
             {-30, bottom - rows * kTile});
}

// ---- the hall that Grub falls into

/// The hole that he came through, from the upper edge of the picture to the row `bottom`.
void drawBrokenCeiling(Canvas& canvas, double width, double middle, double bottom) {
    drawBrickCeiling(canvas, width, bottom);
    canvas.shadeRows(bottom - 1, bottom, 0.62F, 1);
    canvas.flat(polyline({{0, bottom}, {width, bottom}}), kInk, {.stroke = 3});
    const double half = 80;
    const VectorPath hole = polygon({{middle - half - 8, -4},
                                     {middle + half + 6, -4},
                                     {middle + half - 8, 20},
                                     {middle + half + 4, 38},
                                     {middle + half + 12, bottom + 2},
                                     {middle + half * 0.6, bottom - 5},
                                     {middle + half * 0.3, bottom + 3},
                                     {middle - half * 0.1, bottom - 4},
                                     {middle - half * 0.5, bottom + 4},
                                     {middle - half * 0.7, bottom - 3},
                                     {middle - half - 12, bottom + 2},
                                     {middle - half + 2, 44},
                                     {middle - half + 10, 22}},
                                    3);
    canvas.flat(hole, kInk, {.stroke = 4});
    canvas.flat(hole, rgb(0xb98a72));
    {
        const Mask inside = canvas.mask(hole);
        const auto light = canvas.group({.box = Rect{middle - 110, 0, 220, bottom}, .clip = &inside});
        canvas.haloBetween({middle, 40}, 110, 60, 100, rgb(0xfff4d0), 1);
    }
    for (const auto& [x, y, angle] :
         {std::array{middle - half - 9, bottom - 8, 0.2}, std::array{middle - half + 2, bottom - 26, -0.15},
          std::array{middle + half + 10, bottom - 8, -0.2}, std::array{middle + half - 1, bottom - 26, 0.2}})
        drawRubblePiece(canvas, {x, y}, 30, 17, angle, kTurma.floor[2]);
}

/// What is left of a ladder: two rails from above and three rungs, the last one loose.
void drawBrokenLadder(Canvas& canvas, Point top) {
    const auto hung = canvas.placed(top, 0.1);
    for (const double y : {14.0, 38.0}) canvas.part(rectangle(-4, y, 54, 6, 2), kWood, {.bevel = 2.6, .line = 1.3});
    canvas.part(rectangle(-4, 0, 8, 62, 2), kWood, {.bevel = 3.4, .line = 1.4});
    canvas.part(polygon({{42, 0}, {50, 0}, {50, 66}, {46, 60}, {43, 72}}, 1), kWood, {.bevel = 3.4, .line = 1.4});
    const auto loose = canvas.placed({20, 104}, 0.7);
    canvas.part(rectangle(-26, -3, 50, 6, 2), kWood, {.bevel = 2.6, .line = 1.3});
}

void drawFallingBricks(Canvas& canvas) {
    for (const auto& [x, y, size, angle] : {std::array{262.0, 176.0, 30.0, 0.6}, std::array{292.0, 122.0, 22.0, -0.5},
                                            std::array{430.0, 200.0, 28.0, 1.0}, std::array{284.0, 230.0, 20.0, -0.9},
                                            std::array{448.0, 248.0, 17.0, 0.3}, std::array{424.0, 128.0, 18.0, 0.8},
                                            std::array{316.0, 262.0, 15.0, 0.2}}) {
        for (const double shift : {-0.25, 0.25}) {  // the way it came
            canvas.flat(limb({{{x + shift * size, y - size * 0.8}, 1.3}, {{x + shift * size, y - size * 2}, 0.4}}),
                        kLightAbove, {.alpha = 0.4F});
        }
        drawRubblePiece(canvas, {x, y}, size, size * 0.58, angle, kTurma.floor[0]);
    }
}

void drawFurnace(Canvas& canvas, Point corner, double scale) {
    for (const auto& [name, column, row] : {std::tuple{"fon\\p11", 0, 0}, std::tuple{"fon\\p12", 1, 0},
                                            std::tuple{"fon\\p21", 0, 1}, std::tuple{"fon\\p22", 1, 1}})
        drawPiece(canvas, name, corner + Point{column * 64.0, row * 64.0} * scale, scale);
}

void drawSparks(Canvas& canvas, const Rect& area, int count) {
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(count); ++i) {
        const Point at{area.x + area.width * randomShare(i, 1, 6), area.y + area.height * randomShare(i, 2, 6)};
        const double size = 0.8 + 1.2 * randomShare(i, 3, 6);
        canvas.halo(at, size * 4, kJelezo.glow, 0.6F);
        canvas.flat(circle(at, size), rgb(0xfff0b0));
    }
}

void drawIronHall(Canvas& canvas, const Rect& area) {
    constexpr double kFloor = 276;
    constexpr double kMiddle = 356;
    constexpr double kCeiling = 96;
    drawHall(canvas, {.hall = Hall::Jelezo, .columns = 9, .rows = 4, .floorRow = 3, .scale = kScale},
             {-20, kFloor - 3 * kTile});
    canvas.dimAround({kMiddle, 200}, 560, 0.5F);
    for (const double x : {202.0, 604.0}) drawPiece(canvas, "sten_jel\\chain_proz", {x - 48, kCeiling - 10}, 1.5);
    drawBrokenCeiling(canvas, area.width, kMiddle, kCeiling);
    const Mask below = canvas.mask(rectangle(0, kCeiling, area.width, 40));
    canvas.shadeRows(kCeiling, kCeiling + 36, 0.5F, 1, &below);
    drawBeam(canvas, {kMiddle, 40}, 128, {kMiddle, 330}, 260, kLightAbove, 0.4F);
    drawPiece(canvas, "fon\\mashine5", {28, kFloor - 62 * 2.7}, 2.7);
    drawPiece(canvas, "fon\\mashine1", {478, kFloor - 62 * 1.6}, 1.6);
    canvas.glow({116, 232}, 210, kJelezo.glow, 0.5F);
    canvas.glow({676, 240}, 330, kJelezo.glow, 0.75F);
    drawFurnace(canvas, {588, 100}, 1.375);
    canvas.glow({676, 222}, 70, kJelezo.glow, 0.25F);
    drawSparks(canvas, {590, 150, 170, 110}, 16);
    drawSparks(canvas, {70, 190, 100, 40}, 6);
    drawBrokenLadder(canvas, {222, kCeiling - 2});
    drawFallingBricks(canvas);
}

// ---- the hole, seen from below

/// A place on the edge of the hole, a share of a turn from its right end.
Point onHole(double turn, double reach) {
    const double angle = 2 * std::numbers::pi * turn;
    return Point{151, 176} + Point{132 * std::cos(angle), 94 * std::sin(angle)} * reach;
}

/// The near edge of the hole: a row of stones, for others to lean on.
void drawNearEdge(Canvas& canvas, const Rect& area) {
    canvas.flat(rectangle(0, 250, area.width, area.height - 250), kInk);
    for (std::uint32_t i = 0; i < 13; ++i) {
        const Point at{8 + 24.0 * i, 247 + 3.0 * randomShare(i, 1, 8)};
        drawRubblePiece(canvas, at, 25 + 4 * randomShare(i, 2, 8), 25, 0.24 * (randomShare(i, 3, 8) - 0.5),
                        varied(kTurma.floor[i % 3] * 0.72F, i, 0.12F));
    }
}

void drawHoleAbove(Canvas& canvas, const Rect& area) {
    constexpr std::uint32_t kBricks = 28;
    constexpr double kNear = 226;  // the row at which the near edge takes over
    drawBrickCeiling(canvas, area.width, area.height);
    canvas.shadeRows(0, 1, 0.5F, 0.5F);
    canvas.dimAround({151, 164}, 230, 0.45F);
    std::vector<Point> edge;
    for (std::uint32_t i = 0; i < 2 * kBricks; ++i)
        edge.push_back(onHole(i / (2.0 * kBricks), 0.99 + 0.06 * (randomShare(i, 4, 9) - 0.5)));
    const VectorPath hole = polygon(edge, 3);
    canvas.flat(hole, kInk, {.stroke = 5});
    canvas.flat(hole, rgb(0xd99a5e));
    {
        const Mask inside = canvas.mask(hole);
        const auto above = canvas.group({.clip = &inside});
        canvas.haloBetween({151, 150}, 220, 130, 150, rgb(0xfff4d0), 1);
    }
    for (std::uint32_t i = 0; i < kBricks; ++i) {  // broken bricks around it, their near ends in the light
        const double turn = (i + 0.5) / kBricks;
        const Point at = onHole(turn, 1.06 + 0.05 * randomShare(i, 6, 9));
        if (at.y > kNear) continue;
        const Point inwards = Point{151, 176} - at;
        const double size = 0.85 + 0.4 * randomShare(i, 7, 9);
        drawRubblePiece(canvas, at, 27 * size, 19 * size, std::atan2(inwards.y, inwards.x) + 0.3 * randomShare(i, 8, 9),
                        varied(kTurma.floor[i % 3] * 0.72F, i, 0.12F));
    }
    drawNearEdge(canvas, area);
}

/// The near edge again, before the breasts of two who lean over it; it leaves room for the hands that grip it.
void drawHoleRim(Canvas& canvas, const Rect& area) {
    constexpr double kTop = 200;  // above all stones
    constexpr int kSteps = 8;     // of the arc below a hand
    std::vector<Point> outline{{0, area.height}, {0, kTop}};
    for (const Joint& hand :
         {Joint{{15.6, 235}, 11}, Joint{{136.8, 235}, 11}, Joint{{159, 233}, 12.6}, Joint{{269, 233}, 12.6}}) {
        outline.push_back({hand.at.x - hand.radius, kTop});
        for (int i = 0; i <= kSteps; ++i) {
            const double angle = std::numbers::pi * (1 - static_cast<double>(i) / kSteps);
            outline.push_back(hand.at + Point{std::cos(angle), std::sin(angle)} * hand.radius);
        }
        outline.push_back({hand.at.x + hand.radius, kTop});
    }
    outline.push_back({area.width, kTop});
    outline.push_back({area.width, area.height});
    const Mask besideHands = canvas.mask(polygon(outline));
    const auto rim = canvas.group({.clip = &besideHands});
    drawNearEdge(canvas, area);
}

// ---- the way down

constexpr Material kGirder = glossy(material(0x38525c, 0x18262e, 0x6f8f98), 0.4F, 0.2F);

/// What shows of the cellar: its wall comes out of the dark, a barrel stands on its floor.
void drawCellarBelow(Canvas& canvas, const Rect& area) {
    constexpr double kGround = 24;
    const auto room = canvas.group({.box = area});
    drawHall(canvas, {.hall = Hall::Podval, .columns = 7, .rows = 2, .floorRow = 2}, {area.x - 30, area.y - 20});
    canvas.shadeRows(area.y, area.bottom(), 0.2F, 1.25F);
    canvas.glow({area.x + 84, area.bottom() - 6}, 150, rgb(0xb8c88a), 0.34F);
    {
        const auto ground = canvas.group({.box = Rect{area.x, area.bottom() - kGround, area.width, kGround}});
        drawHall(canvas, {.hall = Hall::Podval, .columns = 7, .rows = 1, .floorRow = 0},
                 {area.x - 30, area.bottom() - kGround});
        canvas.shadeRows(0, 1, 0.7F, 0.7F);
    }
    drawPiece(canvas, "fon\\bochka", {area.x + 46, area.bottom() - kGround + 2 - 62}, 1);
}

void drawWayDown(Canvas& canvas, const Rect& area) {
    constexpr double kPipe = 94;
    constexpr double kPipeScale = 2;
    constexpr double kRightFloor = 196;
    constexpr double kRightEdge = 354;
    constexpr double kLeftFloor = 162;
    constexpr double kSlab = 26;
    constexpr Rect kPit{0, kLeftFloor + kSlab, kRightEdge, 264 - kLeftFloor - kSlab};
    drawHall(canvas, {.hall = Hall::Jelezo, .columns = 6, .rows = 4, .floorRow = 4, .scale = kScale}, {-30, -40});
    canvas.dimAround({290, 150}, 320, 0.5F);
    canvas.glow({area.width, 190}, 220, kJelezo.glow, 0.6F);
    const Mask gap = canvas.mask(rectangle(0, 0, kPit.width, kPit.y));
    canvas.shadeRows(kPit.y - 34, kPit.y, 1, 0.25F, &gap);
    drawCellarBelow(canvas, kPit);
    {
        const auto slab = canvas.group({.box = Rect{0, kLeftFloor, 148, kSlab}});
        for (const auto& [name, x] : {std::tuple{"poly\\pol_jel", -44.0}, std::tuple{"poly\\pol_kray5", 52.0}})
            drawPiece(canvas, name, {x, kLeftFloor}, kScale);
    }
    canvas.flat(polyline({{0, kPit.y}, {146, kPit.y}}), kInk, {.stroke = 2});
    for (const double top : {kLeftFloor - 20, kLeftFloor + 76})
        drawPiece(canvas, "lesenki\\modul_lestn", {133, top}, kScale);
    canvas.part(rectangle(kPit.width - 8, kPit.y - 40, 14, 140, 2), kGirder, {.bevel = 4, .line = 1.4});
    for (int i = 0; i < 7; ++i)
        canvas.part(circle({kPit.width - 1, kPit.y - 30 + 17 * i}, 2.2), kGirder, {.bevel = 2, .line = 0.8});
    for (const auto& [name, x] :
         {std::tuple{"poly\\pol_kray4", kRightEdge - 2}, std::tuple{"poly\\pol_jel", kRightEdge + 94}})
        drawPiece(canvas, name, {x, kRightFloor}, kScale);
    for (const auto& [name, x] : {std::tuple{"trubi\\tr_kray1", 224.0}, std::tuple{"trubi\\mod_trub04", 352.0},
                                  std::tuple{"trubi\\tr_styk3", 480.0}})
        drawPiece(canvas, name, {x, kPipe - 10 * kPipeScale}, kPipeScale);
}

constexpr std::array kSets{
    //         name          px   px
    SetDrawing{"iron-hall", 776, 300, drawIronHall},
    SetDrawing{"hole-above", 302, 264, drawHoleAbove},
    SetDrawing{"hole-rim", 302, 264, drawHoleRim, true},
    SetDrawing{"way-down", 462, 264, drawWayDown},
};

}  // namespace

std::span<const SetDrawing> worksSets() { return kSets; }

}  // namespace grub
