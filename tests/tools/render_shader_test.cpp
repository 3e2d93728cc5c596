// The steps of the shader, one by one.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "blur.h"
#include "canvas.h"
#include "distance_field.h"
#include "noise.h"
#include "render_lightness.h"
#include "rig.h"
#include "shapes.h"

namespace grub {
namespace {

TEST(DistanceField, IsTheTrueDistanceToTheOtherSide) {
    constexpr int kWidth = 23;
    constexpr int kHeight = 17;
    for (std::uint32_t seed = 0; seed < 8; ++seed) {
        FloatPlane plane(kWidth, kHeight);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                plane.at(x, y) = randomShare(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed) < 0.9F
                                     ? 1.0F
                                     : 0.0F;
            }
        }
        const FloatPlane field = distanceField(plane, DistanceFrom::Inside);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                double nearest = plane.at(x, y) > 0.5F ? 1e9 : 0;
                for (int v = 0; v < kHeight && nearest > 0; ++v) {
                    for (int u = 0; u < kWidth; ++u) {
                        if (plane.at(u, v) <= 0.5F) nearest = std::min(nearest, std::hypot(u - x, v - y));
                    }
                }
                ASSERT_NEAR(field.at(x, y), nearest, 1e-4) << seed << ": " << x << ',' << y;
            }
        }
    }
}

TEST(Blur, KeepsTheSumAndHasTheWidthAskedFor) {
    for (const double sigma : {1.0, 2.5, 6.0}) {
        FloatPlane plane(81, 81);
        plane.at(40, 40) = 1;
        const FloatPlane soft = blurred(plane, sigma);
        double sum = 0;
        double variance = 0;
        for (int y = 0; y < 81; ++y) {
            for (int x = 0; x < 81; ++x) {
                sum += soft.at(x, y);
                variance += soft.at(x, y) * static_cast<float>((x - 40) * (x - 40));
            }
        }
        EXPECT_NEAR(sum, 1, 1e-3);
        EXPECT_NEAR(std::sqrt(variance), sigma, 0.25) << sigma;
    }
}

TEST(Noise, RepeatsAfterItsPeriodAndStaysInRange) {
    for (int i = 0; i < 9; ++i) {
        for (int j = 0; j < 11; ++j) {
            const double x = 5.9 * j;
            const double y = 7.3 * i;
            const float here = tileableNoise(x, y, 64, 28, 3);
            EXPECT_NEAR(here, tileableNoise(x + 64, y - 64, 64, 28, 3), 1e-4);
            EXPECT_GE(here, 0);
            EXPECT_LT(here, 1);
        }
    }
    EXPECT_NE(hashOf(1, 2, 3), hashOf(2, 1, 3));
    EXPECT_NE(hashOf(1, 2, 3), hashOf(1, 2, 4));
}

TEST(Noise, IsTheSameLookedUpAsComputed) {
    const NoiseTile tile(64, 28, 3, 256);
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(255, 7), std::pair(100, 201)}) {
        const float computed = tileableNoise((x + 0.5) / 4, (y + 0.5) / 4, 64, 28, 3);
        EXPECT_EQ(tile.at(x, y), computed);
        EXPECT_EQ(tile.at(x - 256, y + 512), computed);
    }
}

TEST(Rig, BendsALimbWithoutStretchingItsBones) {
    const Point root{3, 4};
    for (const Point tip : {Point{12, 9}, Point{3, 15}, Point{-4, 0}}) {
        for (const double side : {-1.0, 1.0}) {
            const Point joint = jointOf(root, tip, 7, 8, side);
            EXPECT_NEAR(length(joint - root), 7, 1e-6);
            EXPECT_NEAR(length(joint - tip), 8, 1e-6);
        }
    }
    EXPECT_NEAR(length(jointOf({0, 0}, {100, 0}, 7, 8, 1)), 7, 1e-6) << "out of reach it points at the tip";
}

TEST(Rig, StepsWithTheGroundAndMeetsItAtItsSpeed) {
    constexpr double kLength = 64;
    constexpr double kDuty = 0.25;
    constexpr double kTick = 1e-4;
    const auto speed = [](double phase) {
        return (stride(phase + kTick, kLength, kDuty).x - stride(phase, kLength, kDuty).x) / kTick;
    };
    for (const double phase : {0.01, 0.1, 0.2, 0.9999 - kTick, 0.2502})
        EXPECT_NEAR(speed(phase), -kLength, 0.5) << phase;
    EXPECT_NEAR(stride(0, kLength, kDuty).x, kLength * kDuty / 2, 1e-9);
    EXPECT_EQ(stride(0.1, kLength, kDuty).lift, 0);
    EXPECT_GT(stride(0.6, kLength, kDuty).lift, 0.9);
}

TEST(Canvas, AveragesItsSamplesAndCutsItsMarginOff) {
    Canvas canvas(4, 4, 4, 1, 3);
    canvas.flat(rectangle(0, 0, 2.5, 4), rgb(0xff8040));
    const PixelImage image = canvas.picture();
    EXPECT_EQ(image.at(1, 2), (Pixel{255, 128, 64, 255}));
    EXPECT_EQ(image.at(2, 2), (Pixel{255, 128, 64, 128}));
    EXPECT_EQ(image.at(3, 2).a, 0);
}

TEST(Canvas, LightsBothSidesOfAnEggAlike) {
    Canvas canvas(64, 64);
    canvas.part(ellipse({32, 32}, 18, 24), material(rgb(0x808080)), {.bevel = 16, .line = 0});
    const PixelImage egg = canvas.picture();
    const auto column = [&](int from, int to) {
        double sum = 0;
        int count = 0;
        for (int y = 16; y < 48; ++y) {
            for (int x = from; x < to; ++x) {
                if (egg.at(x, y).a < 255) continue;
                sum += lightness(egg.at(x, y));
                ++count;
            }
        }
        return sum / count;
    };
    EXPECT_NEAR(column(14, 32), column(32, 50), 3);
}

TEST(Canvas, PutsABorderAroundWhatIsDrawnAndLeavesThatAsItWas) {
    Canvas canvas(40, 40);
    canvas.flat(rectangle(12, 12, 16, 16), rgb(0x2040ff));
    canvas.border(3, material(rgb(0xffc93a)));
    const PixelImage image = canvas.picture();
    EXPECT_EQ(image.at(20, 20), (Pixel{32, 64, 255, 255}));
    for (const auto& [x, y] : {std::pair(10, 20), std::pair(29, 20), std::pair(20, 10), std::pair(20, 29)}) {
        EXPECT_EQ(image.at(x, y).a, 255) << x << ',' << y;
        EXPECT_GT(image.at(x, y).r, image.at(x, y).b + 30) << x << ',' << y;
    }
    EXPECT_EQ(image.at(6, 20).a, 0) << "wider than its width and its line";
}

TEST(Canvas, LaysAnotherOverItselfAsSolidAsAsked) {
    Canvas below(4, 4);
    below.flat(rectangle(0, 0, 4, 4), rgb(0xff0000));
    Canvas over = below.blankCopy();
    over.flat(rectangle(0, 0, 2, 4), rgb(0x0000ff));
    below.layOver(over, 0.5F);
    EXPECT_EQ(below.picture().at(0, 0), (Pixel{128, 0, 128, 255}));
    EXPECT_EQ(below.picture().at(3, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(over.drawn().at(0, 0), 1);
    EXPECT_EQ(over.drawn().at(15, 0), 0);
}

}  // namespace
}  // namespace grub
