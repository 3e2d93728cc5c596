// What a player takes, and what he wears once he has it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "bonus_pictures.h"
#include "built_pictures.h"
#include "picture_registry.h"
#include "render_lightness.h"
#include "render_loops.h"
#include "shield_pictures.h"

namespace grub {
namespace {

/// Pixels that only one of two pictures covers, as a share of those that any covers.
double silhouetteDifference(const PixelImage& a, const PixelImage& b) {
    double one = 0;
    double any = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        const bool inA = a.pixels[i].a > 150;
        const bool inB = b.pixels[i].a > 150;
        one += inA != inB ? 1 : 0;
        any += inA || inB ? 1 : 0;
    }
    return one / any;
}

TEST(Bonuses, LoopInTwelvePicturesInsideTheirCell) {
    ASSERT_EQ(bonusPictures().size(), 6U);
    for (const PictureEntry& bonus : bonusPictures()) {
        const std::vector<PixelImage>& frames = builtStrip(bonus.name);
        EXPECT_EQ(frames.size(), 12U) << bonus.name;
        EXPECT_LE(jumpAtTheEnd(frames), 1.3) << bonus.name;
        for (const PixelImage& frame : frames) EXPECT_EQ(opaqueOnBorder(frame), 0) << bonus.name;
    }
}

TEST(Bonuses, AreToldApartByTheirShapeAlone) {
    for (const PictureEntry& a : bonusPictures()) {
        for (const PictureEntry& b : bonusPictures()) {
            if (a.name >= b.name) continue;
            EXPECT_GT(silhouetteDifference(builtFrame(a.name, 0), builtFrame(b.name, 0)), 0.2)
                << a.name << ' ' << b.name;
        }
    }
}

TEST(Bonuses, HaveARimOfGold) {
    for (const PictureEntry& bonus : bonusPictures()) {
        const PixelImage& image = builtFrame(bonus.name, 0);
        const auto gold = std::count_if(image.pixels.begin(), image.pixels.end(), [](const Pixel& p) {
            return p.a > 200 && p.r > 180 && p.g > p.b + 50 && p.r > p.g;
        });
        EXPECT_GT(gold, 90) << bonus.name;
    }
}

/// Mean of the pixels that are more than half opaque.
double meanLuminance(const PixelImage& image) {
    double sum = 0;
    double count = 0;
    for (const Pixel& p : image.pixels) {
        if (p.a < 128) continue;
        sum += luminance(p);
        ++count;
    }
    return sum / count;
}

TEST(Bonuses, StandOutFromTheWallsOfEveryWorld) {
    for (const char* wall : {"steny\\modul", "sten_jel\\fon_jel", "fon\\modul02"}) {
        const double backdrop = meanLuminance(builtFrame(wall));
        for (const PictureEntry& bonus : bonusPictures()) {
            for (const int frame : {0, 9}) {
                const double contrast = (meanLuminance(builtFrame(bonus.name, frame)) + 0.05) / (backdrop + 0.05);
                EXPECT_GE(contrast, 3) << bonus.name << " before " << wall;
            }
        }
    }
}

TEST(ShieldStrips, HaveAsManyPicturesAsGrubsOwn) {
    ASSERT_EQ(shieldPictures().size(), 8U);
    for (int number = 1; number <= 8; ++number) {
        const PictureEntry* own = findPicture("grub\\ani_0" + std::to_string(number));
        const PictureEntry* shielded = findPicture("led\\shield_0" + std::to_string(number));
        ASSERT_TRUE(own != nullptr && shielded != nullptr) << number;
        EXPECT_EQ(shielded->frames, own->frames) << number;
    }
}

TEST(ShieldStrips, ShowTheSamePoseInsideAWholeBubble) {
    for (const char* number : {"01", "04", "05", "08"}) {
        const PictureEntry& own = *findPicture(std::string("grub\\ani_") + number);
        const PictureEntry& shielded = *findPicture(std::string("led\\shield_") + number);
        const int last = own.frames - 1;
        const PixelImage& image = builtFrame(shielded.name, last);
        EXPECT_EQ(opaqueOnBorder(image), opaqueOnBorder(builtFrame(own.name, last))) << number;
        for (int i = 0; i < 32; ++i) {
            const double angle = 2 * std::numbers::pi * i / 32;
            const int x = static_cast<int>(std::floor(32 + 30.2 * std::cos(angle)));
            const int y = static_cast<int>(std::floor(32 + 30.2 * std::sin(angle)));
            EXPECT_GT(image.at(x, y).a, 110) << number << ": a gap in the rim at " << x << ", " << y;
        }
        EXPECT_LT(differenceWhereOpaque(builtFrame(own.name, last), image), 60) << number << " is not the same pose";
    }
}

}  // namespace
}  // namespace grub
