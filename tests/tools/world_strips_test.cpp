// The worlds and what stands in them: everything that a level is built of, and what Grub takes.

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "built_strips.h"
#include "jelezo_room.h"
#include "loading_list.h"
#include "podval_room.h"
#include "things_room.h"
#include "turma_room.h"

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
};

const World kWorlds[] = {
    {turmaWallStrips(), 1, "steny\\modul_pol_11a", "poly\\lom1", "poly\\modul_pol04"},
    {jelezoWallStrips().first(5), 3, "poly\\pol_jel", "jelezo\\animation_floor_iron_01", "poly\\kam_jel"},
    {podvalWallStrips().first(5), 1, "poly\\tr_pol1", "poly\\truba_za1", "fon\\kam1"}};

/// Sum of the steps from a column of pixels to the next; from the last column to the first one of `right`.
int stepBehind(const PixelImage& image, int column, const PixelImage& right) {
    int sum = 0;
    for (int y = 0; y < 64; ++y)
        sum += difference(image.at(column, y), column == 63 ? right.at(0, y) : image.at(column + 1, y));
    return sum;
}
/// The mean of these steps inside the picture.
double meanStepIn(const PixelImage& image) {
    double sum = 0;
    for (int x = 0; x < 63; ++x) sum += stepBehind(image, x, image);
    return sum / 63;
}

TEST(Worlds, HaveWallsThatJoinInAnyMixture) {
    for (const World& world : kWorlds) {
        const PixelImage& plain = builtFrame(world.walls[0].name);
        for (const auto& [image, most] : {std::pair(plain, 1.0), std::pair(turned(plain), world.joint)})
            EXPECT_LE(stepBehind(image, 63, image), most * meanStepIn(image)) << world.floor;
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

TEST(Floors, FillTheirCell) {
    for (const World& world : kWorlds) {
        EXPECT_EQ(visiblePixels(builtFrame(world.solid)), 64 * 64) << world.solid;
        EXPECT_EQ(runsIn(builtFrame(world.floor), 30), (std::vector{std::pair(0, 64)})) << world.floor;
        EXPECT_LE(highestRow(builtFrame(world.floor)), 1) << world.floor;
    }
}

TEST(Floors, BreakUntilAHoleIsOpenAndGrowAgain) {
    for (const World& world : kWorlds)
        EXPECT_LT(difference(builtFrame(world.floor), builtFrame(world.breaking)), 40) << world.breaking;
    for (const StripDrawing& floor : joined({turmaFloorStrips(), jelezoFloorStrips(), podvalFloorStrips()})) {
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
    for (const StripDrawing& door : joined({turmaDoorStrips(), jelezoDoorStrips(), podvalDoorStrips()})) {
        if (door.frames == 1) continue;
        SCOPED_TRACE(door.name);
        const Frames& frames = builtStrip(door.name);
        ASSERT_EQ(frames.size(), 10U);
        EXPECT_GT(frames[0].at(32, 8).r, frames[0].at(32, 8).g + 40);
        EXPECT_GT(frames[9].at(32, 8).g, frames[9].at(32, 8).r + 40);
        EXPECT_LT(highestRow(frames[0]), 3);
        EXPECT_EQ(lowestRow(frames[0]), 63);
    }
}

// ---- things

TEST(Things, LoopInsideTheirCellAndDiffer) {
    for (const StripDrawing& thing : thingStrips()) {
        SCOPED_TRACE(thing.name);
        const Frames& frames = builtStrip(thing.name);
        const bool isKey = thing.name.starts_with("key");
        EXPECT_EQ(frames.size(), isKey ? 1U : 12U);
        EXPECT_TRUE(isKey || isCycle(frames));
        EXPECT_TRUE(std::ranges::none_of(frames, touchesEdge));
        for (const StripDrawing& other : thingStrips())
            EXPECT_EQ(frames[0] == builtFrame(other.name), &other == &thing) << other.name;
    }
    for (const char* torch : {"fon\\fakel", "kam_left", "kam_right"}) EXPECT_TRUE(isCycle(builtStrip(torch))) << torch;
}

}  // namespace
}  // namespace grub
