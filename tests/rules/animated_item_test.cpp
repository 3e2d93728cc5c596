#include "animated_item.h"

#include <gtest/gtest.h>

#include <vector>

#include "drawn_world.h"

namespace grub {
namespace {

// A round of n pictures with r frames between them takes n * (r + 1) + 1 frames; frame 0 is the first.
const struct {
    ItemKind kind;
    int pictures;
    std::vector<int> ends;
} kRounds[] = {
    {ItemKind::Drops, 5, {14, 30, 46}},
    {ItemKind::Heart, 8, {23, 48}},
    {ItemKind::TorchLeft, 4, {23, 48}},
    {ItemKind::TorchRight, 2, {11, 24, 37}},
    {ItemKind::Skull, 12, {23, 48}},
    {ItemKind::Bomb, 1, {1, 4, 7, 10, 13, 16}},
    {ItemKind::Shield, 0, {1, 4, 7, 10, 13, 16}},
};

TEST(AnimatedItem, EndsItsRoundsOnTheFrame) {
    for (const auto& row : kRounds) {
        SCOPED_TRACE(static_cast<int>(row.kind));
        AnimatedItem item(0, 0, row.kind);
        std::vector<int> ends;
        for (int frame = 0; ends.size() < row.ends.size() && frame < 100; ++frame) {
            item.stepAnimation();
            item.finishFrame(AnimationFrameCounts::all(row.pictures));
            if (item.animationDone()) ends.push_back(frame);
        }
        EXPECT_EQ(ends, row.ends);
    }
}

TEST(AnimatedItem, NeverPassesTheEndOfItsStripByMoreThanOne) {
    for (const int pictures : {0, 1, 5}) {
        AnimatedItem item(0, 0, ItemKind::Drops);
        for (int frame = 0; frame < 100000; ++frame) {
            item.stepAnimation();
            item.finishFrame(AnimationFrameCounts::all(pictures));
            ASSERT_LE(item.picture().frame, std::max(pictures, 1)) << frame;
        }
    }
}

TEST(Drops, AreHeardTwoCellsAway) {
    const struct {
        Drawing map;
        bool heard;
    } rows[] = {
        {{". . ~", ". . .", "@ . .", "# # #"}, true},
        {{". . . ~", "@ . . .", "# # # #"}, false},
        {{"~", ".", ".", "@", "#"}, false},
    };
    for (const auto& row : rows) {
        auto world = worldFrom(row.map, {}, AnimationFrameCounts::all(5));
        const std::vector<int> heard{14, 30, 46};
        EXPECT_EQ(world.runTo(60).framesOf(SoundId::Water), row.heard ? heard : std::vector<int>{});
    }
}

}  // namespace
}  // namespace grub
