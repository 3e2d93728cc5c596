#include <array>
#include <numbers>

#include "enemies_room.h"
#include "rat.h"

namespace grub {

namespace {

constexpr FigureStyle kLeft{.facesLeft = true};

void drawRun(Canvas& canvas, FrameOf frame) { drawRat(canvas, ratRun(frame.phase()), kAngry, kLeft); }

/// A picture of the rat in the air, turned by `degrees`; nose up is negative.
struct Flight {
    Point middle;  // of the body
    double degrees;
    double size;
};

void drawFlight(Canvas& canvas, const Flight& flight, const Expression& expression) {
    const double turn = flight.degrees * std::numbers::pi / 180;
    drawRat(canvas, ratFlight(flight.middle, turn, flight.size), expression, kLeft);
}

/// Head first from the edge, then sitting at the bottom. The game moves it half a cell down at the start.
void drawFallIn(Canvas& canvas, FrameOf frame) {
    constexpr std::array kFlights{
        Flight{{32, 22}, 24, 0.94},
        Flight{{32, 29}, 58, 0.94},
        Flight{{32, 33}, 84, 0.94},
    };
    const auto index = static_cast<std::size_t>(frame.index);
    if (index == kFlights.size()) return drawRat(canvas, ratSit(), kDizzy, kLeft);
    drawFlight(canvas, kFlights[index], kStartled);
}

/// A leap out of the hole, nose up, that ends on its feet.
void drawLeapOut(Canvas& canvas, FrameOf frame) {
    constexpr std::array kFlights{
        Flight{{32, 34.4}, -82, 0.92},
        Flight{{32, 31}, -60, 0.94},
        Flight{{32, 38}, -28, 0.96},
        Flight{{32.2, 47.4}, -4, 0.98},
    };
    drawFlight(canvas, kFlights[static_cast<std::size_t>(frame.index)], kAngry);
}

constexpr std::array kStrips{
    //            name             px  px frames
    StripDrawing{"rat\\ani_01", 64, 64, 8, Ground::Clear, drawRun},
    StripDrawing{"rat\\ani_down", 64, 64, 4, Ground::Clear, drawFallIn},
    StripDrawing{"rat\\ani_up", 64, 64, 4, Ground::Clear, drawLeapOut},
};

}  // namespace

std::span<const StripDrawing> ratStrips() { return kStrips; }

}  // namespace grub
