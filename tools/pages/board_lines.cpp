#include <algorithm>
#include <array>

#include "board_looks.h"
#include "controls.h"
#include "drawing_lines.h"
#include "fittings.h"
#include "key_cap.h"
#include "shapes.h"

namespace grub {

namespace {

template <class Value>
struct Named {
    std::string_view name;
    Value value;
};

constexpr Named<BoardKind> kBoards[] = {
    {"plank", BoardKind::Plank},     {"gold", BoardKind::Gold},   {"tan", BoardKind::Tan},
    {"paper", BoardKind::Paper},     {"hint", BoardKind::Hint},   {"caption", BoardKind::Caption},
    {"balloon", BoardKind::Balloon}, {"slate", BoardKind::Slate}, {"tray", BoardKind::Tray},
    {"wall", BoardKind::Wall},       {"night", BoardKind::Night},
};
constexpr Named<Fastening> kFastenings[] = {
    {"nails", Fastening::Nails}, {"rings", Fastening::Rings}, {"chains", Fastening::Chains}};
constexpr Named<Mark> kMarks[] = {{"arrow", Mark::Arrow}, {"hollow", Mark::HollowArrow}, {"spoon", Mark::Spoon}};
constexpr Named<Face> kFaces[] = {{"display", Face::Display}, {"body", Face::Body}};
constexpr Named<Align> kAligns[] = {{"l", Align::Left}, {"c", Align::Centre}, {"r", Align::Right}};
constexpr Named<Ink> kInks[] = {{"ink", Ink::Dark}, {"cream", Ink::Cream}, {"gold", Ink::Golden}};

/// By how much letters on a pressed board stand lower.
constexpr double kPress = 2;

/// The value that the next word names.
template <class Value, std::size_t N>
Value read(LineReader& line, std::string_view what, const Named<Value> (&names)[N]) {
    const auto* row = line.row(what, std::span<const Named<Value>>(names));
    return row == nullptr ? Value{} : row->value;
}

/// The same, when the next word names one.
template <class Value, std::size_t N>
void readIfThere(LineReader& line, Value& value, const Named<Value> (&names)[N]) {
    for (const auto& row : names) {
        if (line.takes(row.name)) value = row.value;
    }
}

Draw readBoard(LineReader& line) {
    Board board;
    board.area = line.area();
    board.kind = read(line, "a kind of board", kBoards);
    readIfThere(line, board.fastening, kFastenings);
    readIfThere(line, board.mark, kMarks);
    if (const auto length = line.takesValue("spoon")) {
        board.mark = Mark::Spoon;
        board.spoon = line.valueOf(*length, "a length", 12, 100);
    }
    return [=](Painting& p) { drawBoard(p.canvas, board); };
}

/// "{frame}" in words is the number of the frame that is drawn.
std::string filled(std::string text, int frame) {
    constexpr std::string_view kMark = "{frame}";
    if (const std::size_t at = text.find(kMark); at != std::string::npos)
        text.replace(at, kMark.size(), std::to_string(frame));
    return text;
}

Draw readWords(LineReader& line) {
    return [baked = readBakedWords(line)](Painting& p) {
        const std::string shown = filled(baked.text, p.frame);
        Words words = baked.look;
        words.text = shown;
        const bool sign = words.board == BoardKind::Caption || words.board == BoardKind::Balloon;
        p.fit = sign ? drawSign(p.canvas, words, baked.speaker) : drawWords(p.canvas, words);
    };
}

Draw readGroove(LineReader& line) {
    const Rect area = line.area();
    const int values = line.whole("values", 2, 100);
    return [=](Painting& p) { drawGroove(p.canvas, area, values); };
}

/// The knob of a groove stands where the value is the frame's number.
Draw readKnob(LineReader& line) {
    const Rect groove = line.area();
    const int values = line.whole("values", 2, 100);
    return [=](Painting& p) { drawKnob(p.canvas, {knobX(groove, values, p.frame), groove.centre().y}); };
}

Draw readTick(LineReader& line) {
    const Rect area = line.area();
    const bool on = line.takes("on");
    if (!on && !line.takes("off")) line.fail("on or off", line.word("on or off"));
    return [=](Painting& p) { drawTickBox(p.canvas, area, on); };
}

Draw readPlate(LineReader& line) {
    const Rect area = line.area();
    const BoardKind board = read(line, "a board", kBoards);
    return [=](Painting& p) { drawDigitPlate(p.canvas, area, board); };
}

Draw readCap(LineReader& line) {
    const Rect area = line.area();
    const std::string key = line.quoted("a key");
    return [=](Painting& p) { drawKeyCap(p.canvas, area, Font(Face::Body, area.height * 0.55), key); };
}

Draw readNail(LineReader& line) {
    const Point at = line.point();
    return [=](Painting& p) { drawNail(p.canvas, at); };
}

Draw readSpoon(LineReader& line) {
    const Point at = line.point();
    const double length = line.number("a length", 4, 200);
    return [=](Painting& p) { drawSpoonMark(p.canvas, at, length); };
}

struct WayName {
    std::string_view name;
    double angle;
};
constexpr std::array kWays{WayName{"right", 0}, WayName{"down", 1.570796326794896}, WayName{"left", 3.141592653589793},
                           WayName{"up", 4.71238898038469}};

/// A cream arrow-head with an ink line, or one in ink.
Draw readArrow(LineReader& line) {
    const Point at = line.point();
    const double length = line.number("a length", 4, 200);
    const WayName* way = line.row("a way", std::span<const WayName>(kWays));
    const bool cream = line.takes("cream");
    if (way == nullptr) return {};
    return [=, angle = way->angle](Painting& p) {
        const VectorPath head = arrowHead(at, length, angle);
        if (cream) p.canvas.flat(head, kBoardInk, {.stroke = 6});
        p.canvas.flat(head, cream ? kBoardCream : kBoardInk);
    };
}

/// What a control is about: loudness of sounds, or of music.
Draw readIcon(LineReader& line) {
    const Point centre = line.point();
    const double size = line.number("a size", 8, 100);
    const bool speaker = line.takes("speaker");
    if (!speaker && !line.takes("note")) line.fail("speaker or note", line.word("speaker or note"));
    return [=](Painting& p) { speaker ? drawSpeaker(p.canvas, centre, size) : drawNote(p.canvas, centre, size); };
}

/// From one dot of a dotted line to the next.
constexpr double kDotPitch = 4;

/// A row of dots in ink, as wide as the area.
Draw readDots(LineReader& line) {
    const Rect area = line.area();
    return [=](Painting& p) {
        const int dots = static_cast<int>(area.width / kDotPitch);
        for (int i = 0; i < dots; ++i) {
            const Point at{area.x + 1 + i * kDotPitch, area.centre().y};
            p.canvas.flat(circle(at, std::min(1.0, area.height / 2)), kBoardInk, {.alpha = 0.6F});
        }
    };
}

constexpr std::array kKinds{
    DrawingKind{"board", readBoard}, DrawingKind{"W", readWords},   DrawingKind{"groove", readGroove},
    DrawingKind{"knob", readKnob},   DrawingKind{"tick", readTick}, DrawingKind{"plate", readPlate},
    DrawingKind{"cap", readCap},     DrawingKind{"nail", readNail}, DrawingKind{"spoon", readSpoon},
    DrawingKind{"arrow", readArrow}, DrawingKind{"dots", readDots}, DrawingKind{"icon", readIcon},
};

}  // namespace

std::span<const DrawingKind> boardKinds() { return kKinds; }

BakedWords readBakedWords(LineReader& line) {
    BakedWords baked;
    Words& words = baked.look;
    words.area = line.area();
    words.face = read(line, "a font", kFaces);
    words.size = line.number("a size of letters", 16, 200);
    words.align = read(line, "l, c or r", kAligns);
    words.ink = read(line, "an ink", kInks);
    words.board = read(line, "a board", kBoards);
    baked.text = line.quoted("words");
    if (line.takes("speaker")) baked.speaker = line.point();
    if (line.takes("pressed")) words.area = words.area.moved({0, kPress});
    words.flowing = line.takes("flowing");
    return baked;
}

const DrawingKind* findDrawingKind(std::string_view name) {
    for (const auto kinds : {sceneKinds(), figureKinds(), boardKinds()}) {
        const auto found = std::ranges::find(kinds, name, &DrawingKind::name);
        if (found != kinds.end()) return &*found;
    }
    return nullptr;
}

}  // namespace grub
