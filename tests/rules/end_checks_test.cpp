#include <gtest/gtest.h>

#include <string>

#include "drawn_world.h"

namespace grub {
namespace {

struct EndRow {
    const char* what;
    Drawing map;
    const char* keys;
    int frame;  // the one that ends the attempt
    LossCause cause;
};

void expectEnds(const EndRow& row) {
    SCOPED_TRACE(row.what);
    auto world = worldFrom(row.map).script(row.keys);
    EXPECT_FALSE(world.runTo(row.frame - 1).world().ended());
    EXPECT_TRUE(world.runTo(row.frame).world().ended());
    EXPECT_EQ(world.world().cause(), row.cause);
}

// 32 pixels away is safe, 28 is not, along either axis; both axes must be near.
TEST(Caught, CloserThanHalfACellInBothAxes) {
    const EndRow rows[] = {
        {"from the side", {"@ . d", "# # #"}, "", 24, LossCause::Dog},
        {"from above", {"l .", ". .", "@ .", "# #"}, "", 24, LossCause::Lady},
        {"24 beside and 28 over it", {"@ . r", "= = =", "# # #"}, "16:+X 144:+R", 148, LossCause::Rat},
        {"32 beside, a frame later 24", {"@ . r", "= = =", "# # #"}, "16:+X 145:+R", 149, LossCause::Rat},
    };
    for (const EndRow& row : rows) expectEnds(row);
}

TEST(Caught, ByTheLastInTheListOfThoseWhoAreThere) {
    const EndRow rows[] = {
        {"dog, then rat", {"d . @ . r", "# # # # #"}, "", 24, LossCause::Rat},
        {"rat, then dog", {"r . @ . d", "# # # # #"}, "", 24, LossCause::Dog},
        {"dog, then lady", {"d . @ . l", "# # # # #"}, "", 24, LossCause::Lady},
    };
    for (const EndRow& row : rows) expectEnds(row);
}

// The dog is 24 pixels behind the exit when he comes to stand on it.
TEST(Ends, OverrideEachOther) {
    const EndRow rows[] = {
        {"caught short of an exit", {"@ k . . d", "# # # # #"}, "7:+R", 25, LossCause::Dog},
        {"caught on the exit", {"@ k E . d", "# # # # #"}, "7:+R", 25, LossCause::Won},
    };
    for (const EndRow& row : rows) expectEnds(row);

    // The rat leaps onto him in his hole in frame 272. Dug in frame 4 it closes in that frame, dug in 5 it does not.
    const Drawing rat{"@" + std::string(17, '.') + "r", "==" + std::string(17, '#'), std::string(19, '#')};
    expectEnds({"caught in a hole", rat, "5:+X 12:+R 30:-R", 272, LossCause::Rat});
    expectEnds({"caught and buried", rat, "4:+X 12:+R 30:-R", 272, LossCause::Pit});
}

// The step that settles the level looks for an end like any other, and play begins with one more.
TEST(Ends, WinTwiceWhereTheHeroStartsOnAnOpenExit) {
    LevelMap map = mapFrom({"E .", "# #"});
    map.setHeroStart({0, 0});
    World world(map, {}, AnimationFrameCounts::all(kDrawnFrames));
    world.step();
    EXPECT_TRUE(world.ended());
    world.step();
    EXPECT_EQ(world.score(), 2000);
}

}  // namespace
}  // namespace grub
