#include <array>

#include "dog.h"
#include "enemies_room.h"
#include "motion.h"

namespace grub {

namespace {

constexpr FigureStyle kLeft{.facesLeft = true};
constexpr FigureStyle kRight{};

void drawWalk(Canvas& canvas, FrameOf frame) { drawDog(canvas, dogWalk(frame.phase()), kAngry, kLeft); }

void drawClimb(Canvas& canvas, FrameOf frame) { drawDog(canvas, dogClimb(frame.phase()), kAngry, kRight); }

void drawHang(Canvas& canvas, FrameOf frame) {
    drawDog(canvas, dogHang(frame.phase()), looking({0.5, -0.3}, kAngry), kLeft);
}

/// Frame 0 stands and looks at the viewer; the others are one floor's fall.
void drawStill(Canvas& canvas, FrameOf frame) {
    if (frame.index == 0) return drawDog(canvas, dogGuard(), looking({0, 0.2}, kAngry), kRight);
    drawDog(canvas, dogFall(frame.phase()), looking({0, 0.8}, kStartled), kRight);
}

/// He falls in while the first seven frames show, and sits at the bottom in the last.
void drawTrapped(Canvas& canvas, FrameOf frame) {
    if (frame.index == frame.count - 1) return drawDog(canvas, dogTrapped(), kDizzy, kRight);
    drawDog(canvas, dogPlunge(frame.phase()), looking({0, 0.9}, kStartled), kRight);
}

/// Up the walls in five frames, then onto the floor.
void drawEscape(Canvas& canvas, FrameOf frame) {
    drawDog(canvas, dogEscape(frame.index / 4.0, eased((frame.index - 4.5) / 2.5)), looking({0, 0.1}, kAngry), kRight);
}

constexpr std::array kStrips{
    //            name               px  px frames
    StripDrawing{"polkan\\ani_01", 64, 64, 8, Ground::Clear, drawWalk},
    StripDrawing{"polkan\\ani_02", 64, 64, 8, Ground::Clear, drawClimb},
    StripDrawing{"polkan\\ani_03", 64, 64, 8, Ground::Clear, drawHang},
    StripDrawing{"polkan\\ani_04", 64, 64, 8, Ground::Clear, drawStill},
    StripDrawing{"polkan\\ani_05", 64, 64, 8, Ground::Clear, drawTrapped},
    StripDrawing{"polkan\\ani_06", 64, 64, 8, Ground::Clear, drawEscape},
};

}  // namespace

std::span<const StripDrawing> dogStrips() { return kStrips; }

}  // namespace grub
