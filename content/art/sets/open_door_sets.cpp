#include <array>
#include <cmath>

#include "common_parts.h"
#include "hall_set.h"
#include "palette.h"
#include "set_parts.h"
#include "sets_room.h"
#include "shapes.h"

namespace grub {

namespace {

/// Row that is walked on.
constexpr double kFloor = 546;

/// The door, four times as large as in play, and the middle of its light.
constexpr double kDoorScale = 4.3;
constexpr Point kDoor{82, kFloor + 2 - 64 * kDoorScale};
constexpr Point kLight{82 + 32 * kDoorScale, 430};

/// Daylight that fans out of the door in soft rays.
void drawFan(Canvas& canvas) {
    constexpr Rgb kDay = rgb(0xffe2a0);
    constexpr int kRays = 6;
    constexpr double kFar = 820;
    constexpr double kHalfAngle = 0.085;
    VectorPath rays;
    for (int i = 0; i < kRays; ++i) {
        const double angle = -1.3 + 0.27 * i;
        const auto edge = [angle](double aside) { return Point{std::cos(angle + aside), std::sin(angle + aside)}; };
        rays.unite(polygon({kLight, kLight + edge(-kHalfAngle) * kFar, kLight + edge(kHalfAngle) * kFar}));
    }
    const Mask fan = canvas.mask(rays);
    canvas.halo(kLight, kFar, kDay, 0.22F);
    const auto soft = canvas.group({.blur = 9});
    const auto light = canvas.group({.clip = &fan});
    canvas.halo(kLight, kFar, kDay, 0.85F);
}

void drawOpenDoor(Canvas& canvas, const Rect&) {
    drawHall(canvas, {.hall = Hall::Turma, .columns = 7, .rows = 6, .floorRow = 5, .scale = 2}, {-32, kFloor - 640});
    const Mask wall = canvas.mask(rectangle(0, 0, 800, kFloor));
    canvas.shadeRows(kFloor - 60, kFloor, 1, 0.75F, &wall);
    drawPiece(canvas, "fon\\bochka", {668, kFloor - 62 * 1.9}, 1.9);
    canvas.dimAround({360, 400}, 680, 0.62F);
    canvas.glow({300, 400}, 620, rgb(0xffe2a0), 0.22F);
    drawFan(canvas);
    drawPiece(canvas, "dveri\\door_a", kDoor, kDoorScale, 9);
    canvas.glow(kLight, 420, rgb(0xffe2a0), 0.4F);
    canvas.flat(
        polygon({{kLight.x - 80, kFloor}, {kLight.x + 80, kFloor}, {kLight.x + 260, 600}, {kLight.x - 120, 600}}),
        rgb(0xffe2a0), {.alpha = 0.35F});
}

constexpr std::array kSets{
    //         name         px   px
    SetDrawing{"open-door", 800, 600, drawOpenDoor},
};

}  // namespace

std::span<const SetDrawing> openDoorSets() { return kSets; }

}  // namespace grub
