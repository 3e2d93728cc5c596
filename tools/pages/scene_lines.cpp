#include <array>

#include "board_looks.h"
#include "drawing_lines.h"
#include "hall_set.h"
#include "sets_room.h"
#include "shapes.h"
#include "stage.h"

namespace grub {

namespace {

/// The line round a panel, in pixels.
constexpr double kPanelLine = 3;

struct HallName {
    std::string_view name;
    Hall hall;
};
constexpr std::array kHalls{HallName{"turma", Hall::Turma}, HallName{"jelezo", Hall::Jelezo},
                            HallName{"podval", Hall::Podval}};

Draw readHall(LineReader& line) {
    const HallName* hall = line.row("a world", std::span<const HallName>(kHalls));
    const Point corner = line.point();
    const int columns = line.whole("columns", 1, 100);
    const int rows = line.whole("rows", 1, 100);
    const int floorRow = line.whole("the row of the floor", 0, 100);
    if (hall == nullptr) return {};
    const HallSet set{hall->hall, columns, rows, floorRow};
    return [=](Painting& p) { drawHall(p.canvas, set, corner); };
}

/// Rows of signs up to the end of the line.
Draw readStage(LineReader& line) {
    const HallName* hall = line.row("a world", std::span<const HallName>(kHalls));
    const Point corner = line.point();
    if (hall == nullptr) return {};
    Stage stage{hall->hall, {}};
    do {
        stage.rows.push_back(line.quoted("a row of signs"));
    } while (line.ok() && !line.atEnd());
    if (const auto fault = faultOf(stage))
        line.fail("signs that README.md lists, one blank between two, as many in each row", *fault);
    return [=](Painting& p) { p.fit = drawStage(p.canvas, stage, corner); };
}

Draw readSet(LineReader& line) {
    const std::string name = line.word("a set");
    const Rect area = line.area();
    const SetDrawing* set = findSet(name);
    if (set == nullptr) line.fail("a set of content/art/sets", name);
    return [=](Painting& p) { drawSet(p.canvas, *set, area); };
}

/// An area of one colour, or of two that flow into each other from top to bottom.
Draw readFill(LineReader& line) {
    const Rect area = line.area();
    const Rgb above = line.colour();
    const bool flows = !line.atEnd();
    const Rgb below = flows ? line.colour() : above;
    return [=](Painting& p) {
        const int bands = flows ? static_cast<int>(area.height) : 1;
        for (int i = 0; i < bands; ++i) {
            const Rect band{area.x, area.y + area.height * i / bands, area.width, area.height / bands};
            p.canvas.flat(band.path(), mix(above, below, (static_cast<float>(i) + 0.5F) / static_cast<float>(bands)));
        }
    };
}

Draw readGlow(LineReader& line) {
    const Point at = line.point();
    const double radius = line.number("a radius", 1);
    const Rgb colour = line.colour();
    const auto strength = static_cast<float>(line.number("a strength", 0, 4));
    return [=](Painting& p) { p.canvas.glow(at, radius, colour, strength); };
}

Draw readDim(LineReader& line) {
    const Point at = line.point();
    const double radius = line.number("a radius", 1);
    const float dark = line.share("the share of light that is left");
    return [=](Painting& p) { p.canvas.dimAround(at, radius, dark); };
}

Draw readShade(LineReader& line) {
    const Rect area = line.area();
    const auto above = static_cast<float>(line.number("the share of light above", 0, 4));
    const auto below = static_cast<float>(line.number("the share of light below", 0, 4));
    return [=](Painting& p) {
        const Mask inside = p.canvas.mask(area.path());
        p.canvas.shadeRows(area.y, area.bottom(), above, below, &inside);
    };
}

/// What follows, up to `end`, shows only inside.
Draw readPanel(LineReader& line) {
    const Rect area = line.area();
    return [=](Painting& p) {
        p.panels.emplace_back(p.canvas, GroupStyle{.box = area});
        p.frames.push_back(area);
    };
}

Draw readEnd(LineReader&) {
    return [](Painting& p) {
        p.panels.pop_back();
        p.canvas.flat(p.frames.back().inset(kPanelLine / 2).path(), kBoardInk, {.stroke = kPanelLine});
        p.frames.pop_back();
    };
}

constexpr std::array kKinds{
    DrawingKind{"hall", readHall},   DrawingKind{"stage", readStage}, DrawingKind{"set", readSet},
    DrawingKind{"fill", readFill},   DrawingKind{"glow", readGlow},   DrawingKind{"dim", readDim},
    DrawingKind{"shade", readShade}, DrawingKind{"panel", readPanel}, DrawingKind{"end", readEnd},
};

}  // namespace

std::span<const DrawingKind> sceneKinds() { return kKinds; }

}  // namespace grub
