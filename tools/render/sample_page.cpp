#include "sample_page.h"

#include <algorithm>
#include <array>

#include "button.h"
#include "hall_set.h"
#include "rooms.h"
#include "shapes.h"
#include "title.h"
#include "words.h"

namespace grub {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kSamples = 2;

/// Row that the figures stand on: the floor's upper edge, and the row of a figure's cell on which its soles end.
constexpr double kFloor = 536;
constexpr double kSoles = 61;

struct Actor {
    std::string_view figure;
    std::string_view pose;
    Expression expression;
    double scale;
    double middle;  // column of the page
    bool facesLeft = false;
};

constexpr std::array kActors{
    //    figure  pose      expression scale middle  faces left
    Actor{"rat", "run", kPleased, 1.6, 84, true},     Actor{"grub", "stroll", kPleased, 4.6, 250},
    Actor{"dog", "sit", kProud, 2.6, 424, true},      Actor{"lady", "pin up", kAngry, 3, 550, true},
    Actor{"grub", "cheer", kStartled, 2, 672, false}, Actor{"rat", "stand", kSad, 1.3, 746, true},
};

/// The pose of that name, or the figure's first.
const Pose& poseOf(const FigureDrawing& figure, std::string_view name) {
    const auto found = std::ranges::find(figure.poses, name, &NamedPose::name);
    return (found == figure.poses.end() ? figure.poses.begin() : found)->pose;
}

void drawActor(Canvas& canvas, const Actor& actor) {
    const FigureDrawing* figure = findFigure(actor.figure);
    if (figure == nullptr) return;
    const Point corner{actor.middle - 32 * actor.scale, kFloor - kSoles * actor.scale};
    const auto cell = canvas.placed(corner, 0, actor.scale, actor.scale);
    figure->draw(canvas, poseOf(*figure, actor.pose), actor.expression,
                 {.facesLeft = actor.facesLeft, .shadow = 0.35F});
}

Fit drawWordsOfAllKinds(Canvas& canvas) {
    Fit fit = drawTitle(canvas, {.area = {290, 14, 410, 126},
                                 .face = Face::Display,
                                 .size = 96,
                                 .ink = Ink::Golden,
                                 .board = BoardKind::Wall,
                                 .text = "Grubaway"});
    fit.add(drawSign(
        canvas,
        {.area = {24, 22, 244, 72}, .board = BoardKind::Caption, .text = "All keys in hand:|the lamp turns green."}));
    fit.add(drawSign(
        canvas, {.area = {344, 166, 212, 74}, .board = BoardKind::Balloon, .text = "One door. Only|forty-nine left!"},
        Point{338, 396}));
    fit.add(drawButton(canvas, {.area = {30, 130, 180, 52},
                                .words = {.area = {50, 137, 140, 38},
                                          .face = Face::Display,
                                          .size = 26,
                                          .ink = Ink::Cream,
                                          .board = BoardKind::Plank,
                                          .text = "START"}}));
    return fit;
}

}  // namespace

PixelImage samplePage(bool& wordsFit) {
    Canvas canvas(kWidth, kHeight, kSamples);
    drawHall(canvas, {.hall = Hall::Turma, .columns = 13, .rows = 10, .floorRow = 9}, {0, kFloor - 9 * 64});
    canvas.glow({300, 300}, 360, rgb(0xffb45a), 0.2F);
    canvas.dimAround({340, 320}, 640, 0.35F);
    for (const Actor& actor : kActors) drawActor(canvas, actor);
    wordsFit = drawWordsOfAllKinds(canvas).good();
    return canvas.picture();
}

}  // namespace grub
