// The worlds and what stands in them: everything that a level is built of, and what Grub takes.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <span>
#include <string>

#include "built_strips.h"
#include "loading_list.h"

namespace grub {
namespace {

// ---- all strips

TEST(Strips, AreThoseOfTheLoadingListAndShowSomething) {
    for (const StripDrawing& strip : allStrips()) {
        SCOPED_TRACE(strip.name);
        EXPECT_EQ(builtStrip(strip.name).size(), static_cast<std::size_t>(strip.frames));
        EXPECT_EQ(builtFrame(strip.name).width, strip.width);
        for (const PixelImage& frame : builtStrip(strip.name))
            EXPECT_TRUE(std::ranges::any_of(frame.pixels, [](const Pixel& p) { return p.a > 0; }));
        EXPECT_FALSE(std::ranges::any_of(builtFrame(strip.name).pixels, [](const Pixel& p) { return p == Pixel{}; }))
            << "clear pixels have the colour of the nearest visible one";
        if (strip.ground == Ground::Clear && strip.width == 64) {
            EXPECT_LT(visiblePixels(builtFrame(strip.name)), 64 * 64 * 92 / 100) << "it hides the wall behind it";
        }
    }
    for (const LoadEntry& file : loadingList()) {
        const StripDrawing* strip = findStrip(file.stem);
        ASSERT_NE(strip, nullptr) << file.stem;
        EXPECT_EQ(strip->frameHeight, file.frameHeight) << file.stem;
    }
}

// The packages may come from a program that another compiler made, with other options.
TEST(Pictures, ComeOutTheSameInEveryBuild) {
    for (const StripDrawing& strip : allStrips()) {
        const int last = strip.frames - 1;
        EXPECT_EQ(renderFrame(strip, last), builtFrame(strip.name, last)) << strip.name;
    }
}

// ---- worlds

struct World {
    std::span<const StripDrawing> walls;  // the first is the plain one
    double joint;                         // step across the lower edge of a wall, as a multiple of the mean step inside
    std::vector<const char*> floors;      // the first is the plain one
    const char* ends[2];
    const char* solid;
    const char* ladder;
    const char* pipe;
    std::vector<const char*> breaking;
    std::vector<const char*> growing;
};

const World kWorlds[] = {
    {turmaWallStrips(),
     1,
     {"steny\\modul_pol_11a", "poly\\modul_pol"},
     {"poly\\pol_kray1", "poly\\pol_kray2"},
     "poly\\modul_pol04",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     {"poly\\lom1", "poly\\lom2", "poly\\lom3", "poly\\lom4"},
     {"poly\\vosstfull", "poly\\vossthalf"}},
    {jelezoWallStrips().first(5),
     3,
     {"poly\\pol_jel", "jelezo\\pol_der"},
     {"poly\\pol_kray4", "poly\\pol_kray5"},
     "poly\\kam_jel",
     "lesenki\\lest_j",
     "trubi\\mod_trub14",
     {"jelezo\\animation_floor_iron_01"},
     {"jelezo\\animation_floor_iron_close01"}},
    {podvalWallStrips().first(5),
     1,
     {"poly\\tr_pol1", "poly\\tr_pol2"},
     {"poly\\truba_za3", "poly\\truba_za5"},
     "fon\\kam1",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     {"poly\\truba_za1"},
     {"poly\\truba_za2"}},
};

/// Sum of the steps from a column of pixels to the next; from the last column to the first one of `right`.
int stepBehind(const PixelImage& image, int column, const PixelImage& right) {
    int sum = 0;
    for (int y = 0; y < 64; ++y)
        sum += difference(image.at(column, y), column == 63 ? right.at(0, y) : image.at(column + 1, y));
    return sum;
}
/// These steps inside a picture, smallest first.
std::vector<int> stepsIn(const PixelImage& image) {
    std::vector<int> steps;
    for (int x = 0; x < 63; ++x) steps.push_back(stepBehind(image, x, image));
    std::ranges::sort(steps);
    return steps;
}

TEST(Worlds, ClimbInBrightnessFromWallToCapAndShowAllThatMoves) {
    for (const World& world : kWorlds) {
        SCOPED_TRACE(world.walls[0].name);
        const PixelImage& floor = builtFrame(world.floors[0]);
        const double face = lightOf(floor, 18, 62);
        const double wall = lightOf(builtFrame(world.walls[0].name));
        EXPECT_NEAR(wall, 3.9, 0.8);
        EXPECT_NEAR(face, 13, 3);
        EXPECT_GT(lightOf(builtFrame(world.solid)), face);
        EXPECT_GT(lightOf(builtFrame(world.ladder)), 18);
        EXPECT_GT(lightOf(builtFrame(world.pipe), 5, 15), 18);
        EXPECT_GT(lightOf(floor, 2, 10), 36);
        const auto standsOut = [wall](std::span<const StripDrawing> strips, double least) {
            for (const StripDrawing& strip : strips) {
                for (const PixelImage& frame : builtStrip(strip.name))
                    EXPECT_GE((lightOf(frame) + 5) / (wall + 5), least) << strip.name;
            }
        };
        standsOut(heroStrips(), 2.2);
        standsOut(dogStrips(), 2.5);
        standsOut(ladyStrips(), 2.5);
        standsOut(ratStrips(), 2.5);
        standsOut(thingStrips(), 3);
    }
}

TEST(Worlds, HaveWallsThatJoinInAnyMixture) {
    for (const World& world : kWorlds) {
        const PixelImage& plain = builtFrame(world.walls[0].name);
        for (const auto& [image, most] : {std::pair(plain, 1.0), std::pair(turned(plain), world.joint)}) {
            const auto steps = stepsIn(image);
            const double mean = std::accumulate(steps.begin(), steps.end(), 0.0) / 63;
            EXPECT_LE(stepBehind(image, 63, image), most * mean) << world.walls[0].name;
        }
        for (const StripDrawing& strip : world.walls) {
            SCOPED_TRACE(strip.name);
            const PixelImage& wall = builtFrame(strip.name);
            EXPECT_EQ(visiblePixels(wall), 64 * 64) << "a hole";
            for (int i = 0; i < 64; ++i) {
                for (const auto& [x, y] : {std::pair(i, 0), std::pair(i, 63), std::pair(0, i), std::pair(63, i)})
                    EXPECT_LE(difference(plain.at(x, y), wall.at(x, y)), 8) << "another edge at " << x << ", " << y;
            }
        }
    }
}

TEST(Worlds, HaveFloorsThatFillTheirCellAndEndsThatDoNot) {
    for (const World& world : kWorlds) {
        for (const char* name : world.floors) {
            EXPECT_EQ(runsIn(builtFrame(name), 30), (std::vector{std::pair(0, 64)})) << name;
            EXPECT_LE(highestRow(builtFrame(name)), 1) << name;
        }
        EXPECT_EQ(visiblePixels(builtFrame(world.solid)), 64 * 64) << world.solid;
        for (const int right : {0, 1}) {
            const PixelImage& end = builtFrame(world.ends[right]);
            EXPECT_LT(end.at(63 * right, 1).a, 128) << world.ends[right];
            EXPECT_EQ(end.at(63 - 63 * right, 30).a, 255) << world.ends[right];
        }
    }
}

TEST(Worlds, BreakTheirOwnFloorUntilAHoleIsOpenAndGrowItAgain) {
    for (const World& world : kWorlds) {
        const PixelImage& floor = builtFrame(world.floors[0]);
        EXPECT_LT(difference(floor, builtFrame(world.breaking[0])), 40) << world.breaking[0];
        EXPECT_LT(difference(floor, builtFrame(world.growing[0], 7)), 60) << world.growing[0];
        for (const char* name : world.breaking) {
            SCOPED_TRACE(name);
            const Frames& frames = builtStrip(name);
            ASSERT_EQ(frames.size(), 8U);
            EXPECT_EQ(visiblePixels(frames[0]), 64 * 64) << "it is whole when it is hit";
            for (std::size_t i = 2; i < 8; ++i) {
                EXPECT_LT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
                EXPECT_GT(highestRow(frames[i], 20, 44), highestRow(frames[i - 1], 20, 44)) << i;
            }
            EXPECT_GE(highestRow(frames[3], 20, 44), 12) << "the middle hardly falls";
            EXPECT_EQ(highestRow(frames[7], 20, 44), 64) << "the hole is not open";
            EXPECT_LT(visiblePixels(frames[7]), 64 * 64 / 5);
        }
        for (const char* name : world.growing) {
            SCOPED_TRACE(name);
            const Frames& frames = builtStrip(name);
            ASSERT_EQ(frames.size(), 8U);
            EXPECT_LT(visiblePixels(frames[0]), 64 * 64 / 3) << "it starts as a hole";
            for (std::size_t i = 1; i < 8; ++i) EXPECT_GT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
            EXPECT_EQ(visiblePixels(frames[7]), 64 * 64);
        }
    }
}

TEST(Worlds, HaveDoorsThatShowRedWhileShutAndGreenAsTheyOpen) {
    const auto daylight = [](const PixelImage& image) {
        return std::ranges::count_if(image.pixels,
                                     [](const Pixel& p) { return p.a == 255 && lightOf(p) > 40 && p.r > p.b + 20; });
    };
    for (const StripDrawing& door : doorStrips()) {
        if (door.frames == 1) continue;
        SCOPED_TRACE(door.name);
        const Frames& frames = builtStrip(door.name);
        ASSERT_EQ(frames.size(), 10U);
        EXPECT_GT(frames[0].at(32, 8).r, frames[0].at(32, 8).g + 40);
        EXPECT_GT(frames[9].at(32, 8).g, frames[9].at(32, 8).r + 40);
        EXPECT_GT(lightOf(frames[9].at(32, 58)), 40) << "no light falls out";
        for (std::size_t i = 3; i < 10; ++i)
            EXPECT_GE(daylight(frames[i]) + 8, daylight(frames[i - 1])) << "it goes back in frame " << i;
        EXPECT_GT(daylight(frames[9]), daylight(frames[0]) + 400);
        EXPECT_LT(highestRow(frames[0]), 3);
        EXPECT_EQ(lowestRow(frames[0]), 63);
    }
}

TEST(Worlds, HaveWhatGoesOnFromCellToCellMeet) {
    const struct {
        const char* first;
        const char* second;
        bool below;  // else to the right
    } joints[] = {
        {"fon\\p11", "fon\\p12", false},
        {"fon\\p11", "fon\\p21", true},
        {"fon\\k11", "fon\\k12", false},
        {"fon\\k11", "fon\\k21", true},
        {"dveri\\d11", "dveri\\d12", false},
        {"dveri\\d11", "dveri\\d21", true},
        {"trubi\\mod_trub1", "trubi\\kran1", false},
        {"trubi\\mod_trub8", "trubi\\mod_trub11", true},
        {"trubproz\\trub4", "trubproz\\tr_z", false},
        {"trubproz\\trub_stuk", "trubproz\\trub_stuk2", true},
        {"fon\\pipe7", "fon\\pipe9", true},
        {"fon\\prov2", "fon\\prov8", true},
        {"provoda\\prov3", "provoda\\prov6", false},
    };
    for (const auto& joint : joints) {
        SCOPED_TRACE(joint.first);
        const auto along = [&](const char* name) { return joint.below ? turned(builtFrame(name)) : builtFrame(name); };
        const PixelImage first = along(joint.first);
        const PixelImage second = along(joint.second);
        EXPECT_LE(stepBehind(first, 63, second), stepsIn(first).back() + 64);
        const auto end = runsIn(turned(first), 63);
        EXPECT_EQ(end, runsIn(turned(second), 0));
        EXPECT_GE(end.empty() ? 0 : end[0].second - end[0].first, 3);
    }
}

// ---- things

TEST(Things, LoopInsideTheirCellWithARimOfGold) {
    for (const StripDrawing& thing : thingStrips()) {
        SCOPED_TRACE(thing.name);
        const Frames& frames = builtStrip(thing.name);
        const bool isKey = thing.name.starts_with("key");
        EXPECT_EQ(frames.size(), isKey ? 1U : 12U);
        EXPECT_TRUE(isKey || isCycle(frames));
        EXPECT_TRUE(std::ranges::none_of(frames, touchesEdge));
        EXPECT_GT(
            std::ranges::count_if(frames[0].pixels,
                                  [](const Pixel& p) { return p.a > 200 && p.r > 180 && p.g > p.b + 50 && p.r > p.g; }),
            90)
            << "what can be taken has a rim of gold";
        for (const StripDrawing& other : thingStrips())
            EXPECT_EQ(frames[0] == builtFrame(other.name), &other == &thing) << other.name;
    }
    for (const char* torch : {"fon\\fakel", "kam_left", "kam_right"}) EXPECT_TRUE(isCycle(builtStrip(torch))) << torch;
}

}  // namespace
}  // namespace grub
