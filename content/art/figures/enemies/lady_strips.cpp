#include <array>

#include "enemies_room.h"
#include "lady.h"

namespace grub {

namespace {

constexpr Expression kHunting = looking({0.8, 0.2}, kAngry);

/// Strips with a mirrored twin in the game.
constexpr FigureStyle kFacesLeft{.facesLeft = true};

void drawWalk(Canvas& canvas, FrameOf frame) { drawLady(canvas, ladyWalk(frame.phase()), kHunting, kFacesLeft); }

void drawClimb(Canvas& canvas, FrameOf frame) { drawLady(canvas, ladyClimb(frame.phase()), kHunting, {}); }

void drawHang(Canvas& canvas, FrameOf frame) {
    drawLady(canvas, ladyHang(frame.phase()), looking({0.8, -0.4}, kAngry), kFacesLeft);
}

void drawFall(Canvas& canvas, double phase) { drawLady(canvas, ladyFall(phase), looking({0, 0.9}, kStartled), {}); }

/// Frame 0 stands; the others are one floor's fall.
void drawStill(Canvas& canvas, FrameOf frame) {
    if (frame.index > 0) return drawFall(canvas, frame.phase());
    drawLady(canvas, ladyStand(), looking({0, 0.2}, kAngry), {});
}

/// A fall, and in the last frame its end.
void drawTrapped(Canvas& canvas, FrameOf frame) {
    if (frame.progress() < 1) return drawFall(canvas, frame.phase() + 1.0 / frame.count);
    drawLady(canvas, ladyTrapped(), kDizzy, {});
}

void drawEscape(Canvas& canvas, FrameOf frame) {
    drawLady(canvas, ladyEscape(frame.index), looking({0, -0.4}, kAngry), {});
}

constexpr std::array kStrips{
    //            name              px  px frames
    StripDrawing{"tetka\\ani_01", 64, 64, 8, Ground::Clear, drawWalk},
    StripDrawing{"tetka\\ani_02", 64, 64, 8, Ground::Clear, drawClimb},
    StripDrawing{"tetka\\ani_03", 64, 64, 8, Ground::Clear, drawHang},
    StripDrawing{"tetka\\ani_04", 64, 64, 8, Ground::Clear, drawTrapped},
    StripDrawing{"tetka\\ani_05", 64, 64, 8, Ground::Clear, drawEscape},
    StripDrawing{"tetka\\ani_06", 64, 64, 8, Ground::Clear, drawStill},
};

}  // namespace

std::span<const StripDrawing> ladyStrips() { return kStrips; }

}  // namespace grub
