// The pictures: what strips and files promise to the game.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include "bmp_file.h"
#include "built_pictures.h"
#include "picture_registry.h"
#include "render_extent.h"
#include "render_lightness.h"
#include "render_loops.h"
#include "run_grubtool.h"
#include "strip.h"

namespace grub {
namespace {

const PictureEntry& entryOf(std::string_view name) {
    const PictureEntry* entry = findPicture(name);
    EXPECT_NE(entry, nullptr) << name;
    return entry != nullptr ? *entry : allPictures().front();
}

// ---- all pictures

TEST(Pictures, HaveNamesOfTheirOwn) {
    std::set<std::string_view> names;
    for (const PictureEntry& entry : allPictures()) {
        EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
        EXPECT_EQ(findPicture(entry.name), &entry);
    }
    EXPECT_GE(names.size(), 80U);
    EXPECT_EQ(findPicture("grub\\nobody"), nullptr);
}

TEST(Pictures, HaveTheirSizeAndShowSomething) {
    for (const PictureEntry& entry : allPictures()) {
        for (const int frame : {0, entry.frames - 1}) {
            const PixelImage& image = builtFrame(entry.name, frame);
            EXPECT_EQ(image.width, entry.width) << entry.name;
            EXPECT_EQ(image.height, entry.frameHeight) << entry.name;
            const auto visible =
                std::count_if(image.pixels.begin(), image.pixels.end(), [](const Pixel& p) { return p.a > 0; });
            EXPECT_GT(visible, 8) << entry.name << " picture " << frame;
        }
    }
}

TEST(Pictures, StandBelowOneAnotherInAStrip) {
    const PictureEntry& entry = entryOf("font_for_score");
    const PixelImage strip = renderStrip(entry);
    ASSERT_EQ(strip.width, entry.width);
    ASSERT_EQ(strip.height, 10 * 20);
    for (int frame = 0; frame < 10; ++frame) {
        const PixelImage& alone = builtFrame("font_for_score", frame);
        const auto first = strip.pixels.begin() + static_cast<std::ptrdiff_t>(frame) * entry.width * entry.frameHeight;
        EXPECT_TRUE(std::equal(alone.pixels.begin(), alone.pixels.end(), first)) << frame;
    }
}

struct CountRow {
    const char* name;
    int frames;
};

TEST(Pictures, CountAsTheRulesOfMovementWant) {
    const CountRow rows[] = {{"grub\\ani_01", 8},
                             {"grub\\ani_02", 8},
                             {"grub\\ani_03", 6},
                             {"grub\\ani_04", 8},
                             {"grub\\ani_05", 10},
                             {"grub\\ani_06", 8},
                             {"grub\\ani_07", 8},
                             {"grub\\ani_08", 50},
                             {"poly\\lom1", 8},
                             {"poly\\lom2", 8},
                             {"poly\\vosstfull", 8},
                             {"poly\\vossthalf", 8},
                             {"dveri\\door_a", 10},
                             {"dveri\\door_d", 10},
                             {"fon\\fakel", 8},
                             {"kapli", 10},
                             {"key", 1},
                             {"font_for_score", 10},
                             {"c_imp", 10},
                             {"c_small", 10}};
    for (const CountRow& row : rows) EXPECT_EQ(entryOf(row.name).frames, row.frames) << row.name;
}

// The packages may come from a program that another compiler made, with other options.
TEST(Pictures, ComeOutTheSameInEveryBuild) {
    for (const PictureEntry& entry : allPictures()) {
        const int last = entry.frames - 1;
        EXPECT_EQ(renderFrame(entry, last), builtFrame(entry.name, last)) << entry.name;
    }
}

TEST(Pictures, OfFiguresAndThingsStayInsideTheirCell) {
    for (const char* name : {"grub\\ani_01", "grub\\ani_02", "grub\\ani_03", "grub\\ani_04", "grub\\ani_05",
                             "grub\\ani_08", "key", "key_h", "fon\\fakel", "fon\\window", "fon\\skull"}) {
        const PictureEntry& entry = entryOf(name);
        for (int frame = 0; frame < entry.frames; ++frame) {
            EXPECT_EQ(opaqueOnBorder(builtFrame(name, frame)), 0) << name << " picture " << frame;
        }
    }
}

TEST(Pictures, OfWallsAndFloorsFillTheirCell) {
    for (const char* name : {"steny\\modul", "steny\\modul01", "steny\\modul9", "poly\\modul_pol04", "poly\\polkam",
                             "poly\\modul_pol01"}) {
        const PixelImage& image = builtFrame(name);
        const auto clear =
            std::count_if(image.pixels.begin(), image.pixels.end(), [](const Pixel& p) { return p.a != 255; });
        EXPECT_EQ(clear, 0) << name;
    }
}

// ---- Grub's movement

TEST(GrubsFeet, StandOnOneRow) {
    for (int frame = 0; frame < 50; frame += 7) EXPECT_EQ(lowestRow(builtFrame("grub\\ani_08", frame)), 61) << frame;
    for (int frame = 0; frame < 10; ++frame) EXPECT_GE(lowestRow(builtFrame("grub\\ani_05", frame)), 61) << frame;
    for (const int onGround : {0, 1, 2, 4, 5, 6})
        EXPECT_EQ(lowestRow(builtFrame("grub\\ani_01", onGround)), 61) << onGround;
    for (const int inFlight : {3, 7}) EXPECT_LT(lowestRow(builtFrame("grub\\ani_01", inFlight)), 61) << inFlight;
}

TEST(GrubsFeet, GoBackAsFastAsTheGroundPasses) {
    for (const int first : {0, 1, 4, 5}) {
        const double before = middleColumn(builtFrame("grub\\ani_01", first), 60, 62);
        const double after = middleColumn(builtFrame("grub\\ani_01", first + 1), 60, 62);
        EXPECT_NEAR(after - before, 8, 1) << "he faces left, so a foot on the ground moves right; picture " << first;
    }
}

TEST(GrubsHands, HoldThePipe) {
    for (int frame = 0; frame < 8; ++frame) {
        const PixelImage& image = builtFrame("grub\\ani_04", frame);
        int held = 0;
        for (int x = 0; x < 64; ++x) held += image.at(x, 10).a > 127 ? 1 : 0;
        EXPECT_GE(held, 6) << "no hand at the axis in picture " << frame;
    }
}

TEST(GrubsCycles, CloseWithoutAJump) {
    for (const char* name : {"grub\\ani_01", "grub\\ani_02", "grub\\ani_03", "grub\\ani_04", "grub\\ani_08"}) {
        const double jump = jumpAtTheEnd(builtStrip(name));
        EXPECT_LE(jump, 1.3) << name;
        EXPECT_GT(jump, 0) << name;
    }
}

TEST(GrubsWalk, KeepsHisMassInPlace) {
    double least = 64;
    double most = 0;
    for (int frame = 0; frame < 8; ++frame) {
        const double middle = middleColumn(builtFrame("grub\\ani_01", frame), 0, 64);
        least = std::min(least, middle);
        most = std::max(most, middle);
    }
    EXPECT_LE(most - least, 3);
}

// ---- brightness

TEST(Brightness, ClimbsFromWallToWhatMatters) {
    const Spread wall = lightnessOf(builtFrame("steny\\modul"));
    EXPECT_GE(wall.mean, 18);
    EXPECT_LE(wall.mean, 26);
    EXPECT_LE(wall.deviation, 9);
    const PixelImage& floor = builtFrame("steny\\modul_pol_11a");
    const double face = lightnessOf(floor, 18, 62).mean;
    const double cap = lightnessOf(floor, 2, 12).mean;
    const double solid = lightnessOf(builtFrame("poly\\modul_pol04")).mean;
    const double ladder = lightnessOf(builtFrame("lesenki\\modul_lestn")).mean;
    EXPECT_GT(face, wall.mean + 10);
    EXPECT_GT(solid, face);
    EXPECT_GT(ladder, face + 5);
    EXPECT_GT(cap, face + 20);
    EXPECT_GT(lightnessOf(builtFrame("key")).mean, wall.mean + 25);
    EXPECT_NEAR(lightnessOf(builtFrame("grub\\ani_08")).mean, 50, 8);
}

TEST(Walls, JoinWithoutSeamsInAnyMixture) {
    const char* names[] = {"steny\\modul",   "steny\\modul01", "steny\\modul02",
                           "steny\\modul03", "steny\\modul2",  "steny\\modul9"};
    const PixelImage& plain = builtFrame(names[0]);
    double inner = 0;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 63; ++x) inner += difference(plain.at(x, y), plain.at(x + 1, y)) / 63;
    }
    for (const char* name : names) {
        const PixelImage& other = builtFrame(name);
        double across = 0;
        double down = 0;
        for (int i = 0; i < 64; ++i) {
            across += difference(plain.at(63, i), other.at(0, i));
            down += difference(plain.at(i, 63), other.at(i, 0));
        }
        EXPECT_LE(across, 1.5 * inner) << name;
        EXPECT_LE(down, 1.5 * inner) << name;
    }
}

TEST(Doors, ShowRedWhileShutAndGreenAsTheyOpen) {
    for (const char* name : {"dveri\\door_a", "dveri\\door_b", "dveri\\door_c", "dveri\\door_d"}) {
        const Pixel shut = builtFrame(name, 0).at(32, 8);
        const Pixel open = builtFrame(name, 9).at(32, 8);
        EXPECT_GT(shut.r, shut.g + 40) << name;
        EXPECT_GT(open.g, open.r + 40) << name;
        EXPECT_GT(lightness(builtFrame(name, 9).at(32, 58)), 70) << name << " shows no light";
    }
}

TEST(Digits, DifferFromOneAnother) {
    for (const char* name : {"font_for_score", "c_imp", "c_small"}) {
        for (int a = 0; a < 10; ++a) {
            for (int b = 0; b < a; ++b)
                EXPECT_GT(difference(builtFrame(name, a), builtFrame(name, b)), 300) << name << ' ' << a << ' ' << b;
        }
    }
}

// ---- files

TEST(BmpFile, IsWrittenByteForByte) {
    PixelImage image(1, 2);
    image.at(0, 0) = {1, 2, 3, 4};
    image.at(0, 1) = {5, 6, 7, 8};
    const std::vector<std::uint8_t> expected = {
        'B', 'M', 62, 0, 0, 0, 0, 0, 0,  0,  54, 0, 0,  0,          // file header: size, offset
        40,  0,   0,  0, 1, 0, 0, 0, 2,  0,  0,  0, 1,  0,  32, 0,  // size of this header, width, height, planes, bits
        0,   0,   0,  0, 8, 0, 0, 0, 19, 11, 0,  0, 19, 11, 0,  0,  // compression, bytes of pixels, resolution
        0,   0,   0,  0, 0, 0, 0, 0,                                // no palette
        7,   6,   5,  8, 3, 2, 1, 4};                               // lowest row first, blue first
    EXPECT_EQ(bmpBytes(image), expected);
}

TEST(Strips, GiveClearPixelsTheNearestColour) {
    PixelImage image(5, 1);
    image.at(0, 0) = {10, 20, 30, 255};
    image.at(4, 0) = {50, 60, 70, 1};
    spreadColours(image);
    EXPECT_EQ(image.at(1, 0), (Pixel{10, 20, 30, 0}));
    EXPECT_EQ(image.at(3, 0), (Pixel{50, 60, 70, 0}));
    EXPECT_EQ(image.at(4, 0), (Pixel{50, 60, 70, 1}));
    const PixelImage& walk = builtFrame("grub\\ani_01");
    EXPECT_TRUE(std::any_of(walk.pixels.begin(), walk.pixels.end(),
                            [](const Pixel& p) { return p.a == 0 && p.r + p.g + p.b > 0; }));
}

TEST(RenderCommands, ReportANameNobodyKnowsAndAPlaceNobodyCanWriteTo) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(runGrubtool({"render", "picture", "grub\\nobody", "x.bmp"}), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("grub\\nobody"));
    testing::internal::CaptureStderr();
    EXPECT_EQ(runGrubtool({"render", "picture", "c_small", "/dev/null/x.bmp"}), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("/dev/null/x.bmp"));
}

TEST(RenderCommands, ListEveryName) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(runGrubtool({"render", "list"}), 0);
    const std::string list = testing::internal::GetCapturedStdout();
    EXPECT_EQ(static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')), allPictures().size());
    EXPECT_THAT(list, testing::HasSubstr("grub\\ani_01\n"));
    testing::internal::CaptureStdout();
    EXPECT_EQ(runGrubtool({"render", "list", "--labels"}), 0);
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::Not(testing::HasSubstr("grub\\ani_01\n")));
}

}  // namespace
}  // namespace grub
