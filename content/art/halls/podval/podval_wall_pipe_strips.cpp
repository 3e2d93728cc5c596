#include "podval_room.h"

#include <array>

#include "palette.h"
#include "wall_pipe.h"

namespace grub {

namespace {

constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                   px  px frames
    StripDrawing{"fon\\pipe1", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross>},
    StripDrawing{"fon\\pipe2", 64, 64, 1, kJoined, drawWallPipe<kPodval, kUpright>},
    StripDrawing{"fon\\pipe3", 64, 64, 1, kJoined, drawWallPipe<kPodval, kRight | kDown>},
    StripDrawing{"fon\\pipe4", 64, 64, 1, kJoined, drawWallPipe<kPodval, kLeft | kDown>},
    StripDrawing{"fon\\pipe5", 64, 64, 1, kJoined, drawWallPipe<kPodval, kRight | kUp>},
    StripDrawing{"fon\\pipe6", 64, 64, 1, kJoined, drawWallPipe<kPodval, kLeft | kUp>},
    StripDrawing{"fon\\pipe7", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross | kDown>},
    StripDrawing{"fon\\pipe8", 64, 64, 1, kJoined, drawWallPipe<kPodval, kAcross, PipeFitting::Valve>},
    StripDrawing{"fon\\pipe9", 64, 64, 1, kJoined, drawWallPipe<kPodval, kUp, PipeFitting::Tap>},
};

}  // namespace

std::span<const StripDrawing> podvalWallPipeStrips() { return kStrips; }

}  // namespace grub
