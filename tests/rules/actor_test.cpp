#include "actor.h"

#include <gtest/gtest.h>

namespace grub {
namespace {

Actor actorAt(int x, int y, int vx = 0, int vy = 0) {
    Actor actor;
    actor.x = x;
    actor.y = y;
    actor.vx = vx;
    actor.vy = vy;
    return actor;
}

TEST(Actor, StandsOnACellHalfWayOrInBetween) {
    struct Row {
        int x, y;
        bool aligned, halfAligned;
    };
    constexpr Row kRows[] = {
        {0, 0, true, false},   {64, 128, true, false}, {32, 0, false, true},
        {64, 96, false, true}, {8, 0, false, false},   {32, 8, false, false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.x << ", " << row.y);
        EXPECT_EQ(actorAt(row.x, row.y).isAligned(), row.aligned);
        EXPECT_EQ(actorAt(row.x, row.y).isHalfAligned(), row.halfAligned);
    }
}

TEST(Actor, MovesByItsVelocityAndRemembersWhereFrom) {
    const LevelMap map(3, 3);
    Actor actor = actorAt(64, 64, -8, 8);
    actor.move(map);
    EXPECT_EQ(actor.x, 56);
    EXPECT_EQ(actor.y, 72);
    actor.undoMove();
    EXPECT_EQ(actor, [] {
        Actor back = actorAt(64, 64);
        back.previousX = back.previousY = 64;
        return back;
    }());
}

TEST(Actor, StaysAtRestWhereAMoveWouldLeaveTheMap) {
    const LevelMap map(3, 2);
    const Actor leaving[] = {actorAt(0, 0, -8, 0), actorAt(0, 0, 0, -8), actorAt(128, 64, 8, 0),
                             actorAt(128, 64, 0, 8)};
    for (const Actor& actor : leaving) {
        Actor moved = actor;
        moved.move(map);
        EXPECT_EQ(moved.x, actor.x);
        EXPECT_EQ(moved.y, actor.y);
        EXPECT_EQ(moved.vx, 0);
        EXPECT_EQ(moved.vy, 0);
    }
}

TEST(Actor, IsInTheCellOfItsTopLeftCorner) {
    LevelMap map(3, 2);
    EXPECT_EQ(actorAt(127, 63).cellUnder(map), &map.cellAt(1, 0));
    EXPECT_EQ(actorAt(192, 0).cellUnder(map), nullptr);
    EXPECT_TRUE(actorAt(0, 128).isOutsideMap(map));
    EXPECT_TRUE(actorAt(-64, 0).isOutsideMap(map));
    EXPECT_FALSE(actorAt(128, 64).isOutsideMap(map));
}

}  // namespace
}  // namespace grub
