#include "controls.h"

#include "board_looks.h"
#include "fittings.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr double kChannel = 14;

constexpr Material kLens = glossy(material(0xffe08a, 0xd98a34, 0xfffbe0), 1, 0.4F);
constexpr Material kChannelFloor = boardMaterial(0x55332a, 0x2e1a26, 0x7a4a2c, 0, 0.1F, 0, 0.02F);

/// The surface that a plate is let into.
const Material& materialOf(BoardKind board) {
    switch (board) {
        case BoardKind::Gold: return kGoldPlate;
        case BoardKind::Tan: return kTanWood;
        case BoardKind::Plank: return kPlankWood;
        default: return kNoticePaper;
    }
}

}  // namespace

double knobX(const Rect& groove, int values, int value) {
    return groove.x + (groove.width - 1) * (value + 0.5) / values;
}

void drawGroove(Canvas& canvas, const Rect& area, int values) {
    const Rect channel{area.x + 1.5, area.centre().y - kChannel / 2, area.width - 3, kChannel};
    canvas.part(channel.path(7), kPlankWood, {.bevel = 2.5, .line = 1.4, .shadow = 0.3F});
    const Rect hollow = channel.inset(3.2);
    canvas.part(hollow.path(4), kChannelFloor, {.bevel = 1, .line = 0.8, .shadow = 0});
    const Mask inside = canvas.mask(hollow.path(4));
    canvas.flat(Rect{hollow.x, hollow.y, hollow.width, 2.4}.path(), kBoardInk, {.alpha = 0.6F, .clip = &inside});
    for (int i = 0; i < values; ++i) {
        const Point at{knobX(area, values, i), channel.bottom() + 5};
        canvas.flat(circle(at, 1.5), kBoardInk, {.alpha = 0.75F});
    }
}

void drawKnob(Canvas& canvas, Point centre) {
    canvas.part(Rect{centre.x - 4, centre.y - 12.5, 8, 6}.path(2), kIron, {.bevel = 2, .line = 1.1});
    canvas.part(circle(centre, 10), kMetal, {.bevel = 5, .line = 1.4, .shadow = 0.6F});
    canvas.part(circle(centre, 6.4), kLens, {.bevel = 5, .line = 1.0, .shadow = 0});
    canvas.flat(ellipse(centre + Point{-1.8, -2.6}, 2.1, 1.3, -0.5), rgb(0xffffff), {.alpha = 0.9F});
}

void drawTickBox(Canvas& canvas, const Rect& area, bool ticked) {
    const Rect body = area.inset(2);
    canvas.part(body.path(5), kPlankWood, {.bevel = 2.5, .line = 1.4, .shadow = 0.4F});
    const Rect hollow = body.inset(4.5);
    canvas.part(hollow.path(2.5), kBalloonSkin, {.bevel = 1, .line = 0.9, .shadow = 0});
    canvas.flat(Rect{hollow.x, hollow.y, hollow.width, 2}.path(1), kBoardInk, {.alpha = 0.22F});
    if (!ticked) return;
    const Point c = area.centre();
    const double unit = area.width / 32;
    const VectorPath tick = curve({c + Point{-7, -1} * unit, c + Point{-5, 1} * unit, c + Point{-3.4, 3.6} * unit,
                                   c + Point{-2.2, 6.6} * unit, c + Point{0.5, -1} * unit, c + Point{5, -7} * unit,
                                   c + Point{11.5, -11.5} * unit});
    canvas.flat(tick, rgb(0xfffaf0), {.stroke = 6.4 * unit});
    canvas.flat(tick, kBoardInk, {.stroke = 4 * unit});
}

void drawDigitPlate(Canvas& canvas, const Rect& area, BoardKind board) {
    const Material& surface = materialOf(board);
    const Rect body = area.inset(1.5);
    canvas.flat(body.moved({0, 1.4}).path(8), surface.light, {.alpha = 0.8F});
    canvas.part(body.path(8), surface, {.bevel = 2.5, .line = 1.2, .shadow = 0});
}

void drawSpeaker(Canvas& canvas, Point centre, double size) {
    const auto placed = canvas.placed(centre, 0, size / 24, size / 24);
    canvas.flat(polygon({{-11, -4}, {-6.5, -4}, {0, -10}, {0, 10}, {-6.5, 4}, {-11, 4}}, 1.5), kBoardInk);
    for (const double reach : {1.0, 1.9}) {
        const double x = 2.2 + 1.6 * reach;
        const Point bulge{x + 1.9 * reach, 1.6 * reach};
        canvas.flat(curve({{x, -4 * reach}, {bulge.x, -bulge.y}, bulge, {x, 4 * reach}}), kBoardInk, {.stroke = 2.2});
    }
}

void drawNote(Canvas& canvas, Point centre, double size) {
    const auto placed = canvas.placed(centre, 0, size / 24, size / 24);
    for (const double x : {-6.5, 5.5}) {
        canvas.flat(ellipse({x, 8.5 - x * 0.15}, 4.2, 3.2, -0.35), kBoardInk);
        canvas.flat(polyline({{x + 3.2, 8 - x * 0.15}, {x + 3.2, -8 - x * 0.15}}), kBoardInk, {.stroke = 2});
    }
    canvas.flat(polygon({{-4.3, -9.4}, {9.7, -11.5}, {9.7, -7}, {-4.3, -4.9}}, 0.5), kBoardInk);
}

}  // namespace grub
