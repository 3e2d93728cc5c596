#include "jelezo_room.h"

#include <array>

#include "palette.h"
#include "wall_pipe.h"

namespace grub {

namespace {

constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                   px  px frames
    StripDrawing{"trubproz\\trub4", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross>},
    StripDrawing{"trubproz\\trub5", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright>},
    StripDrawing{"trubproz\\trub6", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, PipeFitting::Collar>},
    StripDrawing{"trubproz\\trub8", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright, PipeFitting::Collar>},
    StripDrawing{"trubproz\\tr_ug1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight | kDown>},
    StripDrawing{"trubproz\\tr_ug2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft | kDown>},
    StripDrawing{"trubproz\\ugol1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight | kUp>},
    StripDrawing{"trubproz\\ugol2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft | kUp>},
    StripDrawing{"trubproz\\un1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kDown>},
    StripDrawing{"trubproz\\un2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kUp>},
    StripDrawing{"trubproz\\trub_stuk", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright | kRight>},
    StripDrawing{"trubproz\\trub_stuk1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright | kLeft>},
    StripDrawing{"trubproz\\tr_z", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross | kUpright>},
    StripDrawing{"trubproz\\trub_zag1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kRight, PipeFitting::Cap>},
    StripDrawing{"trubproz\\trub_zag2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kLeft, PipeFitting::Cap>},
    StripDrawing{"trubproz\\trub_stuk2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUp, PipeFitting::Cap>},
    StripDrawing{"trubproz\\kran3", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kDown, PipeFitting::Cap>},
    StripDrawing{"trubproz\\kran1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, PipeFitting::Tap>},
    StripDrawing{"trubproz\\kran2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUp, PipeFitting::Tap>},
    StripDrawing{"trubproz\\ventil1", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, PipeFitting::Valve>},
    StripDrawing{"trubproz\\ventil2", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, PipeFitting::Gauge>},
    StripDrawing{"sten_jel\\trub_cep", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kAcross, PipeFitting::Chain>},
    StripDrawing{"jelezo\\trub_jel", 64, 64, 1, kJoined, drawWallPipe<kJelezo, kUpright, PipeFitting::Gauge>},
};

}  // namespace

std::span<const StripDrawing> jelezoWallPipeStrips() { return kStrips; }

}  // namespace grub
