#include <gtest/gtest.h>

#include "drawn_world.h"

namespace grub {
namespace {

/// Two enemies on a corridor with the hero at its end; the second in the list is ahead of the first.
const struct {
    const char* what;
    bool right;
    EnemyKind kind;  // of both
    int behind;      // pixels; exactly on a cell
    int ahead;
    int waits;  // frames that the first one loses
} kFollowers[] = {
    {"left, until the other is at 124", false, EnemyKind::Dog, 192, 152, 6},
    {"right, until the other is at 192", true, EnemyKind::Lady, 128, 160, 7},
    {"right, from a cell that the other has left", true, EnemyKind::Dog, 64, 160, 0},
    {"rats wait for nobody", false, EnemyKind::Rat, 192, 152, 0},
};

Attempt corridor(bool right) {
    Attempt attempt = attemptOn({". . . . . . . .", "# # # # # # # #"});
    attempt.map.fillDistances(right ? 7 : 0, 0, 0);
    return attempt;
}

Enemy& add(Attempt& attempt, EnemyKind kind, int x, int vx) {
    Enemy& enemy = attempt.enemies.emplace_back(0, 0, kind);
    enemy.x = x;
    enemy.vx = vx;
    return enemy;
}

void playFrame(Attempt& attempt) {
    for (Enemy& enemy : attempt.enemies) enemy.update(attempt);
    keepApart(attempt.enemies);
}

TEST(Crowding, HoldsTheEarlierOneOnItsCellWhileTheLaterOneIsInTheNext) {
    for (const auto& row : kFollowers) {
        SCOPED_TRACE(row.what);
        const int speed = row.right ? 4 : -4;
        Attempt attempt = corridor(row.right);
        add(attempt, row.kind, row.behind, 0);
        add(attempt, row.kind, row.ahead, speed);
        for (int frame = 0; frame < row.waits; ++frame) {
            playFrame(attempt);
            EXPECT_EQ(attempt.enemies[0].x, row.behind) << frame;
        }
        playFrame(attempt);
        EXPECT_EQ(attempt.enemies[0].x, row.behind + speed);
        EXPECT_EQ(attempt.enemies[1].x, row.ahead + (row.waits + 1) * speed) << "nothing holds the later one";
    }
}

TEST(Crowding, LetsTheLaterOneRunIntoTheEarlier) {
    Attempt attempt = corridor(false);
    add(attempt, EnemyKind::Dog, 152, -4);
    add(attempt, EnemyKind::Dog, 192, 0);
    playFrame(attempt);
    EXPECT_EQ(attempt.enemies[0].x, 148);
    EXPECT_EQ(attempt.enemies[1].x, 188);
}

TEST(Crowding, TakesNoNoticeOfTheDead) {
    Attempt attempt = corridor(false);
    add(attempt, EnemyKind::Dog, 64, 0);
    add(attempt, EnemyKind::Dog, 0, 0).die();
    playFrame(attempt);
    EXPECT_EQ(attempt.enemies[0].x, 60);
}

TEST(Crowding, HoldsNobodyInTheAir) {
    Attempt attempt = attemptOn({".", ".", "#"});
    add(attempt, EnemyKind::Dog, 0, 0);
    Enemy& below = add(attempt, EnemyKind::Dog, 0, 0);
    below.y = 40;
    below.vy = 4;
    playFrame(attempt);
    EXPECT_EQ(attempt.enemies[0].y, 4);
}

// They meet at the ladder's foot in frame 32 and want up at once.
TEST(Crowding, LetsOneClimbAfterTheOther) {
    auto world = worldFrom({". . @ . .",  //
                            ". . H . .",  //
                            ". . H . .",  //
                            "d . H . d",  //
                            "# # # # #"});
    world.runTo(47);
    EXPECT_EQ(world.enemy(0).y, 192);
    EXPECT_EQ(world.enemy(1).y, 128);
    world.runTo(48);
    EXPECT_EQ(world.enemy(0).y, 188);
    EXPECT_EQ(world.enemy(1).y, 124);
}

}  // namespace
}  // namespace grub
