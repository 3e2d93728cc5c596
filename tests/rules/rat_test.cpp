#include <gtest/gtest.h>

#include "drawn_world.h"

namespace grub {
namespace {

TEST(Rat, RunsToAndFroOnItsFloorWithoutADraw) {
    auto world = worldFrom({". r . . @",  //
                            "# # # . #",  //
                            "# # # # #"});
    const struct {
        int frame;
        int x;
    } rows[] = {{15, 0}, {16, 4}, {47, 128}, {48, 124}, {79, 0}, {80, 4}};
    for (const auto& row : rows) EXPECT_EQ(world.runTo(row.frame).enemy().x, row.x) << row.frame;
    EXPECT_EQ(world.draws(), 0);
}

TEST(Rat, IsHeldByNoLadder) {
    auto world = worldFrom({"@ . . .",  //
                            "# . H r",  //
                            "# . . #"});
    EXPECT_EQ(world.runTo(31).drawn(), (Drawing{"@ . . .",  //
                                                "# . H .",  //
                                                "# . r #"}));
}

TEST(Rat, DiesInADeadEndAndStaysDead) {
    auto world = worldFrom({"@ . . .", "# r # .", "# # # #"});
    EXPECT_EQ(world.runTo(15).enemy().x, 128);
    EXPECT_EQ(world.enemy().state(), EnemyState::Roaming);
    EXPECT_EQ(world.runTo(16).enemy().state(), EnemyState::Dead);
    world.runTo(1000);
    EXPECT_EQ(world.enemy().state(), EnemyState::Dead);
    EXPECT_EQ(world.enemy().x, 0);
    EXPECT_EQ(world.enemy().y, 0);
    EXPECT_FALSE(world.world().ended()) << "nor does it catch who stands at the map's corner";
}

TEST(Rat, GoesOnThroughAFloorInItsWay) {
    auto world = worldFrom({"@ . . .", "# r = .", "# # # #"});
    EXPECT_EQ(world.runTo(16).enemy().x, 132);
    EXPECT_EQ(world.enemy().state(), EnemyState::Roaming);
    EXPECT_EQ(world.runTo(32).enemy().x, 188) << "back from the map's edge into the floor";
}

TEST(Rat, StaysWhereAMoveWouldLeaveTheMap) {
    auto world = worldFrom({"@", "#", "r", "#"});
    EXPECT_EQ(world.runTo(50).enemy().x, 0);
    EXPECT_EQ(world.enemy().state(), EnemyState::Roaming);
    const EnemyDirection before = world.enemy().direction();
    EXPECT_NE(world.runTo(51).enemy().direction(), before) << "it turns in every frame";
}

}  // namespace
}  // namespace grub
