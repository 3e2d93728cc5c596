#include "common_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Point kMiddle{32, 32};

/// What sits in the middle of a pipe.
enum class Fitting { None, Collar, Valve, Gauge, Tap, Cap, Chain };

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

/// A wheel to shut the pipe.
void drawValve(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    const Material wheel = glossy(material(mix(rgb(0xc0483a), world.backdrop[0], 0.3F)), 0.4F, 0.3F);
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
    canvas.flat(polyline({{32, 13.6}, {35.4, 10}}), rgb(0xb03038), {.stroke = 1.3});
}

/// A tap below the pipe, with a drop that hangs from it.
void drawTap(Canvas& canvas, const WorldPalette& world, const Material& metal) {
    drawCollar(canvas, metal, kMiddle, false);
    canvas.part(polyline({{32, 34}, {32, 43}, {39, 43}, {39, 48}}), metal, {.bevel = 2.4, .line = 1, .stroke = 5.4});
    canvas.part(limb({{{26, 38.5}, 1.8}, {{38, 38.5}, 1.8}}), dull(world, rgb(0xc0483a)), {.bevel = 1.6, .line = 0.9});
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

template <const WorldPalette& World, Sides Way, Fitting With = Fitting::None>
void drawWallPipe(Canvas& canvas, FrameOf) {
    const Material metal = dull(World, World.pipe);
    drawPipeWay(canvas, metal, Way);
    switch (With) {
        case Fitting::None: return;
        case Fitting::Collar: return drawCollar(canvas, metal, kMiddle, Way == kUpright);
        case Fitting::Valve: return drawValve(canvas, World, metal);
        case Fitting::Gauge: return drawGauge(canvas, World, metal);
        case Fitting::Tap: return drawTap(canvas, World, metal);
        case Fitting::Cap: return drawCap(canvas, metal, Way);
        case Fitting::Chain: return drawChain(canvas, World, metal);
    }
}

constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                   px  px frames
    StripDrawing{"trubi\\mod_trub1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross>},
    StripDrawing{"trubi\\mod_trub2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUpright>},
    StripDrawing{"trubi\\mod_trub3", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, Fitting::Collar>},
    StripDrawing{"trubi\\mod_trub5", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUpright, Fitting::Collar>},
    StripDrawing{"trubi\\mod_trub8", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kDown>},
    StripDrawing{"trubi\\mod_trub10", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kDown>},
    StripDrawing{"trubi\\mod_trub11", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kUp>},
    StripDrawing{"trubi\\mod_trub12", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kUp>},
    StripDrawing{"trubi\\mod_trub13", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, Fitting::Valve>},
    StripDrawing{"trubi\\mod_trub11_l", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross | kDown>},
    StripDrawing{"trubi\\ugol1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kDown>},
    StripDrawing{"trubi\\ugol2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kDown>},
    StripDrawing{"trubi\\kran1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, Fitting::Tap>},
    StripDrawing{"trubi\\kran2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUp, Fitting::Tap>},
    // jelezo
    StripDrawing{"trubproz\\trub4", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross>},
    StripDrawing{"trubproz\\trub5", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright>},
    StripDrawing{"trubproz\\trub6", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, Fitting::Collar>},
    StripDrawing{"trubproz\\trub8", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright, Fitting::Collar>},
    StripDrawing{"trubproz\\tr_ug1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight | kDown>},
    StripDrawing{"trubproz\\tr_ug2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft | kDown>},
    StripDrawing{"trubproz\\ugol1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight | kUp>},
    StripDrawing{"trubproz\\ugol2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft | kUp>},
    StripDrawing{"trubproz\\un1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kDown>},
    StripDrawing{"trubproz\\un2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kUp>},
    StripDrawing{"trubproz\\trub_stuk", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright | kRight>},
    StripDrawing{"trubproz\\trub_stuk1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright | kLeft>},
    StripDrawing{"trubproz\\tr_z", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kUpright>},
    StripDrawing{"trubproz\\trub_zag1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight, Fitting::Cap>},
    StripDrawing{"trubproz\\trub_zag2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft, Fitting::Cap>},
    StripDrawing{"trubproz\\trub_stuk2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUp, Fitting::Cap>},
    StripDrawing{"trubproz\\kran3", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kDown, Fitting::Cap>},
    StripDrawing{"trubproz\\kran1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, Fitting::Tap>},
    StripDrawing{"trubproz\\kran2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUp, Fitting::Tap>},
    StripDrawing{"trubproz\\ventil1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, Fitting::Valve>},
    StripDrawing{"trubproz\\ventil2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, Fitting::Gauge>},
    StripDrawing{"sten_jel\\trub_cep", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, Fitting::Chain>},
    StripDrawing{"jelezo\\trub_jel", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright, Fitting::Gauge>},
    // podval
    StripDrawing{"fon\\pipe1", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross>},
    StripDrawing{"fon\\pipe2", 64, 64, 1, kJoined, drawWallPipe<kPodval, kUpright>},
    StripDrawing{"fon\\pipe3", 64, 64, 1, kJoined, drawWallPipe<kPodval, kRight | kDown>},
    StripDrawing{"fon\\pipe4", 64, 64, 1, kJoined, drawWallPipe<kPodval, kLeft | kDown>},
    StripDrawing{"fon\\pipe5", 64, 64, 1, kJoined, drawWallPipe<kPodval, kRight | kUp>},
    StripDrawing{"fon\\pipe6", 64, 64, 1, kJoined, drawWallPipe<kPodval, kLeft | kUp>},
    StripDrawing{"fon\\pipe7", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross | kDown>},
    StripDrawing{"fon\\pipe8", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross, Fitting::Valve>},
    StripDrawing{"fon\\pipe9", 64, 64, 1, kJoined, drawWallPipe<kPodval, kUp, Fitting::Tap>},
};

}  // namespace

std::span<const StripDrawing> wallPipeStrips() { return kStrips; }

}  // namespace grub
