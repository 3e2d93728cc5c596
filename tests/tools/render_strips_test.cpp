// Strips that play once, and those that go round: what happens from picture to picture.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "built_pictures.h"
#include "label_pictures.h"
#include "picture_registry.h"
#include "render_extent.h"
#include "render_lightness.h"
#include "render_loops.h"

namespace grub {
namespace {

std::ptrdiff_t visibleIn(const PixelImage& image) {
    return std::count_if(image.pixels.begin(), image.pixels.end(), isVisible);
}

/// Pixels of the opening of a door that are as bright as daylight.
std::ptrdiff_t litIn(const PixelImage& image) {
    return std::count_if(image.pixels.begin(), image.pixels.end(),
                         [](const Pixel& p) { return p.a == 255 && lightness(p) > 70 && p.r > p.b + 20; });
}

TEST(FloorsThatBreak, OnlyLoseOnceTheyFall) {
    for (const char* name : {"poly\\lom1", "poly\\lom2", "poly\\lom3", "poly\\lom4", "poly\\truba_za1",
                             "jelezo\\animation_floor_iron_01"}) {
        const std::vector<PixelImage>& strip = builtStrip(name);
        EXPECT_EQ(visibleIn(strip[0]), 64 * 64) << name << " is whole when it is hit";
        for (std::size_t i = 2; i < strip.size(); ++i)
            EXPECT_LT(visibleIn(strip[i]), visibleIn(strip[i - 1])) << name << " picture " << i;
    }
}

TEST(FloorsThatGrow, OnlyGainAndEndWhole) {
    for (const char* name :
         {"poly\\vosstfull", "poly\\vossthalf", "poly\\truba_za2", "jelezo\\animation_floor_iron_close01"}) {
        const std::vector<PixelImage>& strip = builtStrip(name);
        EXPECT_LT(visibleIn(strip[0]), 64 * 64 / 3) << name << " starts as a hole";
        for (std::size_t i = 1; i < strip.size(); ++i)
            EXPECT_GT(visibleIn(strip[i]), visibleIn(strip[i - 1])) << name << " picture " << i;
        EXPECT_EQ(visibleIn(strip.back()), 64 * 64) << name;
    }
}

TEST(Doors, OpenWithoutGoingBack) {
    for (const char* name : {"dveri\\door_a", "dveri\\door_d", "dveri\\animation_door_iron_01",
                             "dveri\\animation_door_iron_03", "dveri\\dverfin2", "dveri\\dverfin4"}) {
        const std::vector<PixelImage>& strip = builtStrip(name);
        for (std::size_t i = 3; i < strip.size(); ++i)
            EXPECT_GE(litIn(strip[i]) + 8, litIn(strip[i - 1])) << name << " picture " << i;
        EXPECT_GT(litIn(strip.back()), litIn(strip.front()) + 400) << name;
        EXPECT_LT(highestRow(strip.front()), 3) << name << " is as high as a cell";
        EXPECT_EQ(lowestRow(strip.front()), 63) << name << " stands on the floor";
    }
}

TEST(Torches, BurnWithoutAJump) {
    for (const char* name : {"fon\\fakel", "kam_left", "kam_right"}) {
        const double jump = jumpAtTheEnd(builtStrip(name));
        EXPECT_LE(jump, 1.3) << name;
        EXPECT_GT(jump, 0) << name << " does not move";
    }
}

TEST(Drops, FallFromTheTopToTheFloor) {
    const std::vector<PixelImage>& strip = builtStrip("kapli");
    EXPECT_LT(highestRow(strip[0]), 6);
    for (std::size_t i = 1; i < 8; ++i)
        EXPECT_GE(middleOf(strip[i]).second, middleOf(strip[i - 1]).second) << "picture " << i;
    EXPECT_GT(lowestRow(strip[8]), 55) << "it splashes where one walks";
}

TEST(ThingsOnTheWall, LeaveSomeOfItToSee) {
    for (const PictureEntry& entry : allPictures()) {
        if (isLabel(entry) || entry.ground == Ground::Joined || entry.width != 64 || entry.frameHeight != 64) continue;
        const PixelImage& image = builtFrame(entry.name);
        EXPECT_LT(visibleIn(image), 64 * 64 * 92 / 100) << entry.name;
    }
}

}  // namespace
}  // namespace grub
