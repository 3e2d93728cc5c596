#include "podval_room.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

void drawRoughWall(Canvas& canvas, FrameOf) { drawRubble(canvas, kPodval, 0.88F); }

/// Rough stones under two flagstones, moss in their joint.
void drawBlock(Canvas& canvas, FrameOf) {
    drawRubble(canvas, kPodval, 1);
    canvas.shadeRows(8, 64, 1.02F, 0.8F);
    canvas.flat(rectangle(-40, 11, 144, 4), rgb(0x12140e), {.alpha = 0.42F});
    const Rgb slab = mix(kPodval.solid[0], rgb(0xf0eede), 0.36F);
    for (int i = -1; i < 3; ++i) {
        const auto number = static_cast<std::uint32_t>(60 + (i + 2) % 2);
        canvas.part(rectangle(i * 32 + 0.6, kCapTop, 30.8, 12.3, 4),
                    stony(varied(slab, number, 0.05F), 0.8F, 0.1F, 0.12F), {.bevel = 3.8, .line = 0.9, .shadow = 0});
    }
    drawLip(canvas);
    for (const Joint& tuft :
         {Joint{{30, 10.5}, 2.4}, Joint{{33.5, 11.5}, 2.9}, Joint{{8, 11.6}, 2}, Joint{{52, 12}, 2.2}}) {
        canvas.part(circle(tuft.at, tuft.radius), stony(kPodval.capShade * 1.15F, 1, 0.2F),
                    {.bevel = 2.4, .line = 0, .shadow = 0.3F});
    }
}

/// The same with a hole for rats, barred.
void drawGratedBlock(Canvas& canvas, FrameOf frame) {
    drawBlock(canvas, frame);
    const VectorPath mouth =
        loop({{16, 54}, {16, 36}, {22, 28}, {32, 28}, {42, 28}, {48, 36}, {48, 54}, {48, 57}, {16, 57}, {16, 54}});
    canvas.part(mouth, stony(rgb(0x171814), 0, 0), {.bevel = 2, .line = 1.4});
    const Mask inside = canvas.mask(mouth);
    for (const double x : {23.0, 32.0, 41.0})
        canvas.part(rectangle(x - 1.7, 26, 3.4, 34, 1), kDarkMetal, {.bevel = 1.7, .line = 0.8, .clip = &inside});
}

constexpr std::array kStrips{
    //            name                  px  px frames
    StripDrawing{"fon\\kam1", 64, 64, 1, Ground::Joined, drawBlock},
    StripDrawing{"fon\\kam2", 64, 64, 1, Ground::Joined, drawRoughWall},
    StripDrawing{"fon\\kam3", 64, 64, 1, Ground::Joined, drawGratedBlock},
};

}  // namespace

std::span<const StripDrawing> podvalSolidStrips() { return kStrips; }

}  // namespace grub
