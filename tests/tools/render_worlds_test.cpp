// The three worlds: each has all that a level is built of, in the same order of brightness.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "built_pictures.h"
#include "picture_registry.h"
#include "render_extent.h"
#include "render_lightness.h"
#include "render_loops.h"

namespace grub {
namespace {

/// The pictures of a world's blocks.
struct World {
    const char* name;
    std::vector<const char*> walls;  // the first is the plain one
    std::vector<const char*> floors;
    const char* leftEnd;
    const char* rightEnd;
    const char* solid;
    const char* ladder;
    const char* pipe;
    const char* breaking;
    const char* growing;
    std::vector<const char*> doors;
};

const World kWorlds[] = {
    {"prison",
     {"steny\\modul", "steny\\modul01", "steny\\modul02", "steny\\modul03", "steny\\modul2", "steny\\modul9"},
     {"steny\\modul_pol_11a", "poly\\modul_pol"},
     "poly\\pol_kray1",
     "poly\\pol_kray2",
     "poly\\modul_pol04",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     "poly\\lom1",
     "poly\\vosstfull",
     {"dveri\\door_a", "dveri\\door_b", "dveri\\door_c", "dveri\\door_d"}},
    {"iron works",
     {"sten_jel\\fon_jel", "fon\\modul3", "fon\\modul4", "fon\\modul6", "fon\\modul7"},
     {"poly\\pol_jel", "jelezo\\pol_der"},
     "poly\\pol_kray4",
     "poly\\pol_kray5",
     "poly\\kam_jel",
     "lesenki\\lest_j",
     "trubi\\mod_trub14",
     "jelezo\\animation_floor_iron_01",
     "jelezo\\animation_floor_iron_close01",
     {"dveri\\animation_door_iron_01", "dveri\\animation_door_iron_02", "dveri\\animation_door_iron_03",
      "dveri\\animation_door_iron_04"}},
    {"cellar",
     {"fon\\modul02", "fon\\modul2", "fon\\modul03", "fon\\modul8", "fon\\modul9"},
     {"poly\\tr_pol1", "poly\\tr_pol2"},
     "poly\\truba_za3",
     "poly\\truba_za5",
     "fon\\kam1",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     "poly\\truba_za1",
     "poly\\truba_za2",
     {"dveri\\dverfin1", "dveri\\dverfin2", "dveri\\dverfin3", "dveri\\dverfin4"}},
};

/// Mean step of brightness between two columns or rows of pixels that lie side by side.
double acrossSeam(const PixelImage& left, int column, const PixelImage& right) {
    double sum = 0;
    for (int y = 0; y < 64; ++y) sum += difference(left.at(column, y), right.at((column + 1) % 64, y));
    return sum;
}

double downSeam(const PixelImage& upper, int row, const PixelImage& lower) {
    double sum = 0;
    for (int x = 0; x < 64; ++x) sum += difference(upper.at(x, row), lower.at(x, (row + 1) % 64));
    return sum;
}

/// The strongest step inside a picture, away from its edge.
double strongestInside(const PixelImage& image, double (*seam)(const PixelImage&, int, const PixelImage&)) {
    double strongest = 0;
    for (int i = 0; i < 63; ++i) strongest = std::max(strongest, seam(image, i, image));
    return strongest;
}

TEST(Worlds, ClimbInBrightnessFromWallToCap) {
    for (const World& world : kWorlds) {
        const Spread wall = lightnessOf(builtFrame(world.walls[0]));
        EXPECT_GE(wall.mean, 19) << world.name;
        EXPECT_LE(wall.mean, 26) << world.name;
        EXPECT_LE(wall.deviation, 9) << world.name;
        const PixelImage floor = builtFrame(world.floors[0]);
        const double face = lightnessOf(floor, 18, 62).mean;
        EXPECT_GE(face, 38) << world.name;
        EXPECT_LE(face, 45) << world.name;
        EXPECT_GT(lightnessOf(builtFrame(world.solid)).mean, face) << world.name;
        EXPECT_GT(lightnessOf(builtFrame(world.ladder)).mean, 49) << world.name;
        EXPECT_GT(lightnessOf(builtFrame(world.pipe), 5, 15).mean, 49) << world.name;
        EXPECT_GE(lightnessOf(floor, 2, 10).mean, 66) << world.name;
    }
}

TEST(Worlds, HaveWallsThatJoinInAnyMixture) {
    for (const World& world : kWorlds) {
        const PixelImage plain = builtFrame(world.walls[0]);
        for (const char* name : world.walls) {
            const PixelImage other = builtFrame(name);
            EXPECT_LE(acrossSeam(plain, 63, other), 1.3 * strongestInside(plain, acrossSeam)) << name;
            EXPECT_LE(downSeam(plain, 63, other), 1.3 * strongestInside(plain, downSeam)) << name;
            EXPECT_TRUE(
                std::all_of(other.pixels.begin(), other.pixels.end(), [](const Pixel& p) { return p.a == 255; }))
                << name << " has a hole";
        }
    }
}

TEST(Worlds, HaveFloorsThatFillTheirCellAndEndsThatDoNot) {
    for (const World& world : kWorlds) {
        for (const char* name : world.floors) {
            const PixelImage floor = builtFrame(name);
            EXPECT_EQ(runsIn(floor, 30), (std::vector{std::pair(0, 64)})) << name;
            EXPECT_LE(highestRow(floor), 1) << name;
        }
        EXPECT_LT(builtFrame(world.leftEnd).at(0, 1).a, 128) << world.name;
        EXPECT_EQ(builtFrame(world.leftEnd).at(63, 30).a, 255) << world.name;
        EXPECT_LT(builtFrame(world.rightEnd).at(63, 1).a, 128) << world.name;
        EXPECT_EQ(builtFrame(world.rightEnd).at(0, 30).a, 255) << world.name;
    }
}

TEST(Worlds, BreakTheirOwnFloorAndGrowItAgain) {
    for (const World& world : kWorlds) {
        const PixelImage whole = builtFrame(world.floors[0]);
        const PixelImage start = builtFrame(world.breaking, 0);
        const PixelImage hole = builtFrame(world.breaking, 7);
        const PixelImage grown = builtFrame(world.growing, 7);
        EXPECT_EQ(findPicture(world.breaking)->frames, 8) << world.name;
        EXPECT_EQ(findPicture(world.growing)->frames, 8) << world.name;
        EXPECT_LT(differenceWhereOpaque(whole, start), 40) << world.name << ": another floor breaks";
        EXPECT_LT(differenceWhereOpaque(whole, grown), 60) << world.name << ": another floor grows";
        const auto left = std::count_if(hole.pixels.begin(), hole.pixels.end(), isVisible);
        EXPECT_LT(left, 64 * 64 / 5) << world.name << ": the hole is not open";
    }
}

TEST(Worlds, HaveDoorsThatShowRedWhileShutAndGreenAsTheyOpen) {
    for (const World& world : kWorlds) {
        for (const char* name : world.doors) {
            const Pixel shut = builtFrame(name, 0).at(32, 8);
            const Pixel open = builtFrame(name, 9).at(32, 8);
            EXPECT_GT(shut.r, shut.g + 40) << name;
            EXPECT_GT(open.g, open.r + 40) << name;
            EXPECT_GT(lightness(builtFrame(name, 9).at(32, 58)), 70) << name << " shows no light";
        }
    }
}

TEST(Worlds, HaveLargeThingsThatGoOnFromCellToCell) {
    const char* things[][4] = {{"fon\\p11", "fon\\p12", "fon\\p21", "fon\\p22"},
                               {"fon\\k11", "fon\\k12", "fon\\k21", "fon\\k22"},
                               {"dveri\\d11", "dveri\\d12", "dveri\\d21", "dveri\\d22"}};
    for (const auto& thing : things) {
        const PixelImage upperLeft = builtFrame(thing[0]);
        const PixelImage lowerRight = builtFrame(thing[3]);
        EXPECT_LE(acrossSeam(upperLeft, 63, builtFrame(thing[1])), strongestInside(upperLeft, acrossSeam)) << thing[1];
        EXPECT_LE(downSeam(upperLeft, 63, builtFrame(thing[2])), strongestInside(upperLeft, downSeam)) << thing[2];
        EXPECT_LE(acrossSeam(builtFrame(thing[2]), 63, lowerRight), strongestInside(lowerRight, acrossSeam))
            << thing[3];
        EXPECT_LE(downSeam(builtFrame(thing[1]), 63, lowerRight), strongestInside(lowerRight, downSeam)) << thing[3];
    }
}

/// Two pictures that lie side by side, or below one another, must go on in each other.
struct Joint {
    const char* first;
    const char* second;
    bool below;
};

TEST(Worlds, HavePipesAndCablesThatMeetAtTheirSides) {
    const Joint joints[] = {
        {"trubi\\mod_trub1", "trubi\\kran1", false},
        {"trubi\\mod_trub8", "trubi\\mod_trub10", false},
        {"trubi\\mod_trub8", "trubi\\mod_trub11", true},
        {"trubproz\\trub4", "trubproz\\tr_z", false},
        {"trubproz\\trub_zag1", "trubproz\\ventil2", false},
        {"trubproz\\trub_stuk", "trubproz\\trub_stuk2", true},
        {"fon\\pipe3", "fon\\pipe4", false},
        {"fon\\pipe7", "fon\\pipe9", true},
        {"fon\\prov3", "fon\\prov4", false},
        {"fon\\prov2", "fon\\prov8", true},
        {"provoda\\prov3", "provoda\\prov6", false},
        {"provoda\\prov11", "provoda\\prov15", true},
    };
    const auto turned = [](const PixelImage& image) {
        PixelImage result(image.height, image.width);
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) result.at(y, x) = image.at(x, y);
        }
        return result;
    };
    for (const Joint& joint : joints) {
        PixelImage first = builtFrame(joint.first);
        PixelImage second = builtFrame(joint.second);
        if (joint.below) first = turned(first);
        if (joint.below) second = turned(second);
        int visible = 0;
        for (int y = 0; y < 64; ++y) {
            EXPECT_EQ(isVisible(first.at(63, y)), isVisible(second.at(0, y)))
                << joint.first << ' ' << joint.second << ' ' << y;
            visible += isVisible(first.at(63, y)) ? 1 : 0;
        }
        EXPECT_GE(visible, 3) << joint.first;
    }
}

}  // namespace
}  // namespace grub
