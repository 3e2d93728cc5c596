#include "jelezo_room.h"

#include <array>

#include "floor.h"
#include "palette.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr double kCapHeight = 13;
constexpr double kPlate = 32;

Material plateMaterial(std::uint32_t number, float dim = 1) {
    return stony(varied(kJelezo.floor[0], number, 0.04F) * dim, 1.1F, 0.14F, 0.2F);
}
Material panelMaterial(std::uint32_t number, float dim = 1) {
    return stony(varied(kJelezo.floor[1 + number % 2], number, 0.04F) * dim, 0.8F, 0.13F, 0.15F);
}
Material capMaterial() { return stony(kJelezo.cap, 0.35F, 0.07F, 0.4F); }

void drawRivet(Canvas& canvas, Point at, const Mask* clip) {
    canvas.part(circle(at, 1.6), glossy(material(kJelezo.capShade * 1.15F), 0.6F),
                {.bevel = 1.5, .line = 0.5, .shadow = 0.25F, .clip = clip});
}

/// What fills half of a plate.
enum class Panel { Raised, Holed, Louvred };

/// Slats that stand open, each over the dark below it.
void drawLouvres(Canvas& canvas, double x, double y, double height, std::uint32_t number, const Mask* clip) {
    constexpr int kSlats = 3;
    canvas.part(rectangle(x + 5.2, y, 21.6, height, 3), stony(rgb(0x4a2a30), 0, 0),
                {.bevel = 1.4, .line = 0.6, .shadow = 0.2F, .clip = clip});
    const double pitch = (height - 2.4) / kSlats;
    for (int i = 0; i < kSlats; ++i) {
        canvas.part(rectangle(x + 6.6, y + 1.3 + pitch * i, 18.8, pitch - 1.7, 1.3), panelMaterial(number, 1.12F),
                    {.bevel = 2, .line = 0, .shadow = 0.2F, .clip = clip});
    }
}

/// A raised panel, two rows of holes in it, or louvres.
void drawPanel(Canvas& canvas, double x, double y, double height, std::uint32_t number, Panel panel, const Mask* clip) {
    if (panel == Panel::Louvred) return drawLouvres(canvas, x, y, height, number, clip);
    canvas.part(rectangle(x + 5.2, y, 21.6, height, 3), panelMaterial(number),
                {.bevel = 2.4, .line = 0.6, .shadow = 0.25F, .clip = clip});
    if (panel == Panel::Raised) return;
    for (const double down : {0.3, 0.7}) {
        for (const double across : {10.2, 16.0, 21.8})
            canvas.flat(circle({x + across, y + height * down}, 1.9), rgb(0x241420), {.alpha = 0.85F, .clip = clip});
    }
}

/// Plates side by side over the cell and its neighbours, each with two panels and rivets in its corners, below
/// the cap if there is one. Holes are in the second plate of the cell, louvres in the first.
void drawFace(Canvas& canvas, Storey storey, FloorVariant variant, const Mask* clip) {
    const double top = storey == Storey::Top ? 13 : 0.8;
    const double panel = (57 - top) / 2 - 5;
    for (int i = -1; i < 3; ++i) {
        const double x = i * kPlate;
        const auto number = static_cast<std::uint32_t>(40 + (i + 2) % 2);
        canvas.part(rectangle(x + 0.8, top, kPlate - 1.6, 63 - top, 2.5), plateMaterial(number),
                    {.bevel = 3, .line = 0, .shadow = 0, .clip = clip});
        const Panel upper = variant == FloorVariant::Chipped && i == 1 ? Panel::Holed : Panel::Raised;
        const Panel lower = variant == FloorVariant::Vented && i == 0 ? Panel::Louvred : upper;
        drawPanel(canvas, x, top + 6, panel, number, upper, clip);
        drawPanel(canvas, x, top + 10 + panel, panel, number + 1, lower, clip);
        for (const double dx : {4.0, 28.0}) {
            for (const double y : {top + 3.6, 59.6}) drawRivet(canvas, {x + dx, y}, clip);
        }
    }
}

/// A slot every 16 pixels.
void drawCapSlots(Canvas& canvas, double from, int slots, const Mask* clip) {
    for (int i = 0; i < slots; ++i) {
        canvas.part(rectangle(from + 16 * i + 3, 4.8, 10, 2.8, 1.3), material(kJelezo.capShade),
                    {.bevel = 1.3, .line = 0, .shadow = 0, .clip = clip});
    }
}

void drawCap(Canvas& canvas, const Mask* clip) {
    canvas.flat(rectangle(-40, kCapTop + kCapHeight - 1, 144, 5), rgb(0x1a1020), {.alpha = 0.4F, .clip = clip});
    canvas.part(rectangle(-40, kCapTop, 144, kCapHeight), capMaterial(),
                {.bevel = 3.6, .line = 0, .shadow = 0, .clip = clip});
    drawCapSlots(canvas, -32, 8, clip);
}

constexpr std::array kPieces{
    Stone{0, kCapTop, 32, 13, 20}, Stone{32, kCapTop, 32, 13, 21},  // cap
    Stone{0, 13, 32, 25, 40},      Stone{32, 13, 32, 25, 41},      Stone{0, 38, 32, 25, 41}, Stone{32, 38, 32, 25, 42},
};
constexpr std::size_t kCapPieces = 2;

void drawPiece(Canvas& canvas, std::size_t index, Storey storey) {
    const Stone& piece = kPieces[index];
    const VectorPath shape = rectangle(piece.x + 0.8, piece.y + 0.4, piece.width - 1.6, piece.height - 0.8, 2.5);
    if (index < kCapPieces && storey == Storey::Top) {
        canvas.part(shape, capMaterial(), {.bevel = 3.4, .line = 0.9, .shadow = 0.2F});
        drawCapSlots(canvas, piece.x, 2, nullptr);
        return;
    }
    canvas.part(shape, plateMaterial(piece.number, 0.95F), {.bevel = 3, .line = 0.9, .shadow = 0.2F});
    if (index >= kCapPieces)
        drawPanel(canvas, piece.x, piece.y + 4, piece.height - 8, piece.number, Panel::Raised, nullptr);
}

constexpr FloorKind kFloor{kJelezo, drawFace, drawCap, kPieces, drawPiece};

constexpr auto kPlain = FloorVariant::Plain;
constexpr auto kChipped = FloorVariant::Chipped;
constexpr auto kJoined = Ground::Joined;

constexpr std::array kStrips{
    //            name                     px  px frames
    StripDrawing{"poly\\pol_jel", 64, 64, 1, kJoined, drawTop<kFloor>},
    StripDrawing{"jelezo\\pol_der", 64, 64, 1, kJoined, drawTop<kFloor, kChipped>},
    StripDrawing{"poly\\modul_pol06", 64, 64, 1, kJoined, drawTop<kFloor, FloorVariant::Vented>},
    StripDrawing{"poly\\pol_kray4", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, false>},
    StripDrawing{"poly\\pol_kray5", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, false, true>},
    StripDrawing{"poly\\pol_kray6", 64, 64, 1, kJoined, drawTop<kFloor, kPlain, true, true>},
    StripDrawing{"jelezo\\pol_der_full", 64, 64, 1, kJoined, drawUnder<kFloor>},
    StripDrawing{"poly\\pj", 64, 64, 1, kJoined, drawUnder<kFloor, kChipped>},
    StripDrawing{"jelezo\\animation_floor_iron_01", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Top, 5>},
    StripDrawing{"jelezo\\animation_floor_iron_close01", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Top>},
    // Under a floor; shut doors, which these files are named after, are the first frames of door_a to door_d.
    StripDrawing{"dveri\\modul_dver_1a", 64, 64, 8, kJoined, drawBreak<kFloor, Storey::Under, 7>},
    StripDrawing{"dveri\\modul_dver_1b", 64, 64, 8, kJoined, drawGrow<kFloor, Storey::Under>},
};

}  // namespace

std::span<const StripDrawing> jelezoFloorStrips() { return kStrips; }

}  // namespace grub
