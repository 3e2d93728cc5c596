#include "stage.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "board_looks.h"
#include "palette.h"
#include "rooms.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr int kCell = 64;

/// Every scene has this much more height than its rows: all of it is air above where the last row is floor; otherwise a
/// strip of floor below takes its part.
constexpr int kMargin = 16;
constexpr int kStrip = 12;

constexpr double kFrameLine = 3;

// ---- tables

/// The pictures of a world. Ends are: none, left, right, both.
struct StageTiles {
    std::array<std::string_view, 4> floor;
    std::string_view under;  // floor under a floor
    std::string_view breaking;
    std::string_view solid;
    std::array<std::string_view, 3> ladder;  // top, middle, foot
    std::array<std::string_view, 4> pipe;
    std::string_view door;
    Rgb light;
};
constexpr std::array<std::string_view, 3> kWoodLadder{"lesenki\\lest_v", "lesenki\\modul_lestn", "lesenki\\lest_n"};
constexpr std::array<std::string_view, 4> kCopperPipe{"trubi\\mod_trub04", "trubi\\tr_kray1", "trubi\\tr_kray2",
                                                      "trubi\\tr_kray3"};
constexpr std::array kTiles{
    StageTiles{{"steny\\modul_pol_11a", "poly\\pol_kray1", "poly\\pol_kray2", "poly\\pol_kray3"},
               "poly\\modul_pol01",
               "poly\\lom1",
               "poly\\modul_pol04",
               kWoodLadder,
               kCopperPipe,
               "dveri\\door_a",
               kTurma.glow},
    StageTiles{{"poly\\pol_jel", "poly\\pol_kray4", "poly\\pol_kray5", "poly\\pol_kray6"},
               "jelezo\\pol_der_full",
               "jelezo\\animation_floor_iron_01",
               "poly\\kam_jel",
               {"trubi\\tr_lest1", "lesenki\\lest_j", "trubproz\\tr_lest"},
               {"trubi\\mod_trub14", "trubi\\tr_kray4", "trubi\\tr_kray5", "trubi\\tr_kray6"},
               "dveri\\animation_door_iron_01",
               kJelezo.glow},
    StageTiles{{"poly\\tr_pol1", "poly\\truba_za3", "poly\\truba_za5", "poly\\truba_za6"},
               "poly\\tr_pol3",
               "poly\\truba_za1",
               "fon\\kam1",
               kWoodLadder,
               kCopperPipe,
               "dveri\\dverfin1",
               kPodval.glow},
};

/// A frame of a strip.
struct Shown {
    std::string_view strip;
    int frame;
};

/// Who goes, rests and falls. All strips face left.
struct StageFigure {
    char sign;
    Shown going;
    Shown resting;
    Shown falling;
};
constexpr std::array kFigures{
    StageFigure{'@', {"grub\\ani_01", 1}, {"grub\\ani_08", 0}, {"grub\\ani_03", 0}},
    StageFigure{'d', {"polkan\\ani_01", 0}, {"polkan\\ani_01", 0}, {"polkan\\ani_04", 3}},
    StageFigure{'l', {"tetka\\ani_01", 0}, {"tetka\\ani_01", 0}, {"tetka\\ani_06", 3}},
    StageFigure{'r', {"rat\\ani_01", 0}, {"rat\\ani_01", 0}, {"rat\\ani_01", 0}},
};
constexpr Shown kClimbing{"grub\\ani_02", 5};
constexpr Shown kHanging{"grub\\ani_04", 3};
constexpr Shown kDigging{"grub\\ani_05", 4};
constexpr Shown kTrapped{"polkan\\ani_05", 7};

struct StageBonus {
    char sign;
    std::string_view strip;
    std::string_view name;
};
constexpr std::array kBonuses{
    StageBonus{'1', "bonuses\\animation_bonus_04", "Heart"}, StageBonus{'2', "bonuses\\animation_bonus_06", "Bubble"},
    StageBonus{'3', "bonuses\\animation_bonus_03", "Cloak"}, StageBonus{'4', "bonuses\\animation_bonus_05", "Anchor"},
    StageBonus{'5', "bonuses\\animation_bonus_02", "Bomb"},  StageBonus{'6', "bonuses\\animation_bonus_01", "Skull"},
};

constexpr std::string_view kArrows = ">v<^";  // in quarter turns
constexpr std::string_view kOthers = ".#=_/tHhCP-kED";

template <class Rows>
auto rowFor(const Rows& rows, char sign) {
    const auto* found = std::ranges::find(rows, sign, [](const auto& row) { return row.sign; });
    return found == rows.end() ? nullptr : found;
}

bool isOneOf(char sign, std::string_view signs) { return signs.find(sign) != std::string_view::npos; }

bool isKnown(char sign) {
    return isOneOf(sign, kArrows) || isOneOf(sign, kOthers) || rowFor(kFigures, sign) != nullptr ||
           rowFor(kBonuses, sign) != nullptr;
}

// ---- what stands where

/// The signs without the blanks between them.
class Signs {
public:
    explicit Signs(const Stage& stage) : stage_(stage) {}

    int columns() const { return static_cast<int>(stage_.rows.front().size() + 1) / 2; }
    int rows() const { return static_cast<int>(stage_.rows.size()); }
    /// Beyond the left and right edge the cell at the edge goes on; above and below is air.
    char at(int column, int row) const {
        if (row < 0 || row >= rows()) return '.';
        const auto index = static_cast<std::size_t>(std::clamp(column, 0, columns() - 1)) * 2;
        return stage_.rows[static_cast<std::size_t>(row)][index];
    }
    bool isGround(int column, int row) const { return isOneOf(at(column, row), "=#_/t"); }
    bool isLadder(int column, int row) const { return isOneOf(at(column, row), "HhC"); }
    /// Arrows beside a pipe lie on it.
    bool isPipe(int column, int row) const {
        if (isOneOf(at(column, row), "P-")) return true;
        if (!isOneOf(at(column, row), "<>") || column < 0 || column >= columns()) return false;
        return isOneOf(at(column - 1, row), "P-") || isOneOf(at(column + 1, row), "P-");
    }
    /// The last row has floor everywhere.
    bool hasGround() const {
        for (int column = 0; column < columns(); ++column) {
            if (!isGround(column, rows() - 1) && !isLadder(column, rows() - 1)) return false;
        }
        return true;
    }

private:
    const Stage& stage_;
};

/// Which of a tile's ends are open, as the tables count them.
std::size_t ends(bool left, bool right) { return (left ? 1U : 0U) + (right ? 2U : 0U); }

// ---- drawing: canvas coordinates are those of the scene

void stampShown(Canvas& canvas, Shown shown, Point at, bool mirrored = false) {
    const StripDrawing* strip = findStrip(shown.strip);
    if (strip == nullptr) return;
    PixelImage image = renderFrame(*strip, shown.frame);
    if (mirrored) {
        for (int y = 0; y < image.height; ++y) std::reverse(image.row(y), image.row(y) + image.width);
    }
    canvas.stamp(image, at);
}

void drawLadderCell(Canvas& canvas, const Signs& signs, const StageTiles& tiles, int column, int row, Point at) {
    const bool top = !signs.isLadder(column, row - 1);
    const bool foot = !signs.isLadder(column, row + 1) && row + 1 < signs.rows();
    const Shown ladder{tiles.ladder[top ? 0 : foot ? 2 : 1], 0};
    if (signs.at(column, row) != 'h') return stampShown(canvas, ladder, at);
    // Still hidden: pale, in a dashed frame.
    {
        const auto hidden = canvas.group({.cover = 0.5F});
        stampShown(canvas, ladder, at);
    }
    for (int y = 2; y < kCell; y += 12) {
        for (const double x : {6.0, kCell - 6.0})
            canvas.flat(polyline({at + Point{x, 1.0 * y}, at + Point{x, y + 6.0}}), kBoardCream, {.stroke = 2.4});
    }
}

/// Floor under a floor; its tile has no edges of its own.
void drawUnderFloor(Canvas& canvas, const Signs& signs, const StageTiles& tiles, int column, int row, Point at) {
    constexpr double kLine = 2;
    stampShown(canvas, {tiles.under, 0}, at);
    if (!signs.isGround(column - 1, row)) canvas.flat(rectangle(at.x, at.y, kLine, kCell), kBoardInk);
    if (!signs.isGround(column + 1, row)) canvas.flat(rectangle(at.x + kCell - kLine, at.y, kLine, kCell), kBoardInk);
}

void drawTileAt(Canvas& canvas, const Signs& signs, const StageTiles& tiles, int column, int row, Point at) {
    const char sign = signs.at(column, row);
    if (signs.isPipe(column, row)) {
        const auto open = ends(!signs.isPipe(column - 1, row), !signs.isPipe(column + 1, row));
        return stampShown(canvas, {tiles.pipe[open], 0}, at);
    }
    if (signs.isLadder(column, row)) return drawLadderCell(canvas, signs, tiles, column, row, at);
    switch (sign) {
        case '=': {
            if (signs.isGround(column, row - 1)) return drawUnderFloor(canvas, signs, tiles, column, row, at);
            const auto open = ends(!signs.isGround(column - 1, row), !signs.isGround(column + 1, row));
            return stampShown(canvas, {tiles.floor[open], 0}, at);
        }
        case '#': return stampShown(canvas, {tiles.solid, 0}, at);
        case '_':
        case 't': return stampShown(canvas, {tiles.breaking, 7}, at);
        case '/': return stampShown(canvas, {tiles.breaking, 4}, at);
        case 'E': return stampShown(canvas, {tiles.door, 9}, at);
        default: break;
    }
    if (signs.isGround(column, row - 1)) stampShown(canvas, {"fon\\sh1_proz", 0}, at);
}

void drawFigureAt(Canvas& canvas, const Signs& signs, int column, int row, Point at) {
    const char sign = signs.at(column, row);
    if (sign == 'k') return stampShown(canvas, {"key_h", 0}, at);
    if (sign == 't') return stampShown(canvas, kTrapped, at);
    if (sign == 'C') return stampShown(canvas, kClimbing, at);
    if (sign == 'P') return stampShown(canvas, kHanging, at);
    if (sign == 'D') return stampShown(canvas, kDigging, at);
    const StageFigure* figure = rowFor(kFigures, sign);
    if (figure == nullptr) return;
    if (signs.at(column, row + 1) == '_') return stampShown(canvas, figure->falling, at);
    const bool left = column > 0 && signs.at(column - 1, row) == '<';
    const bool right = signs.at(column + 1, row) == '>';
    stampShown(canvas, left == right ? figure->resting : figure->going, at, right && !left);
}

/// Half as large again as in play, about the left edge of its cell, so that three share six columns evenly.
Fit drawBonusAt(Canvas& canvas, const StageBonus& bonus, Point at) {
    constexpr double kScale = 1.5;
    constexpr double kNameHeight = 26;
    const StripDrawing* strip = findStrip(bonus.strip);
    if (strip == nullptr) return {};
    at.x -= kCell / 2.0;
    {
        const auto larger =
            canvas.placed(at + Point{kCell / 2.0 * (1 - kScale), kCell * (1 - kScale)}, 0, kScale, kScale);
        strip->draw(canvas, {0, strip->frames, strip->name});
    }
    return drawWords(canvas, {.area = {at.x - 20, at.y - kCell * (kScale - 1) - kNameHeight, kCell + 40.0, kNameHeight},
                              .size = 18,
                              .ink = Ink::Cream,
                              .board = BoardKind::Wall,
                              .text = bonus.name});
}

/// An arrow of 40 px about the middle of its cell.
void drawArrowAt(Canvas& canvas, double quarterTurns, Point at) {
    Material cream = glossy(material(kBoardCream), 0.2F);
    cream.ink = kBoardInk;
    const auto turned = canvas.placed(at + Point{kCell / 2.0, kCell / 2.0}, quarterTurns * 1.5707963267948966);
    canvas.part(polygon({{-20, -7}, {0, -7}, {0, -18}, {20, 0}, {0, 18}, {0, 7}, {-20, 7}}, 3), cream,
                {.bevel = 5, .line = 2, .shadow = 0.5F});
}

template <class DrawCell>
void forEachCell(const Signs& signs, DrawCell draw) {
    for (int row = 0; row < signs.rows(); ++row) {
        for (int column = 0; column < signs.columns(); ++column)
            draw(column, row, Point{1.0 * column * kCell, 1.0 * row * kCell});
    }
}

}  // namespace

std::optional<std::string> faultOf(const Stage& stage) {
    for (const std::string& row : stage.rows) {
        if (row.size() % 2 == 0 || row.size() != stage.rows.front().size()) return row;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i % 2 == 0 ? !isKnown(row[i]) : row[i] != ' ') return row;
        }
    }
    return std::nullopt;
}

Fit drawStage(Canvas& canvas, const Stage& stage, Point corner) {
    const Signs signs(stage);
    const StageTiles& tiles = kTiles[static_cast<std::size_t>(stage.world)];
    const int air = kMargin - (signs.hasGround() ? 0 : kStrip);
    const Rect area{corner.x, corner.y, 1.0 * signs.columns() * kCell, 1.0 * signs.rows() * kCell + kMargin};
    Fit fit;
    {
        const auto cut = canvas.group({.box = area});
        const auto placed = canvas.placed(corner + Point{0, 1.0 * air});
        // One row above for the air, one below for the strip.
        const int rows = signs.rows() + 2;
        drawHall(canvas, {.hall = stage.world, .columns = signs.columns(), .rows = rows, .floorRow = rows - 1},
                 {0, -kCell});
        forEachCell(signs, [&](int column, int row, Point at) { drawTileAt(canvas, signs, tiles, column, row, at); });
        canvas.glow({area.width / 2, 40}, 0.7 * area.width, tiles.light, 0.24F);
        forEachCell(signs, [&](int column, int row, Point at) { drawFigureAt(canvas, signs, column, row, at); });
        forEachCell(signs, [&](int column, int row, Point at) {
            const char sign = signs.at(column, row);
            if (const StageBonus* bonus = rowFor(kBonuses, sign)) fit.add(drawBonusAt(canvas, *bonus, at));
            if (isOneOf(sign, kArrows)) drawArrowAt(canvas, static_cast<double>(kArrows.find(sign)), at);
        });
    }
    canvas.flat(area.inset(kFrameLine / 2).path(), kBoardInk, {.stroke = kFrameLine});
    return fit;
}

}  // namespace grub
