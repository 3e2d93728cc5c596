#include "turma_room.h"

#include <array>

#include "floor.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr double kCapHeight = 13.5;
constexpr double kCourse = 17;
constexpr double kFirstCourse = 13;
constexpr double kBrick = 32;
constexpr double kJoint = 1.6;

Rgb brickColour(std::uint32_t number) { return varied(kTurma.floor[number % 3], number, 0.05F); }

Material capMaterial(std::uint32_t number) { return stony(varied(kTurma.cap, number, 0.035F), 0.5F, 0.08F, 0.15F); }
Material brickMaterial(std::uint32_t number) { return stony(brickColour(number), 1.1F, 0.12F); }

void drawBrick(Canvas& canvas, double x, double y, double width, std::uint32_t number, const Mask* clip) {
    canvas.part(rectangle(x + kJoint / 2, y + kJoint / 2, width - kJoint, kCourse - kJoint, 3), brickMaterial(number),
                {.bevel = 3.5, .line = 0, .shadow = 0, .clip = clip});
}

/// The courses over the cell and its neighbours, from course `first` (-1 lies where the cap would).
void drawCourses(Canvas& canvas, int first, FloorVariant variant, const Mask* clip) {
    for (int course = first; course < 3; ++course) {
        const bool shifted = (course + 2) % 2 == 1;
        for (int i = -1; i < 4; ++i) {
            const double x = i * kBrick - (shifted ? kBrick / 2 : 0);
            const int inCell = (i + 2) % 2;
            const bool crossing = x < 0 || x + kBrick > kCellSize;
            const int own = crossing ? 0 : 10 * static_cast<int>(variant);
            const auto number =
                static_cast<std::uint32_t>(32 + course * 2 + (shifted ? (inCell + 1) % 2 : (i + 2) % 2) + own);
            drawBrick(canvas, x, kFirstCourse + course * kCourse, kBrick, number, clip);
        }
    }
}

void drawCap(Canvas& canvas, const Mask* clip) {
    canvas.flat(rectangle(-40, kCapTop + kCapHeight - 1, 144, 5), rgb(0x1a1020), {.alpha = 0.4F, .clip = clip});
    for (int i = -1; i < 3; ++i) {
        const auto number = static_cast<std::uint32_t>(20 + (i + 2) % 2);
        canvas.part(rectangle(i * kBrick + 0.5, kCapTop, kBrick - 1, kCapHeight, 2.6), capMaterial(number),
                    {.bevel = 3.4, .line = 0, .shadow = 0, .clip = clip});
    }
}

void drawCracks(Canvas& canvas, FloorVariant variant, const Mask* clip) {
    if (variant == FloorVariant::Plain) return;
    drawCrack(canvas, {{21, 14}, {24, 19}, {22, 25}, {27, 29}}, 0.8F, clip);
    drawCrack(canvas, {{24, 19}, {18, 22}, {17, 26}}, 0.6F, clip);
    drawCrack(canvas, {{50, 49}, {45, 54}, {47, 61}}, 0.7F, clip);
}

void drawFace(Canvas& canvas, Storey storey, FloorVariant variant, const Mask* clip) {
    drawCourses(canvas, storey == Storey::Under ? -1 : 0, variant, clip);
    drawCracks(canvas, variant, clip);
}

constexpr std::array kStones{
    Stone{0, kCapTop, 32, 13, 20}, Stone{32, kCapTop, 32, 13, 21},  // cap
    Stone{0, 13, 32, 17, 32},      Stone{32, 13, 32, 17, 33},       //
    Stone{0, 30, 16, 17, 34},      Stone{16, 30, 32, 17, 35},
    Stone{48, 30, 16, 17, 34},  // cut at the cell's edges
    Stone{0, 47, 32, 17, 36},      Stone{32, 47, 32, 17, 37},
};
constexpr std::size_t kCapStones = 2;

/// Under another floor the cap slabs are bricks.
void drawFloorStone(Canvas& canvas, std::size_t index, Storey storey) {
    const Stone& stone = kStones[index];
    const bool cap = index < kCapStones && storey == Storey::Top;
    const double gap = cap ? 1.0 : kJoint;
    canvas.part(rectangle(stone.x + gap / 2, stone.y + gap / 2, stone.width - gap, stone.height - gap, 3),
                cap ? capMaterial(stone.number) : brickMaterial(stone.number),
                {.bevel = 3.4, .line = 0.9, .shadow = 0.2F});
}

constexpr FloorKind kFloor{kTurma, drawFace, drawCap, kStones, drawFloorStone};

constexpr auto kPlain = FloorVariant::Plain;
constexpr auto kChipped = FloorVariant::Chipped;
constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"steny\\modul_pol_11a", 64, 64, 1, kJoined, drawTop<kFloor>},
    StripDrawing{"poly\\modul_pol", 64, 64, 1, kJoined, drawTop<kFloor, kChipped>},
    StripDrawing{"poly\\pol_kray1", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, false>},
    StripDrawing{"poly\\pol_kray2", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, false, true>},
    StripDrawing{"poly\\pol_kray3", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, true>},
    StripDrawing{"poly\\modul_pol01", 64, 64, 1, kJoined, drawUnder<kFloor>},
    StripDrawing{"poly\\modul_pol02", 64, 64, 1, kJoined, drawUnder<kFloor, kChipped>},
    StripDrawing{"poly\\lom1", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Top, 1>},
    StripDrawing{"poly\\lom2", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Under, 2>},
    StripDrawing{"poly\\lom3", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Top, 3>},
    StripDrawing{"poly\\lom4", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Under, 4>},
    StripDrawing{"poly\\vosstfull", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Top>},
    StripDrawing{"poly\\vossthalf", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Under>},
};

}  // namespace

std::span<const StripDrawing> turmaFloorStrips() { return kStrips; }

}  // namespace grub
