// The dog, the lady and the rat: what their strips promise to the rules of movement and to the player's eye.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "built_pictures.h"
#include "dog_pictures.h"
#include "lady_pictures.h"
#include "rat_pictures.h"
#include "render_extent.h"
#include "render_lightness.h"
#include "render_loops.h"

namespace grub {
namespace {

constexpr std::array kWalks{"polkan\\ani_01", "tetka\\ani_01", "rat\\ani_01"};

struct StripRow {
    const char* name;
    std::size_t pictures;
};
constexpr StripRow kStrips[] = {
    {"polkan\\ani_01", 8}, {"polkan\\ani_02", 8}, {"polkan\\ani_03", 8}, {"polkan\\ani_04", 8}, {"polkan\\ani_05", 8},
    {"polkan\\ani_06", 8}, {"tetka\\ani_01", 8},  {"tetka\\ani_02", 8},  {"tetka\\ani_03", 8},  {"tetka\\ani_04", 8},
    {"tetka\\ani_05", 8},  {"tetka\\ani_06", 8},  {"rat\\ani_01", 8},    {"rat\\ani_up", 4},    {"rat\\ani_down", 4},
};

TEST(EnemyStrips, HaveAsManyPicturesAsTheRulesCount) {
    for (const StripRow& row : kStrips) EXPECT_EQ(builtStrip(row.name).size(), row.pictures) << row.name;
    EXPECT_EQ(dogPictures().size() + ladyPictures().size() + ratPictures().size(), std::size(kStrips));
}

TEST(EnemyStrips, StayInsideTheirCell) {
    for (const StripRow& row : kStrips) {
        for (std::size_t i = 0; i < row.pictures; ++i)
            EXPECT_EQ(opaqueOnBorder(builtStrip(row.name)[i]), 0) << row.name << " picture " << i;
    }
}

// ---- feet

TEST(EnemyFeet, StandOnTheRowThatGrubStandsOn) {
    constexpr int kRow = 61;
    for (const char* walk : kWalks) {
        for (const PixelImage& picture : builtStrip(walk)) EXPECT_EQ(lowestRow(picture), kRow) << walk;
    }
    for (const char* still : {"polkan\\ani_04", "tetka\\ani_06"})
        EXPECT_EQ(lowestRow(builtStrip(still)[0]), kRow) << still;
    for (const char* held : {"polkan\\ani_05", "polkan\\ani_06", "tetka\\ani_04", "tetka\\ani_05", "rat\\ani_down"})
        EXPECT_EQ(lowestRow(builtStrip(held).back()), kRow) << held << ": its last picture is held on the ground";
}

/// Whether a side of something that touches the row lies 8 +- 1 px further right in the next picture.
bool slidesBack(const PixelImage& before, const PixelImage& after, int row) {
    const auto runs = runsIn(before, row);
    const auto later = runsIn(after, row);
    const auto isEight = [](int from, int to) { return std::abs(to - from - 8) <= 1; };
    return std::any_of(runs.begin(), runs.end(), [&](const auto& a) {
        return std::any_of(later.begin(), later.end(),
                           [&](const auto& b) { return isEight(a.first, b.first) || isEight(a.second, b.second); });
    });
}

TEST(EnemyFeet, GoBackAsFastAsTheGroundPasses) {
    for (const char* walk : kWalks) {
        const std::vector<PixelImage>& pictures = builtStrip(walk);
        const bool onTwoFeet = walk == std::string_view("tetka\\ani_01");
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            if (onTwoFeet && i % 4 == 3) continue;  // she changes feet
            EXPECT_TRUE(slidesBack(pictures[i], pictures[(i + 1) % pictures.size()], 60)) << walk << " picture " << i;
        }
    }
}

TEST(EnemyHands, HoldThePipeAndStayOnTheirPlace) {
    for (const char* hang : {"polkan\\ani_03", "tetka\\ani_03"}) {
        const std::vector<PixelImage>& pictures = builtStrip(hang);
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            int held = 0;
            for (const auto& [from, to] : runsIn(pictures[i], 10)) held += to - from;
            EXPECT_GE(held, 6) << hang << " picture " << i;
            if (i % 4 == 3) continue;  // the lady changes hands
            EXPECT_TRUE(slidesBack(pictures[i], pictures[i + 1], 6)) << hang << " picture " << i;
        }
    }
}

/// Highest row with something visible in the columns [from, to).
int highestRowBetween(const PixelImage& image, int from, int to) {
    for (int y = 0; y < image.height; ++y) {
        for (int x = from; x < to; ++x) {
            if (isVisible(image.at(x, y))) return y;
        }
    }
    return image.height;
}

TEST(EnemyHands, StayOnTheirRung) {
    constexpr int kOutside = 15;  // columns on either side that only hands reach
    for (const char* climb : {"polkan\\ani_02", "tetka\\ani_02"}) {
        const std::vector<PixelImage>& pictures = builtStrip(climb);
        for (const std::size_t i : {0U, 1U}) {
            const auto left = [&](std::size_t at) { return highestRowBetween(pictures[at], 0, kOutside); };
            const auto right = [&](std::size_t at) { return highestRowBetween(pictures[at], 64 - kOutside, 64); };
            EXPECT_NEAR(left(i + 1) - left(i), 8, 1) << climb << " picture " << i;
            EXPECT_NEAR(right(i + 5) - right(i + 4), 8, 1) << climb << " picture " << i + 4;
        }
    }
}

// ---- movement

TEST(EnemyCycles, CloseWithoutAJump) {
    for (const char* cycle : {"polkan\\ani_01", "polkan\\ani_02", "polkan\\ani_03", "tetka\\ani_01", "tetka\\ani_02",
                              "tetka\\ani_03", "rat\\ani_01"})
        EXPECT_LE(jumpAtTheEnd(builtStrip(cycle)), 1.3) << cycle;
}

TEST(EnemyWalks, KeepTheirMassInPlace) {
    for (const char* walk : kWalks) {
        std::vector<double> columns;
        for (const PixelImage& picture : builtStrip(walk)) columns.push_back(middleColumn(picture, 0, 64));
        const auto [least, most] = std::minmax_element(columns.begin(), columns.end());
        EXPECT_LE(*most - *least, 3) << walk;
    }
}

/// Mean column of the pixels of the eyes in the rows [from, to): the dog's are amber, the others' white.
double eyeColumn(const PixelImage& image, bool amber, int from, int to) {
    double sum = 0;
    double count = 0;
    for (int y = from; y < to; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const Pixel p = image.at(x, y);
            const bool white = p.r > 225 && p.g > 225 && p.b > 225;
            const bool yellow = p.r > 200 && p.g > 150 && p.b < 110;
            if (p.a < 200 || !(amber ? yellow : white)) continue;
            sum += x + 0.5;
            ++count;
        }
    }
    return sum / count;
}

TEST(EnemyWalks, LookWhereTheyGo) {
    struct Row {
        const char* name;
        bool amber;
        int from;
        int to;
        int bodyFrom;
        int bodyTo;
    };
    for (const Row& row : {Row{"polkan\\ani_01", true, 20, 40, 0, 64}, Row{"polkan\\ani_03", true, 26, 50, 0, 64},
                           Row{"tetka\\ani_01", false, 8, 22, 44, 52}, Row{"rat\\ani_01", false, 40, 54, 0, 64}}) {
        for (const PixelImage& picture : builtStrip(row.name)) {
            EXPECT_LT(eyeColumn(picture, row.amber, row.from, row.to),
                      middleColumn(picture, row.bodyFrom, row.bodyTo) - 2)
                << row.name << " is the picture of the way to the left";
        }
    }
}

TEST(RatsHoles, MakeUpForTheHalfCellThatItIsMovedAtOnce) {
    const auto middleRow = [](const PixelImage& image) { return middleOf(image).second; };
    const double running = middleRow(builtStrip("rat\\ani_01")[0]);
    const double diving = middleRow(builtStrip("rat\\ani_down")[0]);
    EXPECT_NEAR(running - diving, 32, 10) << "it must not jump down as it loses the ground";
    EXPECT_NEAR(middleRow(builtStrip("rat\\ani_up").back()), running, 4);
}

// ---- what the eye needs

TEST(Enemies, AreToldApartByTheirHeight) {
    const auto height = [](const char* walk) {
        int most = 0;
        for (const PixelImage& picture : builtStrip(walk)) most = std::max(most, 62 - highestRow(picture));
        return most;
    };
    EXPECT_NEAR(height("polkan\\ani_01"), 45, 2);
    EXPECT_NEAR(height("tetka\\ani_01"), 61, 2);
    EXPECT_NEAR(height("rat\\ani_01"), 25, 3);
}

double meanLuminance(const PixelImage& image) {
    double sum = 0;
    double count = 0;
    for (const Pixel& p : image.pixels) {
        if (!isVisible(p)) continue;
        sum += luminance(p);
        ++count;
    }
    return sum / count;
}

TEST(Enemies, StandOutAgainstTheWallsOfEveryWorld) {
    for (const char* wall : {"steny\\modul", "sten_jel\\fon_jel", "fon\\modul02"}) {
        const double backdrop = meanLuminance(builtStrip(wall)[0]);
        for (const StripRow& row : kStrips) {
            for (const PixelImage& picture : builtStrip(row.name))
                EXPECT_GE((meanLuminance(picture) + 0.05) / (backdrop + 0.05), 2.5) << row.name << " before " << wall;
        }
    }
}

}  // namespace
}  // namespace grub
