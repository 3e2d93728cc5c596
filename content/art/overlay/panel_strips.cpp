#include <array>

#include "common_parts.h"
#include "grub.h"
#include "overlay_room.h"
#include "panel_bodies.h"
#include "props.h"
#include "shapes.h"
#include "turma_room.h"

namespace grub {

namespace {

/// Where a number stands, and what it counts. Digits end 10 px before the right edge of the recess, and have their ink
/// in rows 33 to 46 of the panel.
struct Counter {
    double iconX;  // its middle
    double recessX;
    double recessWidth;
    void (*drawIcon)(Canvas& canvas);  // about the origin, 44 px high
};

constexpr double kRecessTop = 26;
constexpr double kRecessHeight = 28;

/// Row of the icons' middles: a little above that of the recesses, since their feet are heavier than their tops.
constexpr double kIconRow = 35;

/// The door of the first hall, its lamp green and a crack of light under its leaf.
void drawDoorIcon(Canvas& canvas) {
    constexpr double kScale = 44.0 / 64;
    constexpr Material kStep = stony(rgb(0xa9b0c6), 0.4F, 0.06F, 0.2F);
    for (const StripDrawing& strip : turmaRoom()) {
        if (strip.name != "dveri\\door_a") continue;
        const auto cell = canvas.placed({-32 * kScale, -32 * kScale}, 0, kScale, kScale);
        const auto icon = canvas.group({.box = Rect{-3, -3, 70, 72}});
        strip.draw(canvas, {2, strip.frames});
        canvas.part(rectangle(-1, 60.5, 66, 5, 2), kStep, {.bevel = 2.4, .line = 1.4});
    }
}

void drawHeadIcon(Canvas& canvas) {
    constexpr double kScale = 1.34;
    const auto cell = canvas.placed({-32 * kScale, -21.5 * kScale}, 0, kScale, kScale);
    drawGrubHead(canvas, {.turn = 2.4}, kPleased, {.shadow = 0.4F});
}

void drawKeyIcon(Canvas& canvas) {
    const auto key = canvas.placed({-3.5, 2.5}, -0.55, 1.08, 1.08);
    drawKeyShape(canvas, kGold, false);
}

void drawStarIcon(Canvas& canvas) { canvas.part(star({0, 2}, 5, 22, 10.4, 3), kGold, {.bevel = 8, .line = 1.5}); }

constexpr std::array kCounters{
    Counter{68, 107, 80, drawDoorIcon},
    Counter{240, 275, 80, drawHeadIcon},
    Counter{425, 455, 80, drawKeyIcon},
    Counter{608, 640, 98, drawStarIcon},
};

/// A dark well with a rim of the panel's metal; the light from above falls on its lower lip.
void drawRecess(Canvas& canvas, const Counter& counter, const Material& rim) {
    const Rect well{counter.recessX, kRecessTop, counter.recessWidth, kRecessHeight};
    canvas.part(well.inset(-4).path(9), rim, {.bevel = 4, .line = 1.2, .shadow = 0.3F});
    canvas.flat(well.inset(-0.8).path(6.4), kInk);
    canvas.flat(well.path(6), rgb(0x191a2c));
    const Mask inside = canvas.mask(well.path(6));
    for (const double depth : {3.0, 5.5, 8.5})
        canvas.flat(rectangle(well.x, well.y, well.width, depth), rgb(0x07060f), {.alpha = 0.3F, .clip = &inside});
    canvas.flat(rectangle(well.x + 5, well.bottom() - 1.6, well.width - 10, 1), rgb(0x5a6080), {.alpha = 0.55F});
}

template <const PanelBody& Body>
void drawPanel(Canvas& canvas, FrameOf) {
    Body.draw(canvas);
    for (const Counter& counter : kCounters) {
        drawRecess(canvas, counter, Body.rim);
        const auto icon = canvas.placed({counter.iconX, kIconRow});
        counter.drawIcon(canvas);
    }
}

constexpr std::array kStrips{
    //            name                       px   px frames
    StripDrawing{"panel\\panel_01", 800, 64, 1, Ground::Joined, drawPanel<kRoughStonePanel>},
    StripDrawing{"panel\\panel_02", 800, 64, 1, Ground::Joined, drawPanel<kBarredPanel>},
    StripDrawing{"panel\\panel_03", 800, 64, 1, Ground::Joined, drawPanel<kOakPanel>},
    StripDrawing{"panel\\panel_04_jelezo", 800, 64, 1, Ground::Joined, drawPanel<kRivetedPanel>},
};

}  // namespace

std::span<const StripDrawing> panelStrips() { return kStrips; }

}  // namespace grub
