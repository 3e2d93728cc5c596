#include "wall_pipe.h"

#include "shapes.h"

namespace grub {

namespace {

constexpr Point kMiddle{32, 32};

/// Darker than what one hangs on, since it lies behind the play.
Material dull(const WorldPalette& world, Rgb colour, float gloss = 0.35F) {
    return glossy(material(mix(colour, world.backdrop[0], 0.62F)), gloss, 0.25F);
}

void drawRun(Canvas& canvas, const Material& metal, const VectorPath& way) {
    canvas.part(way, metal, {.bevel = 4.4, .line = 1.1, .shadow = 0.35F, .stroke = 9});
}

void drawCollar(Canvas& canvas, const Material& metal, Point at, bool upright) {
    const double w = upright ? 13 : 6;
    const double h = upright ? 6 : 13;
    canvas.part(rectangle(at.x - w / 2, at.y - h / 2, w, h, 1.6), metal, {.bevel = 2.4, .line = 1});
}

/// A bend between two sides that meet in a corner, with a collar at each end.
void drawBend(Canvas& canvas, const Material& metal, Point across, Point upright) {
    VectorPath way;
    way.moveTo(kMiddle + across * 72).lineTo(kMiddle + across * 16);
    way.curveTo(kMiddle + across * 6, kMiddle + upright * 6, kMiddle + upright * 16).lineTo(kMiddle + upright * 72);
    drawRun(canvas, metal, way);
    drawCollar(canvas, metal, kMiddle + across * 19, false);
    drawCollar(canvas, metal, kMiddle + upright * 19, true);
}

/// All other combinations: straight runs from the middle to each side, and a muff where more than two meet.
void drawRuns(Canvas& canvas, const Material& metal, Sides sides) {
    int count = 0;
    VectorPath ways;
    for (const Sides side : {kUp, kRight, kDown, kLeft}) {
        if ((sides & side) == 0) continue;
        ++count;
        ways.unite(polyline({{kMiddle}, {kMiddle + towardsSide(side) * 72}}));
    }
    drawRun(canvas, metal, ways);
    if (count < 3) return;
    canvas.part(circle(kMiddle, 7.4), metal, {.bevel = 5, .line = 1});
    for (const Sides side : {kUp, kRight, kDown, kLeft}) {
        if ((sides & side) != 0) drawCollar(canvas, metal, kMiddle + towardsSide(side) * 11, (side & kUpright) != 0);
    }
}

void drawPipeWay(Canvas& canvas, const Material& metal, Sides sides) {
    const bool corner = (sides & kAcross) != 0 && (sides & kUpright) != 0;
    const bool two = ((sides & kAcross) != kAcross) && ((sides & kUpright) != kUpright);
    if (!corner || !two) return drawRuns(canvas, metal, sides);
    drawBend(canvas, metal, towardsSide(sides & kAcross), towardsSide(sides & kUpright));
}

/// Of wheels and the handles of taps: not red, which means danger.
constexpr Rgb kOchre = rgb(0xb8823a);

/// A wheel to shut the pipe.
void drawValve(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    const Material wheel = glossy(material(mix(kOchre, world.backdrop[0], 0.3F)), 0.4F, 0.3F);
    canvas.part(polyline({{32, 28}, {32, 16}}), metal, {.bevel = 1.6, .line = 1, .stroke = 3.4});
    canvas.part(ring({32, 15}, 9, 6.2), wheel, {.bevel = 1.5, .line = 1});
    canvas.part(polyline({{25.6, 15}, {38.4, 15}}), wheel, {.bevel = 1, .line = 0.8, .stroke = 2.2});
    canvas.part(polyline({{32, 8.6}, {32, 21.4}}), wheel, {.bevel = 1, .line = 0.8, .stroke = 2.2});
}

void drawGauge(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    canvas.part(polyline({{32, 27}, {32, 20}}), metal, {.bevel = 1.6, .line = 1, .stroke = 3.4});
    canvas.part(circle({32, 13}, 10), metal, {.bevel = 2.6, .line = 1.1});
    canvas.part(circle({32, 13}, 7.2), stony(mix(rgb(0xe8e0c8), world.backdrop[0], 0.25F), 0, 0),
                {.bevel = 1.6, .line = 0.7, .shadow = 0});
    for (const Point mark : {Point{26.8, 13}, Point{28.4, 9.2}, Point{32, 7.6}, Point{35.6, 9.2}, Point{37.2, 13}})
        canvas.flat(circle(mark, 0.7), kInk, {.alpha = 0.7F});
    canvas.flat(polyline({{32, 13.6}, {35.4, 10}}), kInk, {.stroke = 1.3});
}

/// A tap below the pipe, with a drop that hangs from it.
void drawTap(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    canvas.part(polyline({{32, 34}, {32, 43}, {39, 43}, {39, 48}}), metal, {.bevel = 2.4, .line = 1, .stroke = 5.4});
    canvas.part(limb({{{26, 38.5}, 1.8}, {{38, 38.5}, 1.8}}), dull(world, kOchre), {.bevel = 1.6, .line = 0.9});
    canvas.flat(ellipse({39, 54.4}, 1.5, 2.3), rgb(0x8fd4e8), {.alpha = 0.75F});
}

void drawCap(Canvas& canvas, const Material& metal, Sides sides) {
    const bool upright = (sides & kUpright) != 0;
    drawCollar(canvas, metal, kMiddle + towardsSide(sides) * 4, upright);
    canvas.part(circle(kMiddle + towardsSide(sides) * -1, 6), metal, {.bevel = 5, .line = 1});
}

void drawChain(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    const Material link = dull(world, world.solid[0]);
    for (int i = 0; i < 3; ++i)
        canvas.part(ellipse({32, 40.0 + 8 * i}, 2.2, 4.2), link, {.bevel = 0.9, .line = 0.7, .stroke = 1.7});
}

}  // namespace

void drawWallPipe(Canvas& canvas, const WorldPalette& world, Sides sides, PipeFitting fitting) {
    const Material metal = dull(world, world.pipe);
    drawPipeWay(canvas, metal, sides);
    switch (fitting) {
        case PipeFitting::None: return;
        case PipeFitting::Collar: return drawCollar(canvas, metal, kMiddle, sides == kUpright);
        case PipeFitting::Valve: return drawValve(canvas, world, metal);
        case PipeFitting::Gauge: return drawGauge(canvas, world, metal);
        case PipeFitting::Tap: return drawTap(canvas, world, metal);
        case PipeFitting::Cap: return drawCap(canvas, metal, sides);
        case PipeFitting::Chain: return drawChain(canvas, world, metal);
    }
}

}  // namespace grub
