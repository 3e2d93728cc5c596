#include "climbing_pictures.h"

#include <array>

#include "masonry.h"
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

void drawLadderMiddle(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), -40, 104); }
void drawLadderTop(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), 1.8, 104); }
void drawLadderFoot(Canvas& canvas, FrameOf) { drawLadder(canvas, ladderWood(kTurma.ladder), -40, 62.2); }

/// The ladder that comes with the last key: brighter, bound with the accent colour.
void drawLadderRisen(Canvas& canvas, FrameOf) {
    drawLadder(canvas, ladderWood(mix(kTurma.ladder, rgb(0xfff0c0), 0.35F)), -40, 104);
    const Material band = glossy(material(kTurma.accent), 0.5F, 0.3F);
    for (const double x : {kLeftRail, kRightRail}) {
        for (const double y : {16.0, 48.0})
            canvas.part(rectangle(x - 4.4, y - 2.2, 8.8, 4.4, 1.4), band, {.bevel = 2, .line = 1});
    }
}

// ---- pipes

constexpr double kAxis = 10;
constexpr double kPipeRadius = 4.8;

Material copper() {
    Material pipe = material(kTurma.pipe);
    pipe.gloss = 0.75F;
    pipe.rim = 0.5F;
    pipe.bounce = 0.3F;
    pipe.grain = 0.05F;
    return pipe;
}

void drawPipe(Canvas& canvas, double from, double to) {
    canvas.part(rectangle(from, kAxis - kPipeRadius, to - from, 2 * kPipeRadius), copper(),
                {.bevel = kPipeRadius, .line = 1.4, .shadow = 0.3F});
}

/// A flange with bolts, where a pipe goes into the wall.
void drawFlange(Canvas& canvas, double x) {
    canvas.part(rectangle(x - 5, 0.8, 10, 18.4, 3), kMetal, {.bevel = 4, .line = 1.2});
    for (const double y : {4.4, 15.6})
        canvas.part(circle({x, y}, 1.3), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

void drawCoupling(Canvas& canvas, double x) {
    canvas.part(rectangle(x - 6.5, kAxis - 7.2, 13, 14.4, 2.4), copper(), {.bevel = 5, .line = 1.3});
    for (const double dx : {-3.6, 3.6})
        canvas.part(circle({x + dx, kAxis}, 1.3), kMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

constexpr double kWallLeft = 7.5;
constexpr double kWallRight = kCellSize - kWallLeft;

void drawPipeMiddle(Canvas& canvas, FrameOf) { drawPipe(canvas, -40, 104); }
void drawPipeLeft(Canvas& canvas, FrameOf) {
    drawPipe(canvas, kWallLeft, 104);
    drawFlange(canvas, kWallLeft);
}
void drawPipeRight(Canvas& canvas, FrameOf) {
    drawPipe(canvas, -40, kWallRight);
    drawFlange(canvas, kWallRight);
}
void drawPipeAlone(Canvas& canvas, FrameOf) {
    drawPipe(canvas, kWallLeft, kWallRight);
    drawFlange(canvas, kWallLeft);
    drawFlange(canvas, kWallRight);
}
void drawPipeJoint(Canvas& canvas, FrameOf) {
    drawPipe(canvas, -40, 104);
    drawCoupling(canvas, 32);
}
/// Held by a strap from above.
void drawPipeStrap(Canvas& canvas, FrameOf) {
    drawPipe(canvas, -40, 104);
    canvas.part(rectangle(28.5, 0.4, 7, 15.4, 2), kMetal, {.bevel = 2.6, .line = 1.1});
    canvas.part(circle({32, kAxis}, 1.4), kDarkMetal, {.bevel = 1.2, .line = 0.5, .shadow = 0.2F});
}

// ---- pipes that only dress the wall: thinner, darker, behind the play

Material wallPipe() {
    Material pipe = material(mix(kTurma.pipe, kTurma.backdrop[0], 0.55F));
    pipe.gloss = 0.35F;
    pipe.rim = 0.25F;
    return pipe;
}

constexpr PartStyle kWallPipeStyle{.bevel = 4.4, .line = 1.1, .shadow = 0.35F, .stroke = 9};

void drawWallPipe(Canvas& canvas, const VectorPath& way) { canvas.part(way, wallPipe(), kWallPipeStyle); }

void drawWallCollar(Canvas& canvas, Point at, bool upright) {
    const double w = upright ? 13 : 6;
    const double h = upright ? 6 : 13;
    canvas.part(rectangle(at.x - w / 2, at.y - h / 2, w, h, 1.6), wallPipe(), {.bevel = 2.4, .line = 1});
}

void drawWallAcross(Canvas& canvas, FrameOf) { drawWallPipe(canvas, polyline({{-40, 32}, {104, 32}})); }
void drawWallUpright(Canvas& canvas, FrameOf) { drawWallPipe(canvas, polyline({{32, -40}, {32, 104}})); }
void drawWallUprightCollar(Canvas& canvas, FrameOf frame) {
    drawWallUpright(canvas, frame);
    drawWallCollar(canvas, {32, 32}, true);
}
void drawWallAcrossCollar(Canvas& canvas, FrameOf frame) {
    drawWallAcross(canvas, frame);
    drawWallCollar(canvas, {32, 32}, false);
}

/// A bend that joins the middle of one side of the cell with the middle of another.
void drawBend(Canvas& canvas, double toX, double toY) {
    const Point side{32 + 72 * toX, 32};
    const Point nearSide{32 + 16 * toX, 32};
    const Point nearEnd{32, 32 + 16 * toY};
    const Point end{32, 32 + 72 * toY};
    VectorPath way;
    way.moveTo(side).lineTo(nearSide).curveTo({32 + 6 * toX, 32}, {32, 32 + 6 * toY}, nearEnd).lineTo(end);
    drawWallPipe(canvas, way);
    drawWallCollar(canvas, {32 + 19 * toX, 32}, false);
    drawWallCollar(canvas, {32, 32 + 19 * toY}, true);
}

void drawBendRightDown(Canvas& canvas, FrameOf) { drawBend(canvas, 1, 1); }
void drawBendLeftDown(Canvas& canvas, FrameOf) { drawBend(canvas, -1, 1); }
void drawBendRightUp(Canvas& canvas, FrameOf) { drawBend(canvas, 1, -1); }
void drawBendLeftUp(Canvas& canvas, FrameOf) { drawBend(canvas, -1, -1); }

/// A tee with a wheel to shut it.
void drawValve(Canvas& canvas, FrameOf frame) {
    drawWallAcross(canvas, frame);
    drawWallCollar(canvas, {32, 32}, false);
    const Material wheel = glossy(material(mix(rgb(0xc0483a), kTurma.backdrop[0], 0.3F)), 0.4F, 0.3F);
    canvas.part(polyline({{32, 28}, {32, 16}}), wallPipe(), {.bevel = 1.6, .line = 1, .stroke = 3.4});
    canvas.part(ring({32, 15}, 9, 6.2), wheel, {.bevel = 1.5, .line = 1});
    canvas.part(polyline({{25.6, 15}, {38.4, 15}}), wheel, {.bevel = 1, .line = 0.8, .stroke = 2.2});
    canvas.part(polyline({{32, 8.6}, {32, 21.4}}), wheel, {.bevel = 1, .line = 0.8, .stroke = 2.2});
}

constexpr std::array kPictures{
    //            name                        px  px frames
    PictureEntry{"lesenki\\modul_lestn", 64, 64, 1, Ground::Joined, drawLadderMiddle},
    PictureEntry{"lesenki\\l_proz", 64, 64, 1, Ground::Joined, drawLadderRisen},
    PictureEntry{"lesenki\\lest_n", 64, 64, 1, Ground::Joined, drawLadderFoot},
    PictureEntry{"lesenki\\lest_v", 64, 64, 1, Ground::Joined, drawLadderTop},
    PictureEntry{"trubi\\mod_trub04", 64, 64, 1, Ground::Joined, drawPipeMiddle},
    PictureEntry{"trubi\\tr_kray1", 64, 64, 1, Ground::Joined, drawPipeLeft},
    PictureEntry{"trubi\\tr_kray2", 64, 64, 1, Ground::Joined, drawPipeRight},
    PictureEntry{"trubi\\tr_kray3", 64, 64, 1, Ground::Joined, drawPipeAlone},
    PictureEntry{"trubi\\tr_styk1", 64, 64, 1, Ground::Joined, drawPipeJoint},
    PictureEntry{"trubi\\tr_styk3", 64, 64, 1, Ground::Joined, drawPipeStrap},
    PictureEntry{"trubi\\mod_trub1", 64, 64, 1, Ground::Joined, drawWallAcross},
    PictureEntry{"trubi\\mod_trub2", 64, 64, 1, Ground::Joined, drawWallUpright},
    PictureEntry{"trubi\\mod_trub3", 64, 64, 1, Ground::Joined, drawWallAcrossCollar},
    PictureEntry{"trubi\\mod_trub5", 64, 64, 1, Ground::Joined, drawWallUprightCollar},
    PictureEntry{"trubi\\mod_trub8", 64, 64, 1, Ground::Joined, drawBendRightDown},
    PictureEntry{"trubi\\mod_trub10", 64, 64, 1, Ground::Joined, drawBendLeftDown},
    PictureEntry{"trubi\\mod_trub11", 64, 64, 1, Ground::Joined, drawBendRightUp},
    PictureEntry{"trubi\\mod_trub12", 64, 64, 1, Ground::Joined, drawBendLeftUp},
    PictureEntry{"trubi\\mod_trub13", 64, 64, 1, Ground::Joined, drawValve},
    PictureEntry{"trubi\\ugol1", 64, 64, 1, Ground::Joined, drawBendRightDown},
    PictureEntry{"trubi\\ugol2", 64, 64, 1, Ground::Joined, drawBendLeftDown},
};

}  // namespace

std::span<const PictureEntry> climbingPictures() { return kPictures; }

}  // namespace grub
