#include <array>
#include <cmath>
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

/// Row of the page that is walked on.
constexpr double kFloor = 538;

/// The hall of the prison in which all menus hang.
void drawHallOfMenus(Canvas& canvas) {
    drawHall(canvas, {.hall = Hall::Turma, .columns = 13, .rows = 10, .floorRow = 9}, {0, kFloor - 9 * kCellSize});
    const Mask wall = canvas.mask(rectangle(0, 0, 800, kFloor));
    canvas.shadeRows(kFloor - 34, kFloor, 1, 0.72F, &wall);  // the wall darkens towards the floor
}

// ---- the wall of the menus

/// Where plaster has come off: big bites with small ones in them. `place` counts along the edge, `side` its sides.
double missing(std::uint32_t side, std::uint32_t place) {
    const double big = randomShare(side, place / 5, 8);
    const double small = randomShare(side, place, 5);
    return 26 * big * big * big + 9 * small;
}

/// Old plaster on the wall, broken off along its edge, stained and cracked.
void drawPlaster(Canvas& canvas, const Rect& area) {
    constexpr std::uint32_t kPlaces = 34;  // corners of the edge, a side
    const std::array corners{Point{area.x, area.y}, Point{area.right(), area.y}, Point{area.right(), area.bottom()},
                             Point{area.x, area.bottom()}};
    constexpr std::array kInwards{Point{0, 1}, Point{-1, 0}, Point{0, -1}, Point{1, 0}};
    std::vector<Point> edge;
    for (std::uint32_t side = 0; side < 4; ++side) {
        for (std::uint32_t place = 2; place < kPlaces - 1; ++place) {
            const Point at = mix(corners[side], corners[(side + 1) % 4], static_cast<double>(place) / kPlaces);
            edge.push_back(at + kInwards[side] * missing(side, place));
        }
    }
    Material plaster = stony(rgb(0x3f426a), 1, 0.07F, 0);
    plaster.light = mix(plaster.base, plaster.light, 0.3F);
    const VectorPath shape = polygon(edge, 3);
    canvas.part(shape, plaster, {.bevel = 3, .line = 0.8, .shadow = 0.45F});
    const Mask inside = canvas.mask(shape);
    const auto stains = canvas.group({.box = area, .clip = &inside});
    for (const Joint& stain :
         {Joint{{60, 190}, 80}, Joint{{230, 300}, 90}, Joint{{80, 480}, 90}, Joint{{150, 360}, 60}})
        canvas.halo(stain.at, stain.radius, kTurma.backdropMortar, 0.45F);
    drawCrack(canvas, {{24, 236}, {46, 240}, {60, 233}, {92, 238}, {110, 230}}, 0.8F);
    drawCrack(canvas, {{274, 404}, {244, 402}, {232, 408}, {200, 404}, {190, 410}}, 0.8F);
    drawCrack(canvas, {{150, 140}, {158, 166}, {154, 176}, {160, 200}}, 0.8F);
}

void drawMenuWall(Canvas& canvas, const Rect&) {
    drawHallOfMenus(canvas);
    drawPlaster(canvas, {12, 146, 264, 388});
    drawPiece(canvas, "fon\\window", {94, 26}, 1.6);
    drawPiece(canvas, "poly\\paut1", {800 - 83, 0}, 1.3);
    drawPiece(canvas, "poly\\paut", {0, 0}, 1.2);
    drawBeam(canvas, {145, 80}, 60, {330, 560}, 210, rgb(0x9fb4ff), 0.16F);
    canvas.dimAround({360, 290}, 640, 0.5F);
    canvas.glow({308, 240}, 300, kTurma.glow, 0.5F);
    drawPiece(canvas, "fon\\fakel", {308 - 48, 196}, 1.5);
}

// ---- the open cell

/// What lies outside: the night, hills, the path down. `area` is the opening that shows it.
void drawNightOutside(Canvas& canvas, const Rect& area) {
    drawGradient(canvas, area, rgb(0x1f2650), rgb(0x5a6aa0));
    drawStars(canvas, {area.x, area.y, area.width, area.height * 0.6}, 16, 3);
    drawMoon(canvas, {area.x + 54, area.y + 76}, 22);
    canvas.flat(ellipse({area.x + 84, area.bottom() + 10}, 90, 150), rgb(0x35427a));
    canvas.flat(ellipse({area.x + 16, area.bottom() + 30}, 80, 120), rgb(0x263056));
    std::vector<Joint> path;  // narrower and in shorter bends the farther it is
    constexpr int kSteps = 24;
    for (int i = 0; i <= kSteps; ++i) {
        const double far = static_cast<double>(i) / kSteps;
        const double near = (1 - far) * (1 - far);
        path.push_back({{area.x + 32 + 26 * near + (9 - 4 * far) * std::sin(9 * far), area.bottom() + 10 - 96 * far},
                        1.4 + 15 * near});
    }
    canvas.flat(limb(path), rgb(0x8a98c8), {.alpha = 0.75F});
}

/// The bars of the cell, swung back against the wall; two hinges hold them to the frame, left of `hinge`.
void drawSwungDoor(Canvas& canvas, double hinge, double top, double bottom) {
    const auto leaned = canvas.placed({hinge, 0});
    const double low = bottom - 5;
    for (const double x : {8.0, 19.0, 29.0, 38.0})
        canvas.part(rectangle(x - 3, top + 4 + x * 0.3, 6, low - top - x * 0.3, 2), kDarkMetal,
                    {.bevel = 3, .line = 1.4});
    for (const double share : {0.04, 0.5, 0.9}) {
        const double y = mix(static_cast<float>(top), static_cast<float>(bottom), static_cast<float>(share));
        canvas.part(polygon({{0, y}, {44, y + 10}, {44, y + 18}, {0, y + 10}}, 1.5), kDarkMetal,
                    {.bevel = 3, .line = 1.4});
    }
    for (const double y : {top + 52, bottom - 60}) {
        canvas.part(rectangle(-14, y - 6, 24, 14, 3), kDarkMetal, {.bevel = 3.4, .line = 1.4});
        for (const double x : {-9.0, -1.0})
            canvas.part(circle({x, y + 1}, 1.8), kMetal, {.bevel = 1.6, .line = 0.6, .shadow = 0.2F});
        canvas.part(rectangle(6, y - 13, 9, 28, 3.4), kMetal, {.bevel = 4, .line = 1.4});
    }
    canvas.part(rectangle(26, (top + bottom) / 2 - 4, 20, 30, 3), kMetal, {.bevel = 4, .line = 1.4});
    canvas.flat(circle({36, (top + bottom) / 2 + 8}, 3.2), kInk);
    canvas.flat(polygon({{35, (top + bottom) / 2 + 8},
                         {37, (top + bottom) / 2 + 8},
                         {38.4, (top + bottom) / 2 + 18},
                         {33.6, (top + bottom) / 2 + 18}}),
                kInk);
}

void drawOpenCell(Canvas& canvas, const Rect&) {
    drawHallOfMenus(canvas);
    canvas.dimAround({120, 380}, 760, 0.42F);
    const Rect opening{-30, 168, 110, kFloor - 168};
    drawBeam(canvas, {60, 330}, 250, {520, 560}, 300, rgb(0xaebfff), 0.3F);  // the frame covers its beginning
    canvas.part(rectangle(opening.x, opening.y - 22, opening.width + 22, opening.height + 22, 8),
                stony(kTurma.solid[1] * 0.62F, 1, 0.12F), {.bevel = 8, .line = 1.4, .shadow = 0.5F});
    {
        const Mask inside = canvas.mask(rectangle(opening.x, opening.y, opening.width, opening.height, 5));
        const auto outside = canvas.group({.box = opening, .clip = &inside});
        drawNightOutside(canvas, {0, opening.y, opening.right(), opening.height});
    }
    for (const double y : {232.0, 304.0, 376.0, 448.0})
        drawCrack(canvas, {{opening.right() + 1, y}, {opening.right() + 21, y}}, 0.7F);
    for (const double x : {8.0, 44.0, 80.0}) {  // moonlight on the floor
        canvas.flat(polygon({{x, kFloor}, {x + 28, kFloor}, {x * 2.2 + 190, 600}, {x * 2.2 + 130, 600}}), rgb(0xc4d0ff),
                    {.alpha = 0.22F});
    }
    drawSwungDoor(canvas, 91, 176, kFloor);
    drawPiece(canvas, "fon\\ruki", {694, 200}, 1.3);
    drawPiece(canvas, "poly\\paut1", {800 - 96, 0}, 1.5);
    drawPiece(canvas, "bonuses\\modul_stol_pust", {664, kFloor - 62 * 1.5}, 1.5);
    drawPiece(canvas, "fon\\pol_lam", {674, kFloor - 138}, 1.4);
    canvas.glow({719, kFloor - 126}, 130, kTurma.glow, 0.55F);
}

constexpr std::array kSets{
    //         name         px   px
    SetDrawing{"menu-wall", 800, 600, drawMenuWall},
    SetDrawing{"open-cell", 800, 600, drawOpenCell},
};

}  // namespace

std::span<const SetDrawing> menuWallSets() { return kSets; }

}  // namespace grub
