#include "board.h"

#include <cmath>

#include "balloon.h"
#include "board_looks.h"
#include "fittings.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// Room that a board leaves inside its area: for its line all round, and for its shadow below.
constexpr double kLineRoom = 2;
constexpr double kShadowRoom = 2;

/// From the ends of a plank, and from the corners of a notice, to the middle of a nail.
constexpr double kNailInset = 10;

Rect bodyOf(const Rect& area) {
    return {area.x + kLineRoom, area.y + kLineRoom, area.width - 2 * kLineRoom,
            area.height - 2 * kLineRoom - kShadowRoom};
}

/// Shares that look random, for one board; another board gets others.
class Chance {
public:
    explicit Chance(const Rect& area)
        : seed_(stirred(static_cast<std::uint32_t>(std::lround(area.x * 31 + area.y * 57 + area.width)))) {}

    /// From `from` up to `to`.
    double between(double from, double to) { return from + (to - from) * randomShare(next_++, 0, seed_); }

private:
    std::uint32_t seed_;
    std::uint32_t next_ = 0;
};

/// The shade that the board throws on the wall, which is not in its picture: a clear dark edge below it.
void throwShade(Canvas& canvas, const Rect& body, double radius) {
    canvas.flat(body.moved({0, kShadowRoom}).inset(-1).path(radius), kBoardInk, {.alpha = 0.45F});
}

// ---- wood

/// Fibres along the board, dark and light in turn, a little wavy.
void drawFibres(Canvas& canvas, const Rect& body, const Material& wood, const Mask& inside, Chance& chance) {
    const int count = static_cast<int>(body.height / 3.4);
    for (int i = 0; i < count; ++i) {
        const double y = body.y + (i + chance.between(0.2, 0.8)) * body.height / count;
        const double from = body.x + chance.between(-0.3, 0.5) * body.width;
        const double reach = chance.between(0.35, 0.9) * body.width;
        const double bend = chance.between(-1.6, 1.6);
        const VectorPath fibre = curve(
            {{from, y}, {from + reach * 0.3, y + bend}, {from + reach * 0.7, y - bend}, {from + reach, y + bend / 2}});
        const bool dark = i % 3 != 0;
        canvas.flat(fibre, dark ? wood.shadow : wood.light,
                    {.alpha = dark ? 0.30F : 0.22F, .stroke = chance.between(0.5, 1.1), .clip = &inside});
    }
}

/// A knot that the fibres flow round; small, and near an end, so that no letter stands on it.
void drawKnot(Canvas& canvas, const Rect& body, const Material& wood, const Mask& inside, Chance& chance) {
    const bool left = chance.between(0, 1) < 0.5;
    const bool high = chance.between(0, 1) < 0.5;
    const double inwards = chance.between(26, 34);
    const Point at{left ? body.x + inwards : body.right() - inwards, body.y + body.height * (high ? 0.24 : 0.76)};
    canvas.flat(ellipse(at, 4.6, 2.6), wood.shadow, {.alpha = 0.30F, .clip = &inside});
    canvas.flat(ellipse(at, 2.6, 1.4), wood.shadow, {.alpha = 0.55F, .clip = &inside});
    for (const double grown : {6.8, 9.4}) {
        canvas.flat(ellipse(at, grown, grown * 0.52), wood.shadow, {.alpha = 0.26F, .stroke = 0.7, .clip = &inside});
    }
}

/// A sawn board: straight along, its ends cut a little askew.
VectorPath plankOutline(const Rect& body, Chance& chance) {
    const double a = chance.between(0, 1.6);
    const double b = chance.between(0, 1.6);
    return polygon({{body.x + a, body.y},
                    {body.right() - b, body.y},
                    {body.right() - chance.between(0, 1.6), body.bottom()},
                    {body.x + chance.between(0, 1.6), body.bottom()}},
                   7);
}

void drawWood(Canvas& canvas, const Rect& area, const Material& wood) {
    const Rect body = bodyOf(area);
    Chance chance(area);
    throwShade(canvas, body, 8);
    const VectorPath outline = plankOutline(body, chance);
    canvas.part(outline, wood, {.bevel = 4.5, .line = 1.5});
    const Mask inside = canvas.mask(plankOutline(body.inset(2.5), chance));
    drawFibres(canvas, body, wood, inside, chance);
    drawKnot(canvas, body, wood, inside, chance);
}

/// A box seen from above: a rim of wood, and a floor in its shade.
void drawTray(Canvas& canvas, const Rect& area) {
    drawWood(canvas, area, kPlankWood);
    const Rect hollow = bodyOf(area).inset(8);
    Material floor = kPlankWood;
    floor.base = kPlankWood.shadow;
    floor.light = kPlankWood.base;
    floor.shadow = kPlankWood.shadow * 0.6F;
    canvas.part(hollow.path(5), floor, {.bevel = 1.5, .line = 1.2, .shadow = 0});
    const Mask inside = canvas.mask(hollow.path(5));
    for (const double depth : {2.0, 4.0, 7.0}) {
        canvas.flat(Rect{hollow.x, hollow.y, hollow.width, depth}.path(), kBoardInk, {.alpha = 0.25F, .clip = &inside});
    }
}

// ---- metal

void drawGold(Canvas& canvas, const Rect& area) {
    const Rect body = bodyOf(area);
    throwShade(canvas, body, 9);
    canvas.flat(body.inset(-1.5).path(9), kBoardInk);
    canvas.part(body.inset(1.5).path(6.5), kGoldPlate, {.bevel = 5, .line = 0, .shadow = 0});
    canvas.flat(body.inset(6).path(3.5), kGoldPlate.shadow, {.alpha = 0.45F, .stroke = 0.9});
}

// ---- paper

/// A torn sheet: its edges stray by less than a pixel.
VectorPath sheetOutline(const Rect& body, Chance& chance) {
    std::vector<Point> corners;
    const auto edge = [&](Point from, Point to) {
        const int pieces = std::max(2, static_cast<int>(length(to - from) / 22));
        const Point across{(to.y - from.y) / length(to - from), -(to.x - from.x) / length(to - from)};
        for (int i = 0; i < pieces; ++i) {
            const double stray = i == 0 ? 0 : chance.between(-0.9, 0.3);
            corners.push_back(mix(from, to, static_cast<double>(i) / pieces) + across * stray);
        }
    };
    const Point b{body.right(), body.y};
    const Point c{body.right(), body.bottom()};
    edge({body.x, body.y}, b);
    edge(b, c);
    edge(c, {body.x, body.bottom()});
    edge({body.x, body.bottom()}, {body.x, body.y});
    return polygon(corners, 2.5);
}

/// Two folds that have been pressed flat again, darker edges, and stains along them.
void drawWear(Canvas& canvas, const Rect& body, const Mask& inside, Chance& chance) {
    const Point middle = body.centre();
    for (const double lit : {0.0, 1.0}) {
        const Rgb colour = lit > 0 ? kNoticePaper.light : kNoticePaper.shadow;
        const FlatStyle fold{.alpha = lit > 0 ? 0.45F : 0.20F, .stroke = 1.0, .clip = &inside};
        canvas.flat(polyline({{body.x, middle.y + lit}, {body.right(), middle.y + lit}}), colour, fold);
        canvas.flat(polyline({{middle.x + lit, body.y}, {middle.x + lit, body.bottom()}}), colour, fold);
    }
    for (const double width : {20.0, 16.0, 12.0, 8.0, 4.0}) {
        canvas.flat(body.path(), kNoticePaper.shadow, {.alpha = 0.045F, .stroke = width, .clip = &inside});
    }
    for (int i = 0; i < 5; ++i) {
        const Point at{body.x + body.width * chance.between(0, 1), body.y + body.height * (i % 2 == 0 ? 0.0 : 1.0)};
        const double reach = chance.between(14, 34);
        for (const double share : {1.0, 0.72, 0.45}) {
            canvas.flat(ellipse(at, reach * share, reach * share * 0.6), kNoticePaper.shadow,
                        {.alpha = 0.055F, .clip = &inside});
        }
    }
}

void drawPaper(Canvas& canvas, const Rect& area) {
    const Rect body = bodyOf(area);
    Chance chance(area);
    throwShade(canvas, body, 3);
    const VectorPath sheet = sheetOutline(body, chance);
    canvas.part(sheet, kNoticePaper, {.bevel = 2.2, .line = 1.5});
    const bool large = body.height > 100;
    const Mask inside = canvas.mask(sheet);
    if (large) drawWear(canvas, body, inside, chance);
}

// ---- strips and cells

/// A rounded strip with a line inside its edge.
void drawStrip(Canvas& canvas, const Rect& area, const Material& material, double radius, float innerLine) {
    const Rect body = bodyOf(area);
    throwShade(canvas, body, radius + 1);
    canvas.part(body.path(radius), material, {.bevel = 3.5, .line = 1.5});
    canvas.flat(body.inset(3.5).path(radius - 3), material.shadow, {.alpha = innerLine, .stroke = 1.0});
}

void drawSlate(Canvas& canvas, const Rect& area) {
    const Rect body = area.inset(1.5);
    canvas.part(body.path(4), kPlankWood, {.bevel = 2.2, .line = 1.2});
    canvas.part(body.inset(4).path(2.5), kSlate, {.bevel = 1.6, .line = 1.0, .shadow = 0});
    canvas.flat(Rect{body.x + 5, body.y + 5, body.width - 10, 2.5}.path(1), kBoardInk, {.alpha = 0.5F});
}

// ---- what holds a board, and what tells it from others

void drawFastening(Canvas& canvas, const Board& board) {
    const Rect body = bodyOf(board.area);
    const bool plank = body.height < 100 && board.kind != BoardKind::Paper;
    switch (board.fastening) {
        case Fastening::None: return;
        case Fastening::Nails:
            if (plank) {
                if (board.mark != Mark::Spoon) drawNail(canvas, {body.x + kNailInset, body.centre().y});
                if (board.mark == Mark::None || board.mark == Mark::Spoon)
                    drawNail(canvas, {body.right() - kNailInset, body.centre().y});
                return;
            }
            for (const double x : {body.x + 10, body.right() - 10}) {
                for (const double y : {body.y + 10, body.bottom() - 10}) drawNail(canvas, {x, y});
            }
            return;
        case Fastening::Rings:
            for (const double share : {0.2, 0.8}) drawRing(canvas, {body.x + body.width * share, body.y + 13});
            return;
        case Fastening::Chains:
            for (const double share : {0.12, 0.88}) drawChain(canvas, {body.x + body.width * share, body.y + 6});
            return;
    }
}

void drawMark(Canvas& canvas, const Board& board) {
    const Rect body = bodyOf(board.area);
    const Point atRight{body.right() - 18, body.centre().y};
    switch (board.mark) {
        case Mark::None: return;
        case Mark::Arrow: return canvas.flat(arrowHead(atRight, 15), kBoardInk);
        case Mark::HollowArrow: return canvas.flat(arrowHead(atRight, 13), kBoardInk, {.stroke = 2.2});
        case Mark::Spoon: return drawSpoonMark(canvas, {body.x + 5 + board.spoon / 2, body.centre().y}, board.spoon);
    }
}

void drawSurface(Canvas& canvas, const Board& board) {
    switch (board.kind) {
        case BoardKind::Plank: return drawWood(canvas, board.area, kPlankWood);
        case BoardKind::Tan: return drawWood(canvas, board.area, kTanWood);
        case BoardKind::Gold: return drawGold(canvas, board.area);
        case BoardKind::Paper: return drawPaper(canvas, board.area);
        case BoardKind::Hint: return drawStrip(canvas, board.area, kNoticePaper, 9, 0.55F);
        case BoardKind::Caption: return drawStrip(canvas, board.area, kCaptionStrap, 7, 0.35F);
        case BoardKind::Balloon: return drawBalloon(canvas, board.area, board.speaker);
        case BoardKind::Slate: return drawSlate(canvas, board.area);
        case BoardKind::Tray: return drawTray(canvas, board.area);
        case BoardKind::Wall:
        case BoardKind::Night: return;
    }
}

}  // namespace

void drawBoard(Canvas& canvas, const Board& board) {
    drawSurface(canvas, board);
    drawFastening(canvas, board);
    drawMark(canvas, board);
}

}  // namespace grub
