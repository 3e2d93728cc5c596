#include "jelezo_room.h"

#include <array>

#include "climbing.h"
#include "palette.h"

namespace grub {

namespace {

/// Painted iron instead of wood.
Material ladderIron() {
    Material iron = glossy(material(kJelezo.ladder), 0.8F, 0.5F);
    iron.grain = 0.04F;
    return iron;
}

template <LadderEnd End>
void drawIronLadder(Canvas& canvas, FrameOf) {
    drawLadder(canvas, ladderIron(), End);
}

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"lesenki\\lest_j", 64, 64, 1, Ground::Joined, drawIronLadder<LadderEnd::Middle>},
    StripDrawing{"trubi\\tr_lest1", 64, 64, 1, Ground::Joined, drawIronLadder<LadderEnd::Top>},
    StripDrawing{"trubproz\\tr_lest", 64, 64, 1, Ground::Joined, drawIronLadder<LadderEnd::Foot>},
    StripDrawing{"trubi\\mod_trub14", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo>},
    StripDrawing{"trubi\\tr_kray4", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, true>},
    StripDrawing{"trubi\\tr_kray5", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, false, true>},
    StripDrawing{"trubi\\tr_kray6", 64, 64, 1, Ground::Joined, drawHangPipe<kJelezo, true, true>},
    StripDrawing{"trubi\\tr_unit2", 64, 64, 1, Ground::Joined, drawPipeJoint<kJelezo>},
    StripDrawing{"trubi\\tr_ugol2", 64, 64, 1, Ground::Joined, drawPipeStrap<kJelezo>},
};

}  // namespace

std::span<const StripDrawing> jelezoClimbingStrips() { return kStrips; }

}  // namespace grub
