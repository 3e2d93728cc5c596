#include "podval_room.h"

#include <array>

#include "floor.h"
#include "palette.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kSoil = 12;
constexpr double kCourse = 25.2;
constexpr double kFirstCourse = 12.6;
constexpr double kStoneWidth = 32;
constexpr double kJoint = 1.6;

Material stoneMaterial(std::uint32_t number, float dim = 1) {
    return stony(varied(kPodval.floor[number % 3], number, 0.06F) * dim, 1.3F, 0.14F, 0.08F);
}
Material grassMaterial(std::uint32_t number) {
    return stony(varied(kPodval.cap * 1.06F, number, 0.1F), 0, 0.06F, 0.1F);
}

void drawFieldStone(Canvas& canvas, double x, double y, double width, std::uint32_t number, const Mask* clip) {
    canvas.part(rectangle(x + kJoint / 2, y + kJoint / 2, width - kJoint, kCourse - kJoint, 8), stoneMaterial(number),
                {.bevel = 7, .line = 0, .shadow = 0, .clip = clip});
}

/// The courses over the cell and its neighbours, from course `first`. Those that reach into a neighbour never vary.
void drawCourses(Canvas& canvas, int first, FloorVariant variant, const Mask* clip) {
    for (int course = first; course < 2; ++course) {
        const bool shifted = course % 2 != 0;
        const double y = kFirstCourse + course * kCourse;
        for (int i = -1; i < 4; ++i) {
            const double x = i * kStoneWidth - (shifted ? kStoneWidth / 2 : 0);
            const bool inside = x >= 0 && x + kStoneWidth <= kCellSize;
            const auto number = static_cast<std::uint32_t>(51 + 2 * course + (i + 2) % 2);
            const std::uint32_t own = inside && variant == FloorVariant::Chipped ? 7 : 0;
            drawFieldStone(canvas, x, y, kStoneWidth, number + own, clip);
        }
    }
}

void drawCracks(Canvas& canvas, FloorVariant variant, const Mask* clip) {
    if (variant == FloorVariant::Plain) return;
    drawCrack(canvas, {{12, 15}, {15, 21}, {12, 26}, {17, 33}}, 0.8F, clip);
    drawCrack(canvas, {{34, 41}, {30, 47}, {33, 53}, {29, 60}}, 0.8F, clip);
    for (const Joint& tuft : {Joint{{46, 36}, 2.6}, Joint{{50.5, 37}, 3.4}, Joint{{55, 36.4}, 2.4}})
        canvas.part(circle(tuft.at, tuft.radius), stony(kPodval.capShade * 1.1F, 1, 0.2F),
                    {.bevel = 2.4, .line = 0, .shadow = 0.3F, .clip = clip});
}

constexpr int kTuftEvery = 4;

/// Tufts that hang over the soil from the one of that number on, the same in every cell.
void drawGrass(Canvas& canvas, int first, int count, const Mask* clip) {
    constexpr int kTufts = 64 / kTuftEvery;
    for (int i = first; i < first + count; ++i) {
        const auto number = static_cast<std::uint32_t>((i + kTufts) % kTufts);
        const double x = i * kTuftEvery;
        const double at = x + 2 * randomShare(number, 1, 41);
        const double length = 8 + 6.5 * randomShare(number, 2, 41);
        canvas.part(limb({{{at, 4}, 3.4}, {{at + 1.4 * (randomShare(number, 3, 41) - 0.5), length}, 1.9}}),
                    grassMaterial(number),
                    {.bevel = 3, .line = number % 2 == 0 ? 0.8 : 0, .shadow = 0.25F, .clip = clip});
    }
}

void drawFace(Canvas& canvas, Storey storey, FloorVariant variant, const Mask* clip) {
    drawCourses(canvas, storey == Storey::Under ? -1 : 0, variant, clip);
    drawCracks(canvas, variant, clip);
}

void drawCap(Canvas& canvas, const Mask* clip) {
    canvas.flat(rectangle(-40, kSoil, 144, 5), rgb(0x1a1020), {.alpha = 0.4F, .clip = clip});
    canvas.part(rectangle(-40, kCapTop, 144, kSoil - kCapTop), stony(kPodval.capShade, 0.6F, 0.1F),
                {.bevel = 4, .line = 0, .shadow = 0, .clip = clip});
    drawGrass(canvas, -4, 24, clip);
}

constexpr std::array kPieces{
    Stone{0, kCapTop, 32, 12, 20}, Stone{32, kCapTop, 32, 12, 21},  // turf
    Stone{0, 12.6, 32, 25.2, 51},  Stone{32, 12.6, 32, 25.2, 52},   //
    Stone{0, 37.8, 16, 25.2, 53},  Stone{16, 37.8, 32, 25.2, 54},  Stone{48, 37.8, 16, 25.2, 53},
};
constexpr std::size_t kTurfs = 2;

void drawPiece(Canvas& canvas, std::size_t index, Storey storey) {
    const Stone& piece = kPieces[index];
    const bool turf = index < kTurfs && storey == Storey::Top;
    canvas.part(rectangle(piece.x + 0.8, piece.y + 0.8, piece.width - 1.6, piece.height - 1.6, turf ? 3 : 8),
                turf ? stony(kPodval.capShade, 0.6F, 0.1F) : stoneMaterial(piece.number, 0.95F),
                {.bevel = turf ? 4.0 : 7.0, .line = 0.9, .shadow = 0.2F});
    if (turf) drawGrass(canvas, static_cast<int>(piece.x) / kTuftEvery + 1, 6, nullptr);
}

constexpr FloorKind kFloor{kPodval, drawFace, drawCap, kPieces, drawPiece};

constexpr auto kPlain = FloorVariant::Plain;
constexpr auto kChipped = FloorVariant::Chipped;
constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"poly\\tr_pol1", 64, 64, 1, kJoined, drawTop<kFloor>},
    StripDrawing{"poly\\tr_pol2", 64, 64, 1, kJoined, drawTop<kFloor, kChipped>},
    StripDrawing{"poly\\truba_za3", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, false>},
    StripDrawing{"poly\\truba_za5", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, false, true>},
    StripDrawing{"poly\\truba_za6", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, true>},
    StripDrawing{"poly\\tr_pol3", 64, 64, 1, kJoined, drawUnder<kFloor>},
    StripDrawing{"poly\\tr_pol4", 64, 64, 1, kJoined, drawUnder<kFloor, kChipped>},
    StripDrawing{"poly\\truba_za1", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Top, 6>},
    StripDrawing{"poly\\truba_za2", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Top>},
    // Under a floor; shut doors, which these files are named after, are the first frames of door_a to door_d.
    StripDrawing{"dveri\\modul_dver_1c", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Under, 8>},
    StripDrawing{"dveri\\modul_dver_1d", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Under>},
};

}  // namespace

std::span<const StripDrawing> podvalFloorStrips() { return kStrips; }

}  // namespace grub
