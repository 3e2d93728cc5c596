#include "common_room.h"

#include <array>

#include "common_parts.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Point kMiddle{32, 32};
constexpr double kThickness = 3;

/// Half the distance between the two cables of a pair.
constexpr double kPair = 2.6;

constexpr Material kBlackCable = glossy(material(0x4a4658, 0x221e2e, 0x7a7690), 0.5F);
constexpr Material kRustCable = glossy(material(0x84583e, 0x422c32, 0xb88a66), 0.5F);
constexpr Material kOchreCable = glossy(material(0xa88a44, 0x573c34, 0xdcc078), 0.5F);

/// Boxes and clamps stay behind the play.
constexpr Material kDullMetal = glossy(material(0x565f78, 0x2a2f45, 0x8f9ab0), 0.5F);
constexpr Material kDullSteel = glossy(material(0x8a94a6, 0x434b66, 0xc0cad8), 0.6F);

/// What sits in the middle.
enum class Fitting { None, Clamp, Plug, Box, Switch };

/// A cable from the middle to each side, `aside` of the cell's axes; two sides that meet in a corner make a bend.
VectorPath cableWay(Sides sides, double aside) {
    const Point middle = kMiddle + Point{aside, aside};
    const auto end = [&](Sides side) { return middle + towardsSide(side) * 72; };
    const bool bend = (sides & kAcross) != 0 && (sides & kAcross) != kAcross && (sides & kUpright) != 0 &&
                      (sides & kUpright) != kUpright;
    VectorPath way;
    if (bend) {
        const Point across = towardsSide(sides & kAcross);
        const Point upright = towardsSide(sides & kUpright);
        way.moveTo(end(sides & kAcross)).lineTo(middle + across * 14);
        return way.curveTo(middle + across * 4, middle + upright * 4, middle + upright * 14)
            .lineTo(end(sides & kUpright));
    }
    for (const Sides side : {kUp, kRight, kDown, kLeft}) {
        if ((sides & side) != 0) way.unite(polyline({middle, end(side)}));
    }
    return way;
}

void drawCable(Canvas& canvas, const Material& rubber, const VectorPath& way) {
    canvas.part(way, rubber, {.bevel = 1.5, .line = 0.9, .shadow = 0.35F, .stroke = kThickness});
}

void drawClamp(Canvas& canvas, Sides sides, double width) {
    const bool upright = (sides & kUpright) != 0;
    const double w = upright ? width : 4.4;
    const double h = upright ? 4.4 : width;
    canvas.part(rectangle(32 - w / 2, 32 - h / 2, w, h, 1.4), kDullMetal, {.bevel = 1.8, .line = 0.9});
}

void drawPlug(Canvas& canvas) {
    canvas.part(circle(kMiddle, 8), kDullMetal, {.bevel = 3, .line = 1});
    canvas.part(circle(kMiddle, 4.6), kBlackCable, {.bevel = 2.4, .line = 0.8});
}

void drawBox(Canvas& canvas) {
    canvas.part(rectangle(21, 22, 22, 20, 3), kDullMetal, {.bevel = 3, .line = 1.2});
    for (const double x : {24.6, 39.4}) {
        for (const double y : {25.6, 38.4})
            canvas.part(circle({x, y}, 1.2), kDullSteel, {.bevel = 1.1, .line = 0.4, .shadow = 0.2F});
    }
    canvas.flat(polygon({{33.6, 26}, {28.6, 33}, {31.6, 33}, {30.4, 38}, {35.4, 31}, {32.4, 31}}), rgb(0xe8c050),
                {.alpha = 0.8F});
}

void drawSwitch(Canvas& canvas) {
    canvas.part(rectangle(20, 18, 24, 34, 3.4), kDullMetal, {.bevel = 3.4, .line = 1.2});
    canvas.part(circle({32, 25}, 3.4), glossy(material(0xc9a04a, 0x6a4434, 0xffe9a8), 1), {.bevel = 2.6, .line = 0.8});
    canvas.part(rectangle(29.4, 31.5, 5.2, 15, 2.4), kBlackCable, {.bevel = 2, .line = 0.8, .shadow = 0});
    canvas.part(limb({{{32, 42}, 2}, {{36, 35}, 2.6}}), kDullSteel, {.bevel = 2, .line = 0.9});
}

void drawFitting(Canvas& canvas, Fitting fitting, Sides sides, double width) {
    switch (fitting) {
        case Fitting::None: return;
        case Fitting::Clamp: return drawClamp(canvas, sides, width);
        case Fitting::Plug: return drawPlug(canvas);
        case Fitting::Box: return drawBox(canvas);
        case Fitting::Switch: return drawSwitch(canvas);
    }
}

template <Sides Way, Fitting With = Fitting::None>
void drawSingle(Canvas& canvas, FrameOf) {
    drawCable(canvas, kBlackCable, cableWay(Way, 0));
    drawFitting(canvas, With, Way, 8);
}

template <Sides Way, Fitting With = Fitting::None>
void drawPair(Canvas& canvas, FrameOf) {
    drawCable(canvas, kRustCable, cableWay(Way, -kPair));
    drawCable(canvas, kOchreCable, cableWay(Way, kPair));
    drawFitting(canvas, With, Way, 13);
}

/// Hangs through between hooks at the sides of the cell.
void drawHung(Canvas& canvas, const Material& rubber, double sag) {
    for (const double x : {-kCellSize, 0.0, kCellSize}) {
        drawCable(canvas, rubber, curve({{x, 32}, {x + 14, 32 + sag}, {x + 50, 32 + sag}, {x + kCellSize, 32}}));
    }
}

void drawHooks(Canvas& canvas) {
    for (const double x : {0.0, kCellSize}) canvas.part(circle({x, 31}, 3), kDullMetal, {.bevel = 2.4, .line = 0.9});
}

void drawHungSingle(Canvas& canvas, FrameOf) {
    drawHung(canvas, kBlackCable, 16);
    drawHooks(canvas);
}
void drawHungPair(Canvas& canvas, FrameOf) {
    drawHung(canvas, kRustCable, 22);
    drawHung(canvas, kOchreCable, 12);
    drawHooks(canvas);
}

constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                   px  px frames
    StripDrawing{"fon\\prov1", 64, 64, 1, kJoined, drawSingle<kAcross, Fitting::Clamp>},
    StripDrawing{"fon\\prov2", 64, 64, 1, kJoined, drawSingle<kUpright, Fitting::Clamp>},
    StripDrawing{"fon\\prov3", 64, 64, 1, kJoined, drawSingle<kRight | kDown>},
    StripDrawing{"fon\\prov4", 64, 64, 1, kJoined, drawSingle<kLeft | kDown>},
    StripDrawing{"fon\\prov5", 64, 64, 1, kJoined, drawSingle<kRight | kUp>},
    StripDrawing{"fon\\prov6", 64, 64, 1, kJoined, drawSingle<kLeft | kUp>},
    StripDrawing{"fon\\prov7", 64, 64, 1, kJoined, drawHungSingle},
    StripDrawing{"fon\\prov8", 64, 64, 1, kJoined, drawSingle<kUp, Fitting::Switch>},
    StripDrawing{"provoda\\prov1", 64, 64, 1, kJoined, drawPair<kAcross, Fitting::Clamp>},
    StripDrawing{"provoda\\prov2", 64, 64, 1, kJoined, drawPair<kUpright, Fitting::Clamp>},
    StripDrawing{"provoda\\prov3", 64, 64, 1, kJoined, drawPair<kRight | kDown>},
    StripDrawing{"provoda\\prov4", 64, 64, 1, kJoined, drawPair<kLeft | kDown>},
    StripDrawing{"provoda\\prov5", 64, 64, 1, kJoined, drawPair<kRight | kUp>},
    StripDrawing{"provoda\\prov6", 64, 64, 1, kJoined, drawPair<kLeft | kUp>},
    StripDrawing{"provoda\\prov7", 64, 64, 1, kJoined, drawPair<kAcross | kDown, Fitting::Box>},
    StripDrawing{"provoda\\prov8", 64, 64, 1, kJoined, drawPair<kAcross | kUp, Fitting::Box>},
    StripDrawing{"provoda\\prov9", 64, 64, 1, kJoined, drawPair<kUpright | kRight, Fitting::Box>},
    StripDrawing{"provoda\\prov10", 64, 64, 1, kJoined, drawPair<kUpright | kLeft, Fitting::Box>},
    StripDrawing{"provoda\\prov11", 64, 64, 1, kJoined, drawPair<kUpright | kAcross, Fitting::Box>},
    StripDrawing{"provoda\\prov12", 64, 64, 1, kJoined, drawPair<kRight, Fitting::Plug>},
    StripDrawing{"provoda\\prov13", 64, 64, 1, kJoined, drawPair<kLeft, Fitting::Plug>},
    StripDrawing{"provoda\\prov14", 64, 64, 1, kJoined, drawPair<kDown, Fitting::Plug>},
    StripDrawing{"provoda\\prov15", 64, 64, 1, kJoined, drawPair<kUp, Fitting::Plug>},
    StripDrawing{"provoda\\prov16", 64, 64, 1, kJoined, drawHungPair},
    StripDrawing{"provoda\\prov17", 64, 64, 1, kJoined, drawPair<kAcross, Fitting::Box>},
    StripDrawing{"provoda\\prov18", 64, 64, 1, kJoined, drawPair<kUp, Fitting::Switch>},
};

}  // namespace

std::span<const StripDrawing> wireStrips() { return kStrips; }

}  // namespace grub
