#include "turma_room.h"

#include <array>

#include "climbing.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

Material ladderWood(Rgb colour) {
    Material wood = material(colour);
    wood.gloss = 0.4F;
    wood.rim = 0.3F;
    wood.bump = 0.22F;
    wood.grain = 0.08F;
    return wood;
}

template <LadderEnd End>
void drawWoodenLadder(Canvas& canvas, FrameOf) {
    drawLadder(canvas, ladderWood(kTurma.ladder), End);
}

/// The ladder that comes with the last key: brighter, bound with the accent colour.
void drawLadderRisen(Canvas& canvas, FrameOf) {
    drawLadder(canvas, ladderWood(mix(kTurma.ladder, rgb(0xfff0c0), 0.35F)), LadderEnd::Middle);
    const Material band = glossy(material(kTurma.accent), 0.5F, 0.3F);
    for (const double x : {kLeftRail, kRightRail}) {
        for (const double y : {16.0, 48.0})
            canvas.part(rectangle(x - 4.4, y - 2.2, 8.8, 4.4, 1.4), band, {.bevel = 2, .line = 1});
    }
}

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"lesenki\\modul_lestn", 64, 64, 1, Ground::Joined, drawWoodenLadder<LadderEnd::Middle>},
    StripDrawing{"lesenki\\l_proz", 64, 64, 1, Ground::Joined, drawLadderRisen},
    StripDrawing{"lesenki\\lest_n", 64, 64, 1, Ground::Joined, drawWoodenLadder<LadderEnd::Foot>},
    StripDrawing{"lesenki\\lest_v", 64, 64, 1, Ground::Joined, drawWoodenLadder<LadderEnd::Top>},
    StripDrawing{"trubi\\mod_trub04", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma>},
    StripDrawing{"trubi\\tr_kray1", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, true>},
    StripDrawing{"trubi\\tr_kray2", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, false, true>},
    StripDrawing{"trubi\\tr_kray3", 64, 64, 1, Ground::Joined, drawHangPipe<kTurma, true, true>},
    StripDrawing{"trubi\\tr_styk1", 64, 64, 1, Ground::Joined, drawPipeJoint<kTurma>},
    StripDrawing{"trubi\\tr_styk3", 64, 64, 1, Ground::Joined, drawPipeStrap<kTurma>},
};

}  // namespace

std::span<const StripDrawing> turmaClimbingStrips() { return kStrips; }

}  // namespace grub
