#include <algorithm>
#include <array>

#include "common_parts.h"
#include "hall_set.h"
#include "lady.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// Row that is walked on.
constexpr double kFloor = 540;

constexpr Rgb kShadow = rgb(0x0a0716);
/// How soft the edge of a shadow is.
constexpr double kSoft = 3;

/// The door that the lady came out of, and the middle of its light.
constexpr double kDoorScale = 4.2;
constexpr Point kDoor{526, kFloor + 4 - 64 * kDoorScale};
constexpr Point kDoorLight{526 + 32 * kDoorScale, 440};

/// A hall twice as large as in play, the wall darker towards the floor.
void drawLargeHall(Canvas& canvas, Hall hall) {
    drawHall(canvas, {.hall = hall, .columns = 7, .rows = 6, .floorRow = 5, .scale = 2}, {-32, kFloor - 640});
    const Mask wall = canvas.mask(rectangle(0, 0, 800, kFloor));
    canvas.shadeRows(kFloor - 60, kFloor, 1, 0.7F, &wall);
}

// ---- the lady's shadow

const Pose& poseOf(const FigureDrawing& figure, std::string_view name) {
    const auto found = std::ranges::find(figure.poses, name, &NamedPose::name);
    return (found == figure.poses.end() ? figure.poses.begin() : found)->pose;
}

/// Light from the door throws it to the left, tall and soft at its edges.
void drawLadysShadow(Canvas& canvas) {
    constexpr double kSize = 5.35;
    const Mask wall = canvas.mask(rectangle(0, 150, 620, kFloor - 150));
    const auto shadow = canvas.group({.box = Rect{0, 130, 620, 450}, .blur = kSoft, .cover = 0.82F, .clip = &wall});
    const auto cell = canvas.placed({52, kFloor + 14 - 61 * kSize}, 0.02, kSize, kSize);
    drawLady(canvas, poseOf(ladyFigure(), "pin up"), kAngry, {.facesLeft = true, .tint = {kShadow, 1}});
}

/// Flour in the air, as after a blow with a rolling pin.
void drawFlour(Canvas& canvas, Point middle) {
    const auto puff = [&](double x, double y, double radius, float alpha) {
        canvas.halo(middle + Point{x, y}, radius, rgb(0xf6ead8), alpha);
    };
    for (std::uint32_t i = 0; i < 34; ++i) {
        const double x = (randomShare(i, 1, 71) - 0.5) * 150;
        const double y = (randomShare(i, 2, 71) - 0.5) * 110;
        puff(x, y, 24 + 30.0 * randomShare(i, 3, 71), 0.26F);
    }
    for (std::uint32_t i = 0; i < 60; ++i) {
        const Point at = middle + Point{(randomShare(i, 4, 71) - 0.5) * 240, (randomShare(i, 5, 71) - 0.4) * 230};
        canvas.flat(circle(at, 0.8 + 1.3 * randomShare(i, 6, 71)), rgb(0xfff4e2), {.alpha = 0.55F});
    }
}

void drawFlourHall(Canvas& canvas, const Rect&) {
    drawLargeHall(canvas, Hall::Turma);
    drawPiece(canvas, "fon\\window", {20, 176}, 1.6);
    canvas.glow({330, 330}, 460, kTurma.glow, 0.42F);
    drawLadysShadow(canvas);
    canvas.dimAround({520, 400}, 640, 0.42F);
    {
        const auto soft = canvas.group({.blur = 10});
        const Mask beam = canvas.mask(polygon({{kDoorLight.x, 340}, {kDoorLight.x, 560}, {40, 700}, {40, 400}}));
        const auto light = canvas.group({.clip = &beam});
        canvas.halo(kDoorLight, 640, rgb(0xffe2a0), 0.34F);
    }
    drawPiece(canvas, "dveri\\door_a", kDoor, kDoorScale, 9);
    canvas.flat(rectangle(kDoor.x + 14, kFloor + 1.5, 36 * kDoorScale + 89, 3), kInk);
    canvas.glow(kDoorLight, 340, rgb(0xffc878), 0.4F);
    drawFlour(canvas, {326, 408});
}

// ---- the rat's shadow

/// What the torch makes of the rat: horns for ears, claws for paws, and teeth. It faces left.
void drawMonster(Canvas& canvas) {
    const auto fill = [&canvas](const VectorPath& shape) { canvas.flat(shape, kShadow); };
    VectorPath body = polygon(
        {{716, 560}, {722, 500}, {716, 430}, {700, 384}, {716, 372}, {682, 344}, {692, 322}, {652, 304}, {656, 280},
         {618, 268}, {606, 240}, {614, 196}, {604, 178}, {570, 202}, {548, 228}, {520, 222}, {500, 230}, {486, 196},
         {458, 176}, {450, 184}, {448, 220}, {456, 246}, {420, 262}, {380, 284}, {346, 306}, {322, 318}, {318, 332},
         {328, 346}, {344, 346}, {352, 366}, {362, 346}, {380, 346}, {388, 364}, {398, 345}, {418, 345}, {426, 362},
         {436, 348}, {452, 356}, {440, 376}, {430, 364}, {422, 384}, {408, 370}, {398, 390}, {386, 376}, {376, 392},
         {364, 384}, {366, 400}, {384, 412}, {420, 418}, {448, 424}, {452, 450}, {432, 500}, {420, 560}},
        7);
    // The torch shines through where the eye is.
    fill(body.unite(polygon({{486, 268}, {490, 284}, {474, 296}, {448, 300}, {426, 288}}, 5)));
    for (const Point shoulder : {Point{474, 470}, Point{560, 440}}) {
        const Point hand = shoulder + Point{-170, -66 - 0.4 * (shoulder.x - 474)};
        fill(limb({{shoulder, 36}, {shoulder + Point{-84, 22}, 22}, {hand, 15}}));
        for (const double turn : {-0.95, -0.35, 0.25, 0.85}) {
            const Point along = Affine{}.rotated(turn).apply({-1, 0});
            fill(limb({{hand, 9}, {hand + along * 30 + Point{0, -6}, 6}, {hand + along * 56 + Point{0, 10}, 0.8}}));
        }
    }
    fill(limb(
        {{{690, 540}, 26}, {{730, 516}, 16}, {{747, 460}, 10}, {{734, 404}, 7}, {{732, 350}, 5}, {{752, 296}, 1}}));
}

/// A three-legged stool, its seat 46 pixels above the floor; `foot` is on the floor under its middle.
void drawStool(Canvas& canvas, Point foot) {
    const auto placed = canvas.placed(foot);
    canvas.flat(ellipse({0, 4}, 66, 7), kShadow, {.alpha = 0.5F});
    for (const double x : {-44.0, 44.0, 0.0})
        canvas.part(limb({{{x * 0.72, -40}, 7}, {{x, 4}, 5.4}}), kWood, {.bevel = 6, .line = 1.6});
    canvas.part(limb({{{-40, -18}, 3.6}, {{40, -18}, 3.6}}), kWood, {.bevel = 3, .line = 1.4});
    canvas.part(rectangle(-62, -46, 124, 17, 7), kWood, {.bevel = 7, .line = 1.8});
}

void drawTorchCellar(Canvas& canvas, const Rect&) {
    drawLargeHall(canvas, Hall::Podval);
    canvas.shadeRows(0, kFloor, 0.9F, 1.35F);
    canvas.glow({772, 440}, 760, rgb(0xffb45a), 0.62F);
    {
        const Mask wall = canvas.mask(rectangle(0, 150, 800, kFloor - 150));
        const auto shadow = canvas.group({.box = Rect{0, 130, 800, 450}, .blur = kSoft, .cover = 0.72F, .clip = &wall});
        const auto moved = canvas.placed({-16, 0});
        drawMonster(canvas);
    }
    const Mask grass = canvas.mask(rectangle(0, kFloor - 2, 800, 602 - kFloor));
    canvas.shadeRows(0, 600, 0.6F, 0.6F, &grass);
    drawPiece(canvas, "fon\\fakel", {700, 372}, 2.2);
    canvas.glow({770, 430}, 120, rgb(0xffd08a), 0.5F);
    drawStool(canvas, {190, kFloor});
}

constexpr std::array kSets{
    //         name            px   px
    SetDrawing{"flour-hall", 800, 600, drawFlourHall},
    SetDrawing{"torch-cellar", 800, 600, drawTorchCellar},
};

}  // namespace

std::span<const SetDrawing> shadowWallSets() { return kSets; }

}  // namespace grub
