// The shader, and what all strips get on their way to pixels.

#include <gtest/gtest.h>

#include <cmath>

#include "built_strips.h"
#include "figure.h"
#include "shapes.h"
#include "strip.h"
#include "surface.h"

namespace grub {
namespace {

TEST(DistanceField, IsTheTrueDistanceToTheOtherSide) {
    constexpr int kWidth = 23;
    constexpr int kHeight = 17;
    FloatPlane plane(kWidth, kHeight);
    for (std::uint32_t y = 0; y < kHeight; ++y) {
        for (std::uint32_t x = 0; x < kWidth; ++x)
            plane.row(static_cast<int>(y))[x] = randomShare(x, y, 5) < 0.9F ? 1.0F : 0.0F;
    }
    const FloatPlane field = distanceField(plane, DistanceFrom::Inside);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            double nearest = plane.at(x, y) > 0.5F ? 1e9 : 0;
            for (int v = 0; v < kHeight && nearest > 0; ++v) {
                for (int u = 0; u < kWidth; ++u)
                    if (plane.at(u, v) <= 0.5F) nearest = std::min(nearest, std::hypot(u - x, v - y));
            }
            ASSERT_NEAR(field.at(x, y), nearest, 1e-4) << x << ',' << y;
        }
    }
}

TEST(Stride, GoesWithTheGroundAndMeetsItAtItsSpeed) {
    constexpr double kLength = 64;
    constexpr double kDuty = 0.25;
    constexpr double kTick = 1e-4;
    for (const double phase : {0.01, 0.1, 0.2, 0.9999 - kTick, 0.2502}) {
        const double way = stride(phase + kTick, kLength, kDuty).x - stride(phase, kLength, kDuty).x;
        EXPECT_NEAR(way / kTick, -kLength, 0.5) << phase;
    }
}

TEST(Canvas, AveragesItsSamplesAndCutsItsMarginOff) {
    Canvas canvas(4, 4, 4, 1, 3);
    canvas.flat(rectangle(0, 0, 2.5, 4), rgb(0xff8040));
    const PixelImage image = canvas.picture();
    EXPECT_EQ(image.at(1, 2), (Pixel{255, 128, 64, 255}));
    EXPECT_EQ(image.at(2, 2), (Pixel{255, 128, 64, 128}));
    EXPECT_EQ(image.at(3, 2).a, 0);
}

// Mirrored frames stand beside those that are not.
TEST(Canvas, LightsBothSidesOfAnEggAlike) {
    Canvas canvas(64, 64);
    canvas.part(ellipse({32, 32}, 18, 24), material(rgb(0x808080)), {.bevel = 16, .line = 0});
    const PixelImage egg = canvas.picture();
    double left = 0;
    double right = 0;
    for (int y = 16; y < 48; ++y) {
        for (int x = 16; x < 32; ++x) {
            left += lightness(egg.at(x, y)) / 512;
            right += lightness(egg.at(63 - x, y)) / 512;
        }
    }
    EXPECT_NEAR(left, right, 3);
}

TEST(StripDrawing, GivesClearPixelsTheColourOfTheNearest) {
    const auto draw = [](Canvas& canvas, FrameOf) {
        canvas.flat(rectangle(0, 0, 1, 1), rgb(0xff0000));
        canvas.flat(rectangle(8, 0, 1, 1), rgb(0x0000ff));
    };
    const PixelImage image = renderFrame({"two", 9, 1, 1, Ground::Clear, draw}, 0);
    EXPECT_EQ(image.at(0, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(image.at(3, 0), (Pixel{255, 0, 0, 0}));
    EXPECT_EQ(image.at(5, 0), (Pixel{0, 0, 255, 0}));
}

}  // namespace
}  // namespace grub
