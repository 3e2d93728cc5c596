#include "floor_pictures.h"

#include <array>

#include "floor_strips.h"

namespace grub {

namespace {

/// Chooses the floors of a world.
using KindOf = const FloorKind& (*)();

template <KindOf Kind, FloorWear Wear = FloorWear::New, bool Left = false, bool Right = false>
void drawTop(Canvas& canvas, FrameOf) {
    Kind().drawTop(canvas, {Left, Right}, Wear);
}

template <KindOf Kind, FloorWear Wear = FloorWear::New>
void drawUnder(Canvas& canvas, FrameOf) {
    Kind().drawUnder(canvas, Wear);
}

template <KindOf Kind, Storey Of, std::uint32_t Seed>
void drawBreak(Canvas& canvas, FrameOf frame) {
    drawBreaking(canvas, frame, Kind(), Of, Seed);
}

template <KindOf Kind, Storey Of>
void drawGrow(Canvas& canvas, FrameOf frame) {
    drawGrowing(canvas, frame, Kind(), Of);
}

constexpr auto kNew = FloorWear::New;
constexpr auto kChipped = FloorWear::Chipped;
constexpr auto kJoined = Ground::Joined;

constexpr std::array kPictures{
    //            name                     px  px frames
    PictureEntry{"steny\\modul_pol_11a", 64, 64, 1, kJoined, drawTop<brickFloor>},
    PictureEntry{"poly\\modul_pol", 64, 64, 1, kJoined, drawTop<brickFloor, kChipped>},
    PictureEntry{"poly\\modul_pol06", 64, 64, 1, kJoined, drawTop<brickFloor>},
    PictureEntry{"poly\\pol_kray1", 64, 64, 1, kJoined, drawTop<brickFloor, kNew, true, false>},
    PictureEntry{"poly\\pol_kray2", 64, 64, 1, kJoined, drawTop<brickFloor, kNew, false, true>},
    PictureEntry{"poly\\pol_kray3", 64, 64, 1, kJoined, drawTop<brickFloor, kNew, true, true>},
    PictureEntry{"poly\\modul_pol01", 64, 64, 1, kJoined, drawUnder<brickFloor>},
    PictureEntry{"poly\\modul_pol02", 64, 64, 1, kJoined, drawUnder<brickFloor, kChipped>},
    PictureEntry{"poly\\lom1", 64, 64, 8, kJoined, drawBreak<brickFloor, Storey::Top, 1>},
    PictureEntry{"poly\\lom2", 64, 64, 8, kJoined, drawBreak<brickFloor, Storey::Under, 2>},
    PictureEntry{"poly\\lom3", 64, 64, 8, kJoined, drawBreak<brickFloor, Storey::Top, 3>},
    PictureEntry{"poly\\lom4", 64, 64, 8, kJoined, drawBreak<brickFloor, Storey::Under, 4>},
    PictureEntry{"poly\\vosstfull", 64, 64, 8, kJoined, drawGrow<brickFloor, Storey::Top>},
    PictureEntry{"poly\\vossthalf", 64, 64, 8, kJoined, drawGrow<brickFloor, Storey::Under>},
    // the iron works
    PictureEntry{"poly\\pol_jel", 64, 64, 1, kJoined, drawTop<ironFloor>},
    PictureEntry{"jelezo\\pol_der", 64, 64, 1, kJoined, drawTop<ironFloor, kChipped>},
    PictureEntry{"poly\\pol_kray4", 64, 64, 1, kJoined, drawTop<ironFloor, kNew, true, false>},
    PictureEntry{"poly\\pol_kray5", 64, 64, 1, kJoined, drawTop<ironFloor, kNew, false, true>},
    PictureEntry{"poly\\pol_kray6", 64, 64, 1, kJoined, drawTop<ironFloor, kNew, true, true>},
    PictureEntry{"jelezo\\pol_der_full", 64, 64, 1, kJoined, drawUnder<ironFloor>},
    PictureEntry{"poly\\pj", 64, 64, 1, kJoined, drawUnder<ironFloor, kChipped>},
    PictureEntry{"jelezo\\animation_floor_iron_01", 64, 64, 8, kJoined, drawBreak<ironFloor, Storey::Top, 5>},
    PictureEntry{"jelezo\\animation_floor_iron_close01", 64, 64, 8, kJoined, drawGrow<ironFloor, Storey::Top>},
    // the cellar
    PictureEntry{"poly\\tr_pol1", 64, 64, 1, kJoined, drawTop<cellarFloor>},
    PictureEntry{"poly\\tr_pol2", 64, 64, 1, kJoined, drawTop<cellarFloor, kChipped>},
    PictureEntry{"poly\\truba_za3", 64, 64, 1, kJoined, drawTop<cellarFloor, kNew, true, false>},
    PictureEntry{"poly\\truba_za5", 64, 64, 1, kJoined, drawTop<cellarFloor, kNew, false, true>},
    PictureEntry{"poly\\truba_za6", 64, 64, 1, kJoined, drawTop<cellarFloor, kNew, true, true>},
    PictureEntry{"poly\\tr_pol3", 64, 64, 1, kJoined, drawUnder<cellarFloor>},
    PictureEntry{"poly\\tr_pol4", 64, 64, 1, kJoined, drawUnder<cellarFloor, kChipped>},
    PictureEntry{"poly\\truba_za1", 64, 64, 8, kJoined, drawBreak<cellarFloor, Storey::Top, 6>},
    PictureEntry{"poly\\truba_za2", 64, 64, 8, kJoined, drawGrow<cellarFloor, Storey::Top>},
};

}  // namespace

std::span<const PictureEntry> floorPictures() { return kPictures; }

}  // namespace grub
