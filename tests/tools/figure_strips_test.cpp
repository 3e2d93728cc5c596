// Figures: what the strips of Grub and of his enemies promise to the rules of movement and to the player's eye.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "built_strips.h"
#include "enemies_room.h"
#include "grub_room.h"

namespace grub {
namespace {

/// Further promises of a strip, as bits of a set.
enum Promise : unsigned {
    kCycle = 1,   // the last frame leads on to the first
    kSteady = 2,  // the middle of the figure stays in its column
    kPipe = 4,    // something holds the pipe, whose axis is row 10
};

/// Frames are digits; "*" are all, "$" is the last.
struct FigureRow {
    const char* strip;
    std::size_t frames;    // as many as the rules count
    const char* grounded;  // stand on row 61; in a cycle the others do not
    int gripRow;           // where feet or hands touch what goes back 8 px a frame
    const char* grips;     // frames up to whose next something on that row does so
    unsigned promises;
};

constexpr FigureRow kFigures[] = {
    // strip            frames grounded  row  grips
    {"grub\\ani_01", 8, "012456", 60, "0145", kCycle | kSteady},
    {"grub\\ani_02", 8, "", 0, "", kCycle},
    {"grub\\ani_03", 6, "", 0, "", kCycle},
    {"grub\\ani_04", 8, "", 0, "", kCycle | kPipe},
    {"grub\\ani_05", 10, "012346789", 0, "", 0},
    {"grub\\ani_06", 8, "*", 0, "", 0},
    {"grub\\ani_07", 8, "*", 0, "", 0},
    {"grub\\ani_08", 50, "*", 0, "", kCycle},
    {"polkan\\ani_01", 8, "*", 60, "*", kCycle | kSteady},
    {"polkan\\ani_02", 8, "", 0, "", kCycle},
    {"polkan\\ani_03", 8, "", 6, "012456", kCycle | kPipe},
    {"polkan\\ani_04", 8, "0", 0, "", 0},
    {"polkan\\ani_05", 8, "$", 0, "", 0},
    {"polkan\\ani_06", 8, "$", 0, "", 0},
    {"tetka\\ani_01", 8, "*", 60, "012456", kCycle | kSteady},
    {"tetka\\ani_02", 8, "", 0, "", kCycle},
    {"tetka\\ani_03", 8, "", 6, "012456", kCycle | kPipe},
    {"tetka\\ani_04", 8, "$", 0, "", 0},
    {"tetka\\ani_05", 8, "$", 0, "", 0},
    {"tetka\\ani_06", 8, "0", 0, "", 0},
    {"rat\\ani_01", 8, "*", 60, "*", kCycle | kSteady},
    {"rat\\ani_up", 4, "", 0, "", 0},
    {"rat\\ani_down", 4, "$", 0, "", 0},
};

bool names(const char* set, std::size_t frame, std::size_t count) {
    const std::string_view frames = set;
    if (frames == "*" || frames == "$") return frames == "*" || frame + 1 == count;
    return frame < 10 && frames.find(static_cast<char>('0' + frame)) != std::string_view::npos;
}

/// Whether a side of something that touches the row lies 8 +- 1 px further right in the next frame.
bool slidesBack(const PixelImage& before, const PixelImage& after, int row) {
    const auto isEight = [](int from, int to) { return std::abs(to - from - 8) <= 1; };
    for (const auto& a : runsIn(before, row)) {
        for (const auto& b : runsIn(after, row))
            if (isEight(a.first, b.first) || isEight(a.second, b.second)) return true;
    }
    return false;
}

TEST(Figures, KeepTheirPlaceInTheCellFrameByFrame) {
    EXPECT_EQ(grubStrips().size() + dogStrips().size() + ladyStrips().size() + ratStrips().size(), std::size(kFigures));
    for (const FigureRow& row : kFigures) {
        SCOPED_TRACE(row.strip);
        const Frames& frames = builtStrip(row.strip);
        ASSERT_EQ(frames.size(), row.frames);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            SCOPED_TRACE(i);
            EXPECT_FALSE(touchesEdge(frames[i]));
            const bool grounded = names(row.grounded, i, row.frames);
            if (grounded || (*row.grounded != 0 && (row.promises & kCycle) != 0)) {
                EXPECT_EQ(lowestRow(frames[i]) == 61, grounded) << lowestRow(frames[i]);
            }
            if (names(row.grips, i, row.frames)) {
                EXPECT_TRUE(slidesBack(frames[i], frames[(i + 1) % row.frames], row.gripRow));
            }
            if ((row.promises & kPipe) != 0) {
                EXPECT_FALSE(runsIn(frames[i], 10).empty());
            }
            if ((row.promises & kSteady) != 0) {
                EXPECT_NEAR(middleOf(frames[i]).first, middleOf(frames[0]).first, 3);
            }
        }
        EXPECT_TRUE((row.promises & kCycle) == 0 || isCycle(frames));
    }
}

// The rules move the rat half a cell at once, at the start of its fall and of its leap.
TEST(Enemies, TheRatsHolesMakeUpForHalfACell) {
    const auto middleRow = [](const PixelImage& image) { return middleOf(image).second; };
    const double running = middleRow(builtFrame("rat\\ani_01"));
    EXPECT_NEAR(running - middleRow(builtFrame("rat\\ani_down")), 32, 10) << "it jumps as it loses the ground";
    EXPECT_NEAR(middleRow(builtStrip("rat\\ani_up").back()), running, 4);
}

TEST(Shields, ShowGrubsOwnPoses) {
    ASSERT_EQ(shieldStrips().size(), 8U);
    for (int number = 1; number <= 8; ++number) {
        SCOPED_TRACE(number);
        const auto& own = builtStrip("grub\\ani_0" + std::to_string(number));
        const auto& shielded = builtStrip("led\\shield_0" + std::to_string(number));
        ASSERT_EQ(shielded.size(), own.size());
        EXPECT_LT(difference(own.back(), shielded.back(), true), 60) << "another pose";
    }
}

}  // namespace
}  // namespace grub
