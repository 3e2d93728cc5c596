#include <gtest/gtest.h>

#include "drawn_world.h"

namespace grub {
namespace {

constexpr int kOwn = 20;
constexpr int kFar = kOwn + 1;

struct CrossRow {
    int up;  // distances of the neighbours of the dog's cell
    int down;
    int right;
    int left;
    int vx;
    int vy;
};

constexpr CrossRow kCross[] = {
    // up down right left   the dog's velocity
    {15, 15, 15, 15, 0, -4},       {kFar, 15, 15, 15, 0, 4}, {kFar, kFar, 15, 15, 4, 0},
    {kFar, kFar, kFar, 15, -4, 0}, {15, 15, 15, 14, -4, 0},  {15, 15, 14, 14, 4, 0},
    {15, 14, 15, 14, 0, 4},        {15, kFar, 14, 15, 4, 0}, {kFar, kFar, kFar, kFar, 0, 0},
};

TEST(EnemyHunting, AsksUpDownRightLeftAndTakesTheNearestOrTheFirstOfEquals) {
    for (const CrossRow& row : kCross) {
        SCOPED_TRACE(&row - kCross);
        Attempt attempt = attemptOn({"# H #", "H H H", "# H #"});
        LevelMap& map = attempt.map;
        map.fillDistances(1, 1, kOwn);
        // From six steps less on a cell is entered again, but not back from there into the dog's.
        if (row.up != kFar) map.fillDistances(1, 0, row.up);
        if (row.down != kFar) map.fillDistances(1, 2, row.down);
        if (row.right != kFar) map.fillDistances(2, 1, row.right);
        if (row.left != kFar) map.fillDistances(0, 1, row.left);
        ASSERT_EQ(map.distanceAt(1, 1), kOwn);
        Enemy dog(1, 1, EnemyKind::Dog);
        dog.update(attempt);
        EXPECT_EQ(dog.vx, row.vx);
        EXPECT_EQ(dog.vy, row.vy);
        EXPECT_EQ(dog.direction(), row.vx > 0 ? EnemyDirection::Right : EnemyDirection::Left)
            << "a step up or down leaves it looking where it looked";
    }
}

TEST(EnemyHunting, LeavesACellUpwardsOnlyByALadder) {
    Attempt attempt = attemptOn({". .", ". .", "# #"});
    attempt.map.fillDistances(0, 0, 0);
    ASSERT_EQ(attempt.map.distanceAt(0, 1), DistanceField::kUnreached) << "the fill comes down by ladders only";
    attempt.map.fillDistances(0, 1, 5);
    Enemy dog(0, 1, EnemyKind::Dog);
    dog.update(attempt);
    EXPECT_EQ(dog.y, 64) << "the nearer cell above is out of its reach";
}

// The fill goes up first, comes down the other ladder and keeps what it found there, as the way along the floor saves
// less than six steps. So the dog climbs away from the hero and goes round by the top, seven steps for five.
TEST(EnemyHunting, GoesByTheDistancesNotByTheShortestWay) {
    auto world = worldFrom({". . . . .",  //
                            "H # # H d",  //
                            "@ . . H #",  //
                            "# # # # #"});
    EXPECT_EQ(world.distances(), (std::vector<std::string>{"2 3 4 5 8",  //
                                                           "1 . . 6 7",  //
                                                           "0 1 2 7 .",  //
                                                           ". . . . ."}));
    EXPECT_EQ(world.runTo(31).drawn(), (Drawing{". . . d .",  //
                                                "H # # H .",  //
                                                "@ . . H #",  //
                                                "# # # # #"}));
    EXPECT_EQ(world.runTo(79).drawn(), (Drawing{"d . . . .",  //
                                                "H # # H .",  //
                                                "@ . . H #",  //
                                                "# # # # #"}));
}

// One storey more, and the floor saves six steps at the foot of the ladder, though not half-way up.
TEST(EnemyHunting, TurnsDownWhereTheFillHasComeBack) {
    auto world = worldFrom({". . . . .",  //
                            "H # # H #",  //
                            "H # # H d",  //
                            "@ . . H #",  //
                            "# # # # #"});
    EXPECT_EQ(world.distances(), (std::vector<std::string>{"3 4 5 6 7",  //
                                                           "2 . . 7 .",  //
                                                           "1 . . 8 9",  //
                                                           "0 1 2 3 .",  //
                                                           ". . . . ."}));
    EXPECT_EQ(world.runTo(31).drawn(), (Drawing{". . . . .",  //
                                                "H # # H #",  //
                                                "H # # H .",  //
                                                "@ . . d #",  //
                                                "# # # # #"}));
}

// A plan takes a dug floor for a floor, and nobody plans a way through it: whoever stands in a hole is out of reach.
TEST(EnemyHunting, LosesTheHeroWhoStandsInAHole) {
    auto world = worldFrom({"@ . . . . . . d", "= = = = = = = =", "# # # # # # # #"});
    world.script("1:+X 5:+R 20:-R").runTo(20);
    EXPECT_EQ(world.distances()[0], "1 0 1 2 3 4 5 6");
    world.runTo(21);
    EXPECT_EQ(world.distances()[0], ". . . . . . . .");
}

}  // namespace
}  // namespace grub
