#include "common_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

// ---- ladders

constexpr double kRungEvery = 16;
constexpr double kFirstRung = 8;
constexpr int kRungs = 4;
constexpr double kLeftRail = 13.8;
constexpr double kRightRail = 50.2;
constexpr double kRailWidth = 7.4;

Material ladderWood(Rgb colour) {
    Material wood = material(colour);
    wood.gloss = 0.4F;
    wood.rim = 0.3F;
    wood.bump = 0.22F;
    wood.grain = 0.08F;
    return wood;
}

/// Rungs of the cell between rails that run from `top` to `bottom`.
void drawLadder(Canvas& canvas, const Material& wood, double top, double bottom) {
    for (int rung = -1; rung <= kRungs; ++rung) {
        const double y = kFirstRung + rung * kRungEvery;
        if (y < top || y > bottom) continue;
        canvas.part(rectangle(13, y - 2.6, 38, 5.2, 2.4), wood, {.bevel = 2.6, .line = 1.3, .shadow = 0.45F});
    }
    for (const double x : {kLeftRail, kRightRail}) {
        canvas.part(rectangle(x - kRailWidth / 2, top, kRailWidth, bottom - top, 2.4), wood,
                    {.bevel = 3.7, .line = 1.4, .shadow = 0.4F});
    }
    for (int rung = -1; rung <= kRungs; ++rung) {
        const double y = kFirstRung + rung * kRungEvery;
        if (y < top || y > bottom) continue;
        for (const double x : {kLeftRail, kRightRail})
            canvas.part(circle({x, y}, 1.5), kMetal, {.bevel = 1.4, .line = 0.6, .shadow = 0.2F});
    }
}

/// From rail to rail in this cell only, or on into the neighbours.
constexpr double kAbove = -40;
constexpr double kBelow = 104;
constexpr double kTop = 1.8;
constexpr double kFoot = 62.2;

void drawLadderMiddle(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), kAbove, kBelow); }
void drawLadderTop(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), kTop, kBelow); }
void drawLadderFoot(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), kAbove, kFoot); }

/// Painted iron instead of wood.
Material ladderIron() {
    Material iron = glossy(material(kJelezo.ladder), 0.8F, 0.5F);
    iron.grain = 0.04F;
    return iron;
}

void drawIronLadderMiddle(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderIron(), kAbove, kBelow); }
void drawIronLadderTop(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderIron(), kTop, kBelow); }
void drawIronLadderFoot(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderIron(), kAbove, kFoot); }

/// The ladder that comes with the last key: brighter, bound with the accent colour.
void drawLadderRisen(Canvas& canvas, FrameOf) {
    drawLadder(canvas, ladderWood(mix(kTurma.ladder, rgb(0xfff0c0), 0.35F)), kAbove, kBelow);
    const Material band = glossy(material(kTurma.accent), 0.5F, 0.3F);
    for (const double x : {kLeftRail, kRightRail}) {
        for (const double y : {16.0, 48.0})
            canvas.part(rectangle(x - 4.4, y - 2.2, 8.8, 4.4, 1.4), band, {.bevel = 2, .line = 1});
    }
}

// ---- pipes

constexpr double kAxis = 10;
constexpr double kPipeRadius = 4.8;

/// Copper in turma and podval, steel in jelezo.
template <const WorldPalette& World>
Material pipeMetal() {
    Material pipe = material(World.pipe);
    pipe.gloss = 0.75F;
    pipe.rim = 0.5F;
    pipe.bounce = 0.3F;
    pipe.grain = 0.05F;
    return pipe;
}

void drawPipe(Canvas& canvas, const Material& metal, double from, double to) {
    canvas.part(rectangle(from, kAxis - kPipeRadius, to - from, 2 * kPipeRadius), metal,
                {.bevel = kPipeRadius, .line = 1.4, .shadow = 0.3F});
}

/// A flange with bolts, where a pipe goes into the wall.
void drawFlange(Canvas& canvas, double x) {
    canvas.part(rectangle(x - 5, 0.8, 10, 18.4, 3), kMetal, {.bevel = 4, .line = 1.2});
    for (const double y : {4.4, 15.6})
        canvas.part(circle({x, y}, 1.3), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

constexpr double kWallLeft = 7.5;
constexpr double kWallRight = kCellSize - kWallLeft;

/// With a flange at the ends that are not open to the neighbours.
template <const WorldPalette& World, bool Left, bool Right>
void drawHangPipe(Canvas& canvas, FrameOf) {
    drawPipe(canvas, pipeMetal<World>(), Left ? kWallLeft : kAbove, Right ? kWallRight : kBelow);
    if (Left) drawFlange(canvas, kWallLeft);
    if (Right) drawFlange(canvas, kWallRight);
}

template <const WorldPalette& World>
void drawPipeJoint(Canvas& canvas, FrameOf frame) {
    drawHangPipe<World, false, false>(canvas, frame);
    canvas.part(rectangle(25.5, kAxis - 7.2, 13, 14.4, 2.4), pipeMetal<World>(), {.bevel = 5, .line = 1.3});
    for (const double x : {28.4, 35.6})
        canvas.part(circle({x, kAxis}, 1.3), kMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

/// Held by a strap from above.
template <const WorldPalette& World>
void drawPipeStrap(Canvas& canvas, FrameOf frame) {
    drawHangPipe<World, false, false>(canvas, frame);
    canvas.part(rectangle(28.5, 0.4, 7, 15.4, 2), kMetal, {.bevel = 2.6, .line = 1.1});
    canvas.part(circle({32, kAxis}, 1.4), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

constexpr std::array kStrips{
    //            name                        px  px frames
    StripDrawing{"lesenki\\modul_lestn", 64, 64, 1, Ground::Joined, drawLadderMiddle},
    StripDrawing{"lesenki\\l_proz", 64, 64, 1, Ground::Joined, drawLadderRisen},
    StripDrawing{"lesenki\\lest_n", 64, 64, 1, Ground::Joined, drawLadderFoot},
    StripDrawing{"lesenki\\lest_v", 64, 64, 1, Ground::Joined, drawLadderTop},
    StripDrawing{"lesenki\\lest_j", 64, 64, 1, Ground::Joined, drawIronLadderMiddle},
    StripDrawing{"trubi\\tr_lest1", 64, 64, 1, Ground::Joined, drawIronLadderTop},
    StripDrawing{"trubproz\\tr_lest", 64, 64, 1, Ground::Joined, drawIronLadderFoot},
    StripDrawing{"trubi\\mod_trub04", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, false, false>},
    StripDrawing{"trubi\\tr_kray1", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, true, false>},
    StripDrawing{"trubi\\tr_kray2", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, false, true>},
    StripDrawing{"trubi\\tr_kray3", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, true, true>},
    StripDrawing{"trubi\\tr_styk1", 64, 64, 1, Ground::Joined, drawPipeJoint<kTurma>},
    StripDrawing{"trubi\\tr_styk3", 64, 64, 1, Ground::Joined, drawPipeStrap<kTurma>},
    StripDrawing{"trubi\\mod_trub14", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, false, false>},
    StripDrawing{"trubi\\tr_kray4", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, true, false>},
    StripDrawing{"trubi\\tr_kray5", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, false, true>},
    StripDrawing{"trubi\\tr_kray6", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, true, true>},
    StripDrawing{"trubi\\tr_unit2", 64, 64, 1, Ground::Joined, drawPipeJoint<kJelezo>},
    StripDrawing{"trubi\\tr_ugol2", 64, 64, 1, Ground::Joined, drawPipeStrap<kJelezo>},
};

}  // namespace

std::span<const StripDrawing> climbingStrips() { return kStrips; }

}  // namespace grub
