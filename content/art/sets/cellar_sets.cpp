#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

/// Day that shows through cracks.
constexpr Rgb kDaylight = rgb(0xffd86a);

/// Behind the barrel, where the light comes from.
constexpr Point kSource{232, 168};

/// Light that leaks along a joint of the wall: the nearer to its source, the stronger.
void drawLeak(Canvas& canvas, std::span<const Point> joint) {
    constexpr double kStep = 5;
    constexpr double kReach = 150;
    std::vector<Joint> core;
    for (std::size_t i = 1; i < joint.size(); ++i) {
        const Point way = joint[i] - joint[i - 1];
        const double steps = std::ceil(length(way) / kStep);
        for (double step = 0; step <= steps; ++step) {
            const Point at = joint[i - 1] + way * (step / steps);
            const double share = std::clamp(1.1 - length(at - kSource) / kReach, 0.0, 1.0);
            canvas.glow(at, 20, kDaylight, static_cast<float>(0.32 * share));
            const auto place = static_cast<std::uint32_t>(core.size());
            const Point uneven{randomShare(place, 1, 4) - 0.5, randomShare(place, 2, 4) - 0.5};
            core.push_back({at + uneven * 0.8, 0.2 + share * (0.5 + 0.9 * randomShare(place, 3, 4))});
        }
    }
    canvas.flat(limb(core), rgb(0xfff4c0), {.alpha = 0.95F});
}

// Joints around the barrel, as the wall of the hall has them.
constexpr std::array kLeft{Point{148, 137}, Point{193, 137}, Point{193, 176},
                           Point{181, 176}, Point{181, 233}, Point{212, 233}};
constexpr std::array kAside{Point{181, 176}, Point{148, 176}};
constexpr std::array kOver{Point{193, 137}, Point{244, 137}, Point{302, 137}};
constexpr std::array kUp{Point{244, 137}, Point{244, 71}};
constexpr std::array kUpLeft{Point{181, 137}, Point{181, 80}};
constexpr std::array kRight{Point{289, 137}, Point{289, 167}, Point{302, 167}};

void drawLastBarrel(Canvas& canvas, const Rect&) {
    constexpr double kScale = 1.5;
    constexpr double kFloor = 248;
    constexpr double kBarrel = 2.3;
    drawHall(canvas, {.hall = Hall::Podval, .columns = 4, .rows = 4, .floorRow = 3, .scale = kScale},
             {-26, kFloor - 3 * 64 * kScale});
    canvas.dimAround({150, 170}, 290, 0.6F);
    canvas.glow({34, 96}, 150, kTurma.glow, 0.5F);
    drawPiece(canvas, "fon\\fakel", {34 - 48, 96 - 39}, kScale, 3);
    canvas.glow(kSource, 150, kDaylight, 0.5F);
    for (const Point& end : {Point{96, 120}, Point{70, 200}, Point{150, 20}, Point{262, 10}})
        drawBeam(canvas, kSource, 8, end, 60, kDaylight, 0.3F);
    drawLeak(canvas, kLeft);
    drawLeak(canvas, kAside);
    drawLeak(canvas, kOver);
    drawLeak(canvas, kUp);
    drawLeak(canvas, kUpLeft);
    drawLeak(canvas, kRight);
    drawPiece(canvas, "fon\\bochka", {246 - 32 * kBarrel, kFloor + 3 - 62 * kBarrel}, kBarrel);
    canvas.halo({200, kFloor - 4}, 44, kDaylight, 0.3F);
    drawPiece(canvas, "poly\\paut", {0, 0}, 1.3);
}

constexpr std::array kSets{
    //         name           px   px
    SetDrawing{"last-barrel", 302, 264, drawLastBarrel},
};

}  // namespace

std::span<const SetDrawing> cellarSets() { return kSets; }

}  // namespace grub
