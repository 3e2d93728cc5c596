// Where dogs, ladies and rats go: hunting, wandering, keeping apart, patrolling; and what they show meanwhile.
#include <gtest/gtest.h>

#include "scenario.h"

namespace grub {
namespace {

constexpr int kOwn = 20;
constexpr int kFar = kOwn + 1;

// Distances of the four neighbours of the dog's cell, and the velocity that it takes.
const struct {
    int up, down, right, left;
    int vx, vy;
} kCross[] = {
    {15, 15, 15, 15, 0, -4},       {kFar, 15, 15, 15, 0, 4}, {kFar, kFar, 15, 15, 4, 0},
    {kFar, kFar, kFar, 15, -4, 0}, {15, 15, 15, 14, -4, 0},  {15, 15, 14, 14, 4, 0},
    {15, 14, 15, 14, 0, 4},        {15, kFar, 14, 15, 4, 0}, {kFar, kFar, kFar, kFar, 0, 0},
};

TEST(EnemyHunting, AsksUpDownRightLeftAndTakesTheNearestOrTheFirstOfEquals) {
    for (const auto& row : kCross) {
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

TEST(EnemyHunting, GoesByTheDistances) {
    expectScenarios({
        // The fill goes up first, comes down the other ladder and keeps what it found there, as the way along the floor
        // saves less than six steps: seven steps for five.
        {"climbs away from him and goes round by the top", ". . . . ./H # # H d/@ . . H #/# # # # #", "",
         "0: far0=2,3,4,5,8 far1=1,.,.,6,7 far2=0,1,2,7,.;"
         "31: map=...d./H##H./@..H#/#####; 79: map=d..../H##H./@..H#/#####"},
        // One storey more, and the floor saves six steps at the foot of the ladder, though not half-way up.
        {"turns down where the fill has come back", ". . . . ./H # # H #/H # # H d/@ . . H #/# # # # #", "",
         "0: far0=3,4,5,6,7 far1=2,.,.,7,. far2=1,.,.,8,9 far3=0,1,2,3,.; 31: map=...../H##H#/H##H./@..d#/#####"},
        // A plan takes a dug floor for a floor and leads no way through it.
        {"loses him when he stands in a hole", "@ . . . . . . d/= = = = = = = =/# # # # # # # #",
         "1 down X, 5 down Right, 20 up Right", "20: far0=1,0,1,2,3,4,5,6; 21: far0=.,.,.,.,.,.,.,."},
    });
}

// With seed 1 the quarters are 0 2 0 3 2 1, 1 3 3 2 0: left, up, left, down and up lead nowhere, then right; at the
// other end right, down twice and up, then left.
TEST(EnemyWandering, GoesLeftFirstAndDrawsOnlyWhereItHasNoWay) {
    expectScenarios({{"between two walls", "@ # . . d/# # # # #", "",
                      "0: at1=252,0 draws=0; 31: at1=128,0; 32: at1=128,0 draws=0; 33: draws=1;"
                      "37: at1=128,0 draws=5; 38: at1=132,0 draws=6; 69: at1=256,0; 70: at1=256,0 draws=6;"
                      "71: at1=256,0 draws=7; 74: at1=256,0 draws=10; 75: at1=252,0 draws=11",
                      seeded(1)}});
}

// The dog stands on a ladder, with Grub walled in; what it draws is all that it draws. It goes four pixels a frame.
constexpr const char* kShut = "@ # # . #/# # # D #/# # # H #/# # # # #";
constexpr const char* kOpen = "@ # # . #/# # . D ./# # # H #/# # # # #";
constexpr const char* kOpenRight = "@ # # . #/# # # D ./# # # H #/# # # # #";

TEST(EnemyWandering, TakesLaddersUnaskedAndDrawsForThoseItReachesOnly) {
    expectScenarios({
        {"goes up where left is shut", kShut, "", "0: at1=192,60 draws=2", drawing({0, 1})},
        {"goes down where left is shut", kShut, "", "0: at1=192,68 draws=2", drawing({1, 0})},
        {"goes down when both hit", kShut, "", "0: at1=192,68 draws=2", drawing({0, 0})},
        {"asks once at a ladder's foot", "@ # . #/# # D #/# # # #", "", "0: at1=128,60 draws=1", drawing({0})},
        {"asks once on top of a ladder", "@ # d #/# # H #/# # # #", "", "0: at1=128,4 draws=1", drawing({0})},
        {"goes left past both", kOpen, "", "0: at1=188,64 draws=2", drawing({1, 1})},
        {"leaves its way left for a ladder", kOpen, "", "0: at1=192,60 draws=2", drawing({0, 1})},
        {"asks for no ladder where right is shut", kShut, "", "1: at1=192,64 draws=3", drawing({1, 1, 1})},
        {"leaves its way right for a ladder", kOpenRight, "", "1: at1=192,60 draws=5", drawing({1, 1, 1, 0, 1})},
        {"goes right past both", kOpenRight, "", "1: at1=196,64 draws=5", drawing({1, 1, 1, 1, 1})},
        {"climbs when it wants up", kShut, "", "1: at1=192,60 draws=3", drawing({1, 1, 2})},
        {"climbs down when it wants down", kShut, "", "1: at1=192,68 draws=3", drawing({1, 1, 3})},
        {"stands for what is left over and chooses anew", kShut, "", "1: at1=192,64 draws=3; 2: at1=192,68 draws=4",
         drawing({1, 1, 4, 3})},
    });
}

TEST(EnemyWandering, ClimbsAndFallsInAShaft) {
    expectScenarios({
        {"climbs into rock and dies", "@ # #/# # D/# # #", "", "15: at1=128,0 is1=roams; 16: is1=dead", drawing({0})},
        {"stands in the floor above", "@ # ./# # =/# # D/# # #", "", "15: at1=128,64; 16: at1=128,64 is1=roams",
         drawing({0})},
        {"wants up in the top row and thinks again", "@ # D/# # H/# # #", "",
         "0: at1=128,0 wants1=up; 1: at1=128,0 wants1=undecided", drawing({0, 1})},
        {"chooses at each cell through which it falls", "@ # d/# # ./# # ./# # #", "",
         "0: at1=128,4 draws=0; 16: at1=128,68 draws=1; 32: at1=128,128 draws=2", seeded(1)},
        {"keeps its direction through a fall", "@ # . d/# # . ./# # # #", "", "15: at1=192,64; 16: at1=188,64 draws=0"},
    });
}

// Two on a corridor with the hero at one end. Cells begin at multiples of 64. The first in the list loses `waits`
// frames.
const struct {
    const char* what;
    bool right;
    EnemyKind kind;  // of both
    int first;       // x in pixels
    int second;
    bool secondIsDead;
    int waits;
} kPairs[] = {
    {"left, until the other is at 124", false, EnemyKind::Dog, 192, 152, false, 6},
    {"right, until the other is at 192", true, EnemyKind::Lady, 128, 160, false, 7},
    {"right, from a cell that the other has left", true, EnemyKind::Dog, 64, 160, false, 0},
    {"rats do not wait", false, EnemyKind::Rat, 192, 152, false, 0},
    {"the later one runs into the earlier", false, EnemyKind::Dog, 152, 192, false, 0},
    {"the dead do not count", false, EnemyKind::Dog, 64, 0, true, 0},
};

TEST(Crowding, HoldsTheEarlierOneOnItsCellWhileTheLaterOneIsInTheNext) {
    for (const auto& row : kPairs) {
        SCOPED_TRACE(row.what);
        const int speed = row.right ? kEnemySpeed : -kEnemySpeed;
        Attempt attempt = attemptOn({". . . . . . . .", "# # # # # # # #"});
        attempt.map.fillDistances(row.right ? 7 : 0, 0, 0);
        for (const int x : {row.first, row.second}) {
            Enemy& enemy = attempt.enemies.emplace_back(0, 0, row.kind);
            enemy.x = x;
            enemy.vx = speed;
        }
        if (row.secondIsDead) attempt.enemies[1].die();
        for (int frame = 0; frame <= row.waits; ++frame) {
            EXPECT_EQ(attempt.enemies[0].x, row.first) << frame;
            update(attempt, 1);
            keepApart(attempt.enemies);
        }
        EXPECT_EQ(attempt.enemies[0].x, row.first + speed);
        if (!row.secondIsDead) {
            EXPECT_EQ(attempt.enemies[1].x, row.second + (row.waits + 1) * speed);
        }
    }
}

TEST(Crowding, HoldsNoOneInTheAir) {
    Attempt attempt = attemptOn({".", ".", "#"});
    attempt.enemies.emplace_back(0, 0, EnemyKind::Dog);
    Enemy& below = attempt.enemies.emplace_back(0, 0, EnemyKind::Dog);
    below.y = 40;
    below.vy = kEnemySpeed;
    update(attempt, 1);
    keepApart(attempt.enemies);
    EXPECT_EQ(attempt.enemies[0].y, 4);
}

TEST(Crowding, LetsOneClimbAfterTheOther) {
    expectScenarios(
        {{"both reach the foot of the ladder in frame 32", ". . @ . ./. . H . ./. . H . ./d . H . d/# # # # #", "",
          "47: at1=128,192 at2=128,128; 48: at1=128,188 at2=128,124"}});
}

TEST(Rat, RunsToAndFroOnItsFloor) {
    expectScenarios({
        {"turns where the floor ends, without a draw", ". r . . @/# # # . #/# # # # #", "",
         "15: at1=0,0; 16: at1=4,0; 47: at1=128,0; 48: at1=124,0; 79: at1=0,0; 80: at1=4,0 draws=0"},
        {"is held by no ladder", "@ . . ./# . H r/# . . #", "", "31: map=@.../#.H./#.r#"},
        {"dies in a dead end for good and does not catch him at the map's corner", "@ . . ./# r # ./# # # #", "",
         "15: at1=128,64 is1=roams; 16: is1=dead; 1000: is1=dead at1=0,0 end=no"},
        {"goes on through a floor in its way", "@ . . ./# r = ./# # # #", "",
         "16: at1=132,64 is1=roams; 32: at1=188,64"},
        {"stays where a move would leave the map and turns in every frame", "@/#/r/#", "",
         "50: at1=0,128 is1=roams wants1=right; 51: wants1=left; 52: wants1=right"},
    });
}

// The picture is chosen in even frames. Strips count eight frames, a rat's way in and out of a hole four.
TEST(EnemyPicture, ShowsWhatItDoes) {
    expectScenarios({
        {"a dog walks left", "@ . . . d/# # # # #", "", "4: shows1=90:3; 14: shows1=90:0"},
        {"a dog walks right", "d . . . @/# # # # #", "", "5: shows1=91:2"},
        {"a lady hangs left", "@ - - - l/# . . . #", "", "2: shows1=105:1"},
        {"a lady sees the pipe to her right", "l - - - @/# . . . #", "", "2: shows1=106:1"},
        {"a dog sees the pipe to its right going left", "@ . - d/# # . #", "", "20: shows1=92:2"},
        {"a dog walks on a pipe on a floor", "@ - - - d/# # # # #", "", "2: shows1=90:2"},
        {"a dog climbs", "@ ./H ./H d/# #", "", "18: shows1=94:1"},
        {"a dog falls", "d # @/. # #/. # #/# # #", "", "4: shows1=96:2"},
        {"a dog stands", "d # @/# # #", "", "4: shows1=96:0"},
        {"a dog falls into a hole, stays in its last frame and climbs out", "@ . d/= = =/# # #", "16 down X",
         "28: shows1=95:6; 150: shows1=95:7; 158: shows1=244:1"},
        {"a rat is in a hole, stays in its fourth frame and comes out", "@ . r/= = =/# # #", "16 down X",
         "20: shows1=114:2; 140: shows1=114:3; 150: shows1=112:1"},
    });
}

}  // namespace
}  // namespace grub
