// The worlds and what stands in them: everything that a level is built of, and what Grub takes.

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "built_strips.h"
#include "loading_list.h"

namespace grub {
namespace {

// ---- all strips

TEST(Strips, AreThoseOfTheLoadingListAndShowSomething) {
    for (const StripDrawing& strip : allStrips()) {
        SCOPED_TRACE(strip.name);
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
    const char* floor;
    const char* breaking;
    const char* solid;
    const char* ladder;
    const char* pipe;
};

const World kWorlds[] = {{turmaWallStrips(), 1, "steny\\modul_pol_11a", "poly\\lom1", "poly\\modul_pol04",
                          "lesenki\\modul_lestn", "trubi\\mod_trub04"},
                         {jelezoWallStrips().first(5), 3, "poly\\pol_jel", "jelezo\\animation_floor_iron_01",
                          "poly\\kam_jel", "lesenki\\lest_j", "trubi\\mod_trub14"},
                         {podvalWallStrips().first(5), 1, "poly\\tr_pol1", "poly\\truba_za1", "fon\\kam1",
                          "lesenki\\modul_lestn", "trubi\\mod_trub04"}};

/// Sum of the steps from a column of pixels to the next; from the last column to the first one of `right`.
int stepBehind(const PixelImage& image, int column, const PixelImage& right) {
    int sum = 0;
    for (int y = 0; y < 64; ++y)
        sum += difference(image.at(column, y), column == 63 ? right.at(0, y) : image.at(column + 1, y));
    return sum;
}
struct StepsInside {
    double mean = 0;
    int largest = 0;
};
StepsInside stepsIn(const PixelImage& image) {
    StepsInside steps;
    for (int x = 0; x < 63; ++x) {
        steps.mean += stepBehind(image, x, image) / 63.0;
        steps.largest = std::max(steps.largest, stepBehind(image, x, image));
    }
    return steps;
}

TEST(Worlds, ClimbInBrightnessFromWallToCapAndShowAllThatMoves) {
    for (const World& world : kWorlds) {
        SCOPED_TRACE(world.floor);
        const PixelImage& floor = builtFrame(world.floor);
        const double face = lightOf(floor, 18, 62);
        const double wall = lightOf(builtFrame(world.walls[0].name));
        EXPECT_NEAR(wall, 3.9, 0.8);
        EXPECT_NEAR(face, 13, 3);
        EXPECT_GT(lightOf(builtFrame(world.solid)), face);
        EXPECT_GT(lightOf(builtFrame(world.ladder)), 18);
        EXPECT_GT(lightOf(builtFrame(world.pipe), 5, 15), 18);
        EXPECT_GT(lightOf(floor, 2, 10), 36);
        for (const auto& strips : {heroStrips(), dogStrips(), ladyStrips(), ratStrips(), thingStrips()}) {
            for (const StripDrawing& strip : strips) {
                for (const PixelImage& frame : builtStrip(strip.name))
                    EXPECT_GE((lightOf(frame) + 5) / (wall + 5), 2.5) << strip.name;
            }
        }
    }
}

TEST(Worlds, HaveWallsThatJoinInAnyMixture) {
    for (const World& world : kWorlds) {
        const PixelImage& plain = builtFrame(world.walls[0].name);
        for (const auto& [image, most] : {std::pair(plain, 1.0), std::pair(turned(plain), world.joint)})
            EXPECT_LE(stepBehind(image, 63, image), most * stepsIn(image).mean) << world.floor;
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

TEST(Floors, FillTheirCellAndEndsDoNot) {
    for (const World& world : kWorlds) {
        EXPECT_EQ(visiblePixels(builtFrame(world.solid)), 64 * 64) << world.solid;
        EXPECT_EQ(runsIn(builtFrame(world.floor), 30), (std::vector{std::pair(0, 64)})) << world.floor;
        EXPECT_LE(highestRow(builtFrame(world.floor)), 1) << world.floor;
    }
    const std::pair<const char*, int> ends[] = {{"poly\\pol_kray1", 0}, {"poly\\pol_kray2", 63},
                                                {"poly\\pol_kray4", 0}, {"poly\\pol_kray5", 63},
                                                {"poly\\truba_za3", 0}, {"poly\\truba_za5", 63}};
    for (const auto& [name, open] : ends) {
        EXPECT_FALSE(isVisible(builtFrame(name).at(open, 1))) << name;
        EXPECT_TRUE(isVisible(builtFrame(name).at(63 - open, 30))) << name;
    }
}

TEST(Floors, BreakUntilAHoleIsOpenAndGrowAgain) {
    for (const World& world : kWorlds)
        EXPECT_LT(difference(builtFrame(world.floor), builtFrame(world.breaking)), 40) << world.breaking;
    for (const StripDrawing& floor : floorStrips()) {
        if (floor.frames == 1) continue;
        SCOPED_TRACE(floor.name);
        Frames frames = builtStrip(floor.name);
        ASSERT_EQ(frames.size(), 8U);
        const bool grows = visiblePixels(frames[0]) < visiblePixels(frames[7]);
        if (grows) std::ranges::reverse(frames);
        EXPECT_EQ(visiblePixels(frames[0]), 64 * 64) << "it is not whole";
        for (std::size_t i = grows ? 1 : 2; i < 8; ++i)
            EXPECT_LT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
        EXPECT_LT(visiblePixels(frames[7]), 64 * 64 / (grows ? 3 : 5)) << "the hole is not open";
        if (grows) continue;
        for (std::size_t i = 2; i < 8; ++i)
            EXPECT_GT(highestRow(frames[i], 20, 44), highestRow(frames[i - 1], 20, 44)) << i;
        EXPECT_GE(highestRow(frames[3], 20, 44), 12) << "the middle hardly falls";
        EXPECT_EQ(highestRow(frames[7], 20, 44), 64);
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
    } joints[] = {{"fon\\p11", "fon\\p12", false},
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
                  {"provoda\\prov3", "provoda\\prov6", false}};
    for (const auto& joint : joints) {
        SCOPED_TRACE(joint.first);
        const auto along = [&](const char* name) { return joint.below ? turned(builtFrame(name)) : builtFrame(name); };
        const PixelImage first = along(joint.first);
        const PixelImage second = along(joint.second);
        EXPECT_LE(stepBehind(first, 63, second), stepsIn(first).largest + 64);
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
