// What groups of a canvas and the weight of its lines promise to figures on pages.

#include <gtest/gtest.h>

#include <algorithm>

#include "built_strips.h"
#include "canvas.h"
#include "shapes.h"

namespace grub {
namespace {

constexpr Material kClay = material(rgb(0x40a080));

/// A shape without any symmetry, about 40 px wide.
void drawFlag(Canvas& canvas) {
    canvas.part(polygon({{14, 10}, {50, 22}, {20, 36}, {20, 56}, {14, 56}}, 2), kClay, {.bevel = 4, .line = 1.5});
}

PixelImage mirrored(const PixelImage& image) {
    PixelImage result = image;
    for (int y = 0; y < image.height; ++y) std::reverse(result.row(y), result.row(y) + image.width);
    return result;
}

/// Pixels of dark line on a row, from the first visible one on.
int lineWidth(const PixelImage& image, int row) {
    int x = 0;
    while (x < image.width && !isVisible(image.at(x, row))) ++x;
    const int first = x;
    while (x < image.width && image.at(x, row).g < 80) ++x;
    return x - first;
}

TEST(Canvas, GivesAGroupALayerOfItsOwn) {
    Canvas plain(64, 64);
    drawFlag(plain);
    const PixelImage alone = plain.picture();
    struct Row {
        const char* what;
        GroupStyle style;
        PixelImage expected;
    };
    const Rect cell{0, 0, 64, 64};
    const Row rows[] = {{"nothing more", {}, alone},
                        {"a mirror", {.box = cell, .mirrored = true}, mirrored(alone)},
                        {"a box that leaves no room", {.box = Rect{64, 0, 8, 64}}, PixelImage(64, 64)},
                        {"no cover", {.cover = 0}, PixelImage(64, 64)}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Canvas canvas(64, 64);
        {
            const auto group = canvas.group(row.style);
            drawFlag(canvas);
        }
        // A mirrored line of the light differs by its rounding.
        EXPECT_LT(difference(canvas.picture(), row.expected), 2);
        drawFlag(canvas);
        EXPECT_TRUE(isVisible(canvas.picture().at(17, 50))) << "what comes later lies outside of the group";
    }
}

TEST(Canvas, BlursAGroupEvenlyAtAnyMagnification) {
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        Canvas canvas(64, 64);
        {
            const auto placed = canvas.placed({}, 0, scale, scale);
            const auto group = canvas.group({.blur = 4 / scale});
            canvas.flat(rectangle(32 / scale, 0, 32 / scale, 64 / scale), rgb(0xffffff));
        }
        const PixelImage image = canvas.picture();
        // The middles of these pixels are 4.5 / 4 = 1.125 sigma from the edge.
        EXPECT_NEAR(image.at(27, 32).a, 0.13 * 255, 4) << "outside";
        EXPECT_NEAR(image.at(36, 32).a, 0.87 * 255, 4) << "inside";
        EXPECT_EQ(image.at(12, 32).a, 0) << "far outside";
        EXPECT_GT(image.at(27, 32).r, 250) << "the colour stays";
    }
}

TEST(Canvas, LightAndShadeOfAGroupLeaveWhatLiesBelow) {
    Canvas canvas(64, 64);
    canvas.flat(rectangle(0, 0, 64, 64), rgb(0x808080));
    {
        const auto group = canvas.group({.box = Rect{0, 0, 64, 64}, .tint = {rgb(0xff0000), 1}});
        drawFlag(canvas);
        canvas.glow({20, 30}, 40, rgb(0xffffff), 1);
        canvas.shadeRows(0, 64, 0.2F, 0.2F);
    }
    const PixelImage picture = canvas.picture();
    EXPECT_EQ(picture.at(60, 60), (Pixel{128, 128, 128, 255}));
    EXPECT_EQ(picture.at(17, 50), (Pixel{255, 0, 0, 255})) << "the tint comes last";
}

// A figure five times as large has lines 5^0.75 = 3.3 times as wide, however it became so large.
TEST(Canvas, LinesGrowWithTheWholeMagnification) {
    const auto draw = [](double outer, double inner) {
        Canvas canvas(320, 320, 2);
        {
            const auto page = canvas.placed({0, 0}, 0, outer, outer);
            const auto group = canvas.group();
            const auto cell = canvas.placed({0, 0}, 0, inner, inner);
            drawFlag(canvas);
        }
        return canvas.picture();
    };
    EXPECT_LT(difference(draw(5, 1), draw(1, 5)), 0.01);
    EXPECT_NEAR(lineWidth(draw(5, 1), 5 * 45), 5, 1);
    EXPECT_NEAR(lineWidth(draw(2.5, 1), 112), 3, 1);
}

// The game shows mirrored frames beside the others.
TEST(Canvas, LightsBothSidesAlike) {
    Canvas canvas(64, 64);
    canvas.part(ellipse({32, 32}, 20, 26), material(rgb(0x9090a0)), {.bevel = 20});
    const PixelImage egg = canvas.picture();
    double left = 0;
    double right = 0;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 32; ++x) {
            left += egg.at(x, y).g;
            right += egg.at(63 - x, y).g;
        }
    }
    EXPECT_NEAR(left / right, 1, 0.06);
}

TEST(Canvas, StampsPicturesPixelForPixel) {
    PixelImage picture(3, 2);
    for (int i = 0; i < 6; ++i)
        picture.pixels[static_cast<std::size_t>(i)] = {static_cast<std::uint8_t>(40 * i), 7, 9, 255};
    Canvas canvas(8, 8, 2);
    canvas.stamp(picture, {6, 5.2});
    const PixelImage page = canvas.picture();
    EXPECT_EQ(page.at(6, 5), picture.at(0, 0));
    EXPECT_EQ(page.at(7, 6), picture.at(1, 1));
    EXPECT_EQ(visiblePixels(page), 4) << "the rest lies beyond the edge";
}

}  // namespace
}  // namespace grub
