#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "overlay_room.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr double kScreenWidth = 800;

/// 12 slats from above and 12 from below cover the 600 rows of the screen.
constexpr int kSlatHeight = 25;

/// What is between two screens: as dark as a cell at night, so that neither flashes.
constexpr Rgb kDark = rgb(0x1e2138);

/// An iron slat with a row of studs. Its lower edge hooks into the next one.
void drawSlat(Canvas& canvas, FrameOf) {
    Material iron = glossy(material(rgb(0x20243e), rgb(0x0f1122), rgb(0x363b5c)), 0.12F, 0.1F);
    iron.grain = 0.05F;
    canvas.flat(rectangle(-20, -20, kScreenWidth + 40, 80), kDark * 0.5F);
    canvas.part(rectangle(-20, 0.6, kScreenWidth + 40, kSlatHeight - 1.2, 4), iron,
                {.bevel = 7, .line = 0, .shadow = 0});
    canvas.flat(rectangle(-20, kSlatHeight - 6, kScreenWidth + 40, 1.2), kDark * 0.4F, {.alpha = 0.7F});
    for (int x = 32; x < kScreenWidth; x += 64)
        canvas.part(circle({1.0 * x, 10.5}, 3), kDarkMetal, {.bevel = 2.4, .line = 0.8, .shadow = 0.5F});
}

/// A plate much larger than the tile, with a keyhole in it about the middle of the tile, `grown` pixels larger on all
/// sides. At size 1 the round of the hole is 10 pixels wide; at 8 little more than the lower corners of the tile is
/// left.
VectorPath keyholePlate(double size, double grown) {
    constexpr int kSteps = 40;
    constexpr double kFar = 400;
    constexpr double kNeck = 0.41;  // radians between straight down and where the neck begins on the round
    std::vector<Point> hole;
    // Against the clock, so that it is cut out of the plate.
    for (int i = 0; i <= kSteps; ++i) {
        const double angle = std::numbers::pi / 2 - kNeck - (2 * std::numbers::pi - 2 * kNeck) * i / kSteps;
        hole.push_back(Point{32, 32 - 3 * size} + Point{std::cos(angle), std::sin(angle)} * (5 * size + grown));
    }
    const double foot = 32 + 8 * size + grown;
    hole.push_back({32 - 4 * size - 1.3 * grown, foot});
    hole.push_back({32 + 4 * size + 1.3 * grown, foot});
    VectorPath plate = polygon({{-kFar, -kFar}, {kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}});
    return plate.unite(polygon(hole));
}

/// Dark but for a keyhole with a gold rim; `open` 0 is whole, 1 all but gone.
void drawTile(Canvas& canvas, double open) {
    if (open <= 0) return canvas.flat(rectangle(-16, -16, 96, 96), kDark);
    constexpr double kRim = 2;
    const double size = 0.7 + 7 * open * open;
    canvas.flat(keyholePlate(size, 0), kGold.base);
    canvas.flat(keyholePlate(size, kRim), kDark);
}

void drawOpening(Canvas& canvas, FrameOf frame) { drawTile(canvas, frame.progress()); }
void drawClosing(Canvas& canvas, FrameOf frame) { drawTile(canvas, 1 - frame.progress()); }

constexpr int kTileFrames = 8;

constexpr std::array kStrips{
    //            name     px   px           frames
    StripDrawing{"polosa", 800, kSlatHeight, 1, Ground::Joined, drawSlat},
    StripDrawing{"open", 64, 64, kTileFrames, Ground::Joined, drawOpening},
    StripDrawing{"close", 64, 64, kTileFrames, Ground::Joined, drawClosing},
};

}  // namespace

std::span<const StripDrawing> transitionStrips() { return kStrips; }

}  // namespace grub
