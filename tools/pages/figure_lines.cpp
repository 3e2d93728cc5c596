#include <algorithm>
#include <array>
#include <numbers>

#include "drawing_lines.h"
#include "expression.h"
#include "figure_drawing.h"
#include "props.h"
#include "rooms.h"

namespace grub {

namespace {

/// The point of a figure's cell between its soles.
constexpr Point kSoles{32, 61};

struct PropName {
    std::string_view name;
    Prop prop;
};
constexpr std::array kProps{
    PropName{"none", Prop::None},
    PropName{"spoon", Prop::Spoon},
    PropName{"goldspoon", Prop::GoldSpoon},
    PropName{"spoonkeys", Prop::SpoonWithKeys},
    PropName{"pin", Prop::RollingPin},
    PropName{"pie", Prop::Pie},
    PropName{"key", Prop::Key},
    PropName{"keys", Prop::Keys},
    PropName{"crumb", Prop::Crumb},
    PropName{"napkin", Prop::Napkin},
};

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// The two halves of "A:B".
struct Halves {
    std::string first;
    std::string second;
};
Halves halvesOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) return {text, ""};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

Prop propOf(LineReader& line, const std::string& name) {
    const auto* found = std::ranges::find(kProps, name, &PropName::name);
    if (found != kProps.end()) return found->prop;
    line.fail("none, spoon, goldspoon, spoonkeys, pin, pie, key, keys, crumb or napkin", name);
    return Prop::None;
}

Held heldOf(LineReader& line, const std::string& text) {
    const auto [prop, degrees] = halvesOf(text);
    return {propOf(line, prop), degrees.empty() ? 0 : radians(line.valueOf(degrees, "degrees"))};
}

Point pairOf(LineReader& line, const std::string& text) {
    const auto [first, second] = halvesOf(text);
    const double x = line.valueOf(first, "a pair such as 0.5:-0.2");
    return {x, line.valueOf(second, "a pair such as 0.5:-0.2")};
}

Tint tintOf(LineReader& line, const std::string& text) {
    const auto [colour, share] = halvesOf(text);
    return {line.colourOf(colour), static_cast<float>(line.valueOf(share, "a share", 0, 1))};
}

const FigureDrawing* readFigureName(LineReader& line) {
    const std::string name = line.word("a figure");
    const FigureDrawing* figure = findFigure(name);
    if (figure == nullptr) line.fail("a figure (grub, dog, lady, rat)", name);
    return figure;
}

Expression readExpression(LineReader& line) {
    const NamedExpression* mood = line.row("a mood", std::span<const NamedExpression>(kExpressions));
    return mood == nullptr ? Expression{} : mood->expression;
}

/// A figure as a line describes it.
struct Actor {
    const FigureDrawing* figure = nullptr;
    Pose pose;
    Expression mood;
    FigureStyle style;
    double scale = 1;
    Point at;

    Point corner() const { return at - kSoles * scale; }
};

/// Size, place and side, which figures and heads have in common.
void readStanding(LineReader& line, Actor& actor) {
    actor.scale = line.scale();
    actor.at = line.point();
    actor.style.facesLeft = line.takes("left");
    if (!actor.style.facesLeft && !line.takes("right")) line.fail("left or right", line.word("left or right"));
}

/// One "key=value"; false when the word is none that the line may hold.
bool readChange(LineReader& line, Actor& actor) {
    Pose& pose = actor.pose;
    if (const auto tint = line.takesValue("tint")) {
        actor.style.tint = tintOf(line, *tint);
    } else if (const auto shadow = line.takesValue("shadow")) {
        actor.style.shadow = static_cast<float>(line.valueOf(*shadow, "a share", 0, 1));
    } else if (const auto roll = line.takesValue("roll")) {
        pose.roll += radians(line.valueOf(*roll, "degrees"));
    } else if (const auto lean = line.takesValue("lean")) {
        pose.lean += radians(line.valueOf(*lean, "degrees"));
    } else if (const auto tilt = line.takesValue("tilt")) {
        pose.head.tilt += radians(line.valueOf(*tilt, "degrees"));
    } else if (const auto turn = line.takesValue("turn")) {
        pose.head.turn = line.valueOf(*turn, "pixels", -4, 4);
    } else if (const auto hat = line.takesValue("hat")) {
        pose.head.hatTilt += radians(line.valueOf(*hat, "degrees"));
    } else if (const auto look = line.takesValue("look")) {
        actor.mood.look = pairOf(line, *look);
    } else if (const auto hold = line.takesValue("hold")) {
        pose.nearArm.held = heldOf(line, *hold);
    } else if (const auto far = line.takesValue("holdfar")) {
        pose.farArm.held = heldOf(line, *far);
    } else if (const auto mouth = line.takesValue("mouth")) {
        pose.inMouth = propOf(line, *mouth);
    } else if (const auto tail = line.takesValue("tail")) {
        pose.onTail = propOf(line, *tail);
    } else if (const auto neck = line.takesValue("neck")) {
        pose.atNeck = propOf(line, *neck);
    } else {
        return false;
    }
    return true;
}

void readChanges(LineReader& line, Actor& actor) {
    while (line.ok() && !line.atEnd()) {
        if (!readChange(line, actor))
            return line.fail(
                "tint=, shadow=, roll=, lean=, tilt=, turn=, hat=, look=, hold=, holdfar=, mouth=, tail= "
                "or neck=",
                line.word("a change"));
    }
}

Draw readFigure(LineReader& line) {
    Actor actor;
    actor.figure = readFigureName(line);
    if (actor.figure == nullptr) return {};
    if (const NamedPose* pose = line.row("a pose", actor.figure->poses)) actor.pose = pose->pose;
    actor.mood = readExpression(line);
    readStanding(line, actor);
    readChanges(line, actor);
    return [=](Painting& p) {
        const auto cell = p.canvas.placed(actor.corner(), 0, actor.scale, actor.scale);
        actor.figure->draw(p.canvas, actor.pose, actor.mood, actor.style);
    };
}

/// The head, where it is on a figure that stands with its soles at the point.
Draw readHead(LineReader& line) {
    Actor actor;
    actor.figure = readFigureName(line);
    actor.mood = readExpression(line);
    readStanding(line, actor);
    readChanges(line, actor);
    return [=](Painting& p) {
        const auto cell = p.canvas.placed(actor.corner(), 0, actor.scale, actor.scale);
        actor.figure->drawHead(p.canvas, actor.pose.head, actor.mood, actor.style);
    };
}

Draw readProp(LineReader& line) {
    const PropName* prop = line.row("a prop", std::span<const PropName>(kProps));
    const double scale = line.scale();
    const Point at = line.point();
    const double degrees = line.number("degrees");
    if (prop == nullptr) return {};
    return [=, prop = prop->prop](Painting& p) {
        const auto placed = p.canvas.placed(at, 0, scale, scale);
        drawProp(p.canvas, {}, {prop, radians(degrees)});
    };
}

Draw readSteam(LineReader& line) {
    const double scale = line.scale();
    const Point at = line.point();
    return [=](Painting& p) {
        const auto placed = p.canvas.placed(at, 0, scale, scale);
        drawSteam(p.canvas, {});
    };
}

/// A frame of a strip, its upper left corner at the point: pixel for pixel, or drawn again at another size.
Draw readStrip(LineReader& line) {
    const std::string name = line.word("a strip");
    const StripDrawing* strip = findStrip(name);
    if (strip == nullptr) {
        line.fail("a strip of 'grubtool render list'", name);
        return {};
    }
    const int frame = line.whole("a frame", 0, strip->frames - 1);
    const Point at = line.point();
    const bool natural = line.atEnd();
    const double scale = natural ? 1 : line.scale();
    double rows = strip->frameHeight;
    if (const auto upper = line.takesValue("rows")) rows = line.valueOf(*upper, "rows", 1, rows);
    return [=](Painting& p) {
        if (natural) return p.canvas.stamp(renderFrame(*strip, frame), at);
        const auto placed = p.canvas.placed(at, 0, scale, scale);
        const auto alone = p.canvas.group({.box = Rect{0, 0, 1.0 * strip->width, rows}});
        strip->draw(p.canvas, {frame, strip->frames, strip->name});
    };
}

constexpr std::array kKinds{
    DrawingKind{"figure", readFigure}, DrawingKind{"head", readHead},   DrawingKind{"prop", readProp},
    DrawingKind{"steam", readSteam},   DrawingKind{"strip", readStrip},
};

}  // namespace

std::span<const DrawingKind> figureKinds() { return kKinds; }

}  // namespace grub
