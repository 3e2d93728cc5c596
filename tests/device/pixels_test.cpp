#include <algorithm>
#include <cmath>
#include <random>

#include "ready_renderer.h"

namespace grub {
namespace {

constexpr Colour kBackground{40, 90, 160};

std::vector<Texel> randomTexels(int count, unsigned seed, bool opaque) {
    std::mt19937 random(seed);
    const auto byte = [&] { return static_cast<std::uint8_t>(random() & 0xFF); };
    std::vector<Texel> texels(static_cast<std::size_t>(count));
    for (Texel& texel : texels) texel = {{byte(), byte(), byte()}, opaque ? std::uint8_t{255} : byte()};
    return texels;
}

class Pixels : public ReadyRenderer {
protected:
    static constexpr int kW = 37;  // the surface has 64 x 32 texels
    static constexpr int kH = 23;
    const std::vector<Texel> texels = randomTexels(kW * kH, 1, true);

    // The screen with a part of the texels at x, y.
    ScreenPixels screenWith(int x, int y, int left = 0, int top = 0, int width = kW, int height = kH) {
        ScreenPixels screen(rgb(kBackground));
        for (int i = 0; i < width * height; ++i) {
            const int texel = (top + i / width) * kW + left + i % width;
            screen.set(x + i % width, y + i / width, rgb(texels[static_cast<std::size_t>(texel)].colour));
        }
        return screen;
    }
};

TEST_F(Pixels, TexelsAreShownOneToOneAndCutAtTheEdgesByThePicturesOwnSize) {
    const auto texture = makeTexture(kW, kH, texels);
    constexpr struct {
        int x, y;
        bool shown;
    } kPlaces[] = {{101, 50, true},  {-36, -22, true}, {799, -22, true}, {-36, 599, true},      {799, 599, true},
                   {763, 577, true}, {-37, 7, false},  {800, 7, false},  {7, -23, false},       {7, 600, false},
                   {-10, 5, true},   {5, -7, true},    {790, 5, true},   {-32768, 32767, false}};
    for (const auto& [x, y, shown] : kPlaces) {
        SCOPED_TRACE(testing::Message() << x << ", " << y);
        bool drawn = false;
        const auto got = frameOver(kBackground, [&, left = x, top = y] { drawn = drawAt(left, top, *texture); });
        EXPECT_EQ(drawn, shown);
        EXPECT_TRUE(sameScreen(got, screenWith(x, y)));
    }
    EXPECT_FALSE(renderer.draw(800, 0, *texture, 0.0F)) << "also when it is invisible";
}

TEST_F(Pixels, PartsAreCutOutOfTheTextureAndRefusedBeyondIt) {
    const auto texture = makeTexture(kW, kH, texels);
    const auto got = frameOver(kBackground, [&] {
        EXPECT_TRUE(renderer.drawPart(-3, 20, *texture, 17, 11, 13, 9, 1.0F));
        EXPECT_FALSE(renderer.drawPart(-10, 0, *texture, 0, 0, 10, 23, 1.0F)) << "a part counts with its own size";
        EXPECT_TRUE(renderer.drawPart(0, 0, *texture, 0, 0, 8, 8, 0.04F)) << "drawn, but invisible";
        EXPECT_FALSE(renderer.drawPart(9, 9, *texture, -1, 0, 2, 2, 1.0F));
        EXPECT_FALSE(renderer.drawPart(9, 9, *texture, 63, 0, 2, 2, 1.0F));
    });
    EXPECT_TRUE(sameScreen(got, screenWith(-3, 20, 17, 11, 13, 9)));
}

TEST_F(Pixels, BlendingStaysWithinTwoOfTheExactFormula) {
    constexpr int kSize = 256;
    const auto above = randomTexels(kSize * kSize, 3, false);
    const auto upper = makeTexture(kSize, kSize, above);
    for (const float opacity : {1.0F, 0.9F, 0.5F, 0.25F, 0.1F}) {
        const auto got = frameOver(kBackground, [&] { renderer.draw(0, 0, *upper, opacity); });
        const double factor = std::floor(opacity * 255.0F + 0.5F) / 255.0;
        double worst = 0;
        for (int i = 0; i < kSize * kSize; ++i) {
            const Texel& source = above[static_cast<std::size_t>(i)];
            const double alpha = source.alpha / 255.0 * factor;
            for (const int shift : {16, 8, 0}) {
                const auto channel = [shift](std::uint32_t pixel) {
                    return static_cast<double>(pixel >> shift & 0xFF);
                };
                const double wanted = channel(rgb(source.colour)) * alpha + channel(rgb(kBackground)) * (1 - alpha);
                worst = std::max(worst, std::abs(channel(got.at(i % kSize, i / kSize)) - wanted));
            }
        }
        EXPECT_LE(worst, 2.0) << "opacity " << opacity;
    }
}

// White over black, at opacities one after another; the second column is what is seen.
constexpr std::pair<float, std::uint32_t> kOpacities[] = {
    {1.0F, 255},  {0.96F, 255},  {0.92F, 0xEB}, {0.9F, 0xEB},  // a change below 0.05 against the opacity last sent
    {0.5F, 0x80}, {0.52F, 0x80}, {0.04F, 0},                   // is not sent; below 0.05 nothing is drawn
    {1.0F, 255},  {0.95F, 0xF2},                               // in single precision 1 - 0.95 is a little more,
    {0.9F, 0xE6}, {0.85F, 0xE6},                               // and 0.9 - 0.85 a little less
    {3.0F, 255},
};

TEST_F(Pixels, OpacityFollowsInStepsOfATwentieth) {
    const auto texture = plainTexture(1, 1, kWhite);
    const auto got = frameOver(kBlack, [&] {
        for (std::int16_t x = 0; const auto& row : kOpacities) EXPECT_TRUE(renderer.draw(x++, 0, *texture, row.first));
    });
    for (int x = 0; const auto& [opacity, seen] : kOpacities) EXPECT_EQ(got.at(x++, 0) & 0xFF, seen) << opacity;
}

TEST_F(Pixels, ADestroyedTextureDoesNotLiveOnInTheNextOne) {
    const auto got = frameOver(kBackground, [&] {
        for (int x = 0; x < 250; ++x) drawAt(x, 0, *plainTexture(1, 1, {static_cast<std::uint8_t>(x), 1, 77}));
    });
    for (std::uint32_t x = 0; x < 250; ++x) ASSERT_EQ(got.at(static_cast<int>(x), 0), x << 16 | 0x14Du);
}

TEST_F(Pixels, RectanglesAreFilledAndCutAtTheEdge) {
    const auto got = frameOver(kBackground, [&] { EXPECT_TRUE(renderer.clearRect(796, 598, 3, 100, kBlue)); });
    ScreenPixels wanted(rgb(kBackground));
    for (int i = 0; i < 6; ++i) wanted.set(796 + i % 3, 598 + i / 3, rgb(kBlue));
    EXPECT_TRUE(sameScreen(got, wanted));
    ASSERT_TRUE(renderer.beginFrame() && renderer.endFrame());
    EXPECT_TRUE(sameScreen(ScreenPixels(device.frame()), ScreenPixels(0u))) << "a frame starts black";
}

}  // namespace
}  // namespace grub
