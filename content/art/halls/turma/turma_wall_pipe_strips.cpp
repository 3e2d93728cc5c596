#include "turma_room.h"

#include <array>

#include "palette.h"
#include "wall_pipe.h"

namespace grub {

namespace {

constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                   px  px frames
    StripDrawing{"trubi\\mod_trub1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross>},
    StripDrawing{"trubi\\mod_trub2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUpright>},
    StripDrawing{"trubi\\mod_trub3", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, PipeFitting::Collar>},
    StripDrawing{"trubi\\mod_trub5", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUpright, PipeFitting::Collar>},
    StripDrawing{"trubi\\mod_trub8", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kDown>},
    StripDrawing{"trubi\\mod_trub10", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kDown>},
    StripDrawing{"trubi\\mod_trub11", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kUp>},
    StripDrawing{"trubi\\mod_trub12", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kUp>},
    StripDrawing{"trubi\\mod_trub13", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, PipeFitting::Valve>},
    StripDrawing{"trubi\\mod_trub11_l", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross | kDown>},
    StripDrawing{"trubi\\ugol1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kRight | kDown>},
    StripDrawing{"trubi\\ugol2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kLeft | kDown>},
    StripDrawing{"trubi\\kran1", 64, 64, 1, kJoined, drawWallPipe<kTurma, kAcross, PipeFitting::Tap>},
    StripDrawing{"trubi\\kran2", 64, 64, 1, kJoined, drawWallPipe<kTurma, kUp, PipeFitting::Tap>},
};

}  // namespace

std::span<const StripDrawing> turmaWallPipeStrips() { return kStrips; }

}  // namespace grub
