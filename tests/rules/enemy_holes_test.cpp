// Enemies in holes: falling in, sitting, climbing out, being buried, coming back.
#include <gtest/gtest.h>

#include "scenario.h"
#include "terrain.h"

namespace grub {
namespace {

/// A dog above an open hole between walls. The first number makes it want left, where it cannot go.
Attempt aboveHole() {
    Attempt attempt = attemptOn({"# . #", "# = #", "# # #"});
    breakFloor(attempt.map, 1, 1);
    attempt.enemies.emplace_back(1, 0, EnemyKind::Dog);
    return attempt;
}

// The time runs in the hole only. The way out is a decision like any other.
TEST(EnemyInHole, WaitsItsTimeAndClimbsOut) {
    expectScenarios({
        {"a dog", "@ . d/= = =/# # #", "16 down X",
         "16: is1=trapped at1=64,4 timer1=125 caught=16; 31: at1=64,64 timer1=125; 32: timer1=124; 155: timer1=1;"
         "156: is1=climbs at1=64,60; 171: is1=climbs at1=64,0; 172: is1=roams at1=60,0"},
        {"a rat leaps half of the way", "@ . r/= = =/# # #", "16 down X",
         "16: is1=trapped at1=64,36 timer1=125 ratcaught=16; 23: at1=64,64 timer1=125; 24: timer1=124;"
         "147: is1=trapped; 148: is1=climbs at1=64,28; 155: is1=climbs; 156: is1=roams"},
    });
    Attempt attempt = aboveHole();
    update(attempt, 157);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Roaming);
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Trapped) << "it has nowhere to go and falls in again";
}

TEST(EnemyInHole, TakesTheFirstInTheListOfTwoAboveIt) {
    Attempt attempt = aboveHole();
    attempt.enemies.emplace_back(1, 0, EnemyKind::Lady);
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Trapped);
    EXPECT_EQ(attempt.enemies[1].y, 0);
}

TEST(EnemyInHole, LeavesAHoleThatCarriesWhenItIsKilledThere) {
    Attempt attempt = aboveHole();
    LevelMap& map = attempt.map;
    update(attempt, 20);
    attempt.enemies[0].die();
    update(attempt, 300);
    EXPECT_TRUE(map.canStand(1, 0, View::Physical));
    EXPECT_FALSE(map.isPassable(1, 1, View::Physical));
    for (int frame = 0; frame < 269; ++frame) updateCells(map, attempt.frameCounts);
    ASSERT_EQ(map.cellAt(1, 1).type, BlockType::Floor);
    breakFloor(map, 1, 1);
    EXPECT_TRUE(map.isPassable(1, 1, View::Physical)) << "only another dig empties it";
}

TEST(EnemyInHole, MeetsOthers) {
    expectScenarios({
        {"falls in the frame of the dig", "@ . d/= = =/# # #", "16 down X", "15: at1=64,0; 16: at1=64,4 caught=16"},
        {"carries the next one", "@ . d d/= = = =/# # # #", "16 down X",
         "39: map=@.../=D==/#### at2=32,0 end=no; 40: end=Dog is1=trapped"},
        {"carries him, then opens for him too: he falls towards it for three frames", "@ . d/= = =/# # #",
         "16 down X, 40 down Right, 48 up Right", "155: x=64 y=0; 158: end=no; 159: end=Dog"},
        {"a rat is half out with its leap and has him at once", "@ . r/= = =/# # #",
         "16 down X, 40 down Right, 48 up Right", "147: x=64 y=0 end=no; 148: end=Rat"},
    });
}

// A hole dug in frame 1 is a floor again after frame 269, when the enemies of that frame have acted. A dog from column
// n comes above it in frame 16 * (n - 1). The dead lie where the hero stands and do not catch him.
TEST(EnemyInHole, DiesInTheClosingHoleUnlessItIsOnItsWayOut) {
    expectScenarios({
        {"trapped", "@...........d/=============/#############", "1 down X",
         "269: is1,1=whole is1=trapped; 270: is1=dead at1=0,0 end=no"},
        {"on its way out, and on its way at once", "@........d/==========/##########", "1 down X",
         "269: is1,1=whole is1=climbs at1=64,56; 283: is1=climbs; 284: is1=roams at1=60,0"},
    });
}

// He digs in frame 16, under her feet.
TEST(Lady, FallsThroughAHoleWithNothingUnderIt) {
    expectScenarios({
        {"air, in the last row", "@ . l/= = =/# . #", "16 down X", "16: at1=64,4 is1=roams caught=; 48: at1=64,128"},
        {"a pipe", "@ . l/= = =/# - #/# # #", "16 down X", "16: at1=64,4 is1=roams caught="},
        {"not a floor", "@ . l/= = =/# = #/# # #", "16 down X", "16: at1=64,4 is1=trapped caught=16"},
        {"not rock", "@ . l/= = =/# # #/# # #", "16 down X", "16: at1=64,4 is1=trapped caught=16"},
        {"not the edge of the map", "@ . l/= = =", "16 down X", "16: at1=64,4 is1=trapped caught=16"},
        {"and the hole does not carry him after her", "@ . l/= = =/# . #/# # #", "16 down X, 30 down Right",
         "37: x=64 y=0; 38: x=64 y=8 end=no"},
        {"a floor that closes round her does not hurt her",
         "@................l/==================/#.################/##################", "1 down X",
         "272: at1=64,68 is1,1=whole; 290: is1=roams at1=64,128"},
    });
}

// Two dogs, each 12 columns from the hero, who digs at his right in frame 1 and at his left in frame 5. Both are in
// their holes from frame 192 on. The right one, second in the list, dies in frame 270, the left one in 274.
constexpr const char* kOneSpawnPoint =
    "d...........@...........d/=========================/####################s####/#########################";
constexpr const char* kSpawnPointInAFloor =
    "d...........@...........d/=========================/####################S####/#########################";

TEST(DeadEnemy, ComesBackInFifteenSeconds) {
    expectScenarios({
        // The second draws in frame 645 for the place. It still wants left, as when it died; in 647 and 648 it chooses
        // anew. The first comes back into the cell of the second with two more draws, of a place and a choice.
        {"at the spawn point, even into a taken cell", kOneSpawnPoint, "1 down X, 5 down Z",
         "274: is1=dead is2=dead; 644: is2=dead draws=0; 645: is2=roams at2=1280,128 draws=1; 646: draws=1;"
         "648: draws=3; 649: is1=roams at1=1280,128 at2=1280,128 draws=5"},
        {"even inside a floor", kSpawnPointInAFloor, "1 down X, 5 down Z",
         "644: is2=dead; 645: is2=roams at2=1280,128 draws=1"},
        {"without spawn points in the top row, on top of him", "@...........d/=============/#############", "1 down X",
         "644: is1=dead end=no; 645: end=Dog", seeded(1)},
    });
}

// With 24 columns the generator's numbers are divided by 1365: those of seed 1 give 0, 13, 4 and 19.
TEST(DeadEnemy, TriesAColumnInEachFrameUntilOneIsOpen) {
    Attempt attempt = attemptOn({"###################.####", "########################"});
    Enemy& dog = attempt.enemies.emplace_back(19, 0, EnemyKind::Dog);
    dog.die();
    update(attempt, 374);
    for (const int column : {0, 13, 4, 19}) {
        EXPECT_EQ(dog.state(), EnemyState::Dead);
        update(attempt, 1);
        EXPECT_EQ(dog.cellX(), column) << "the dead are moved all the same";
    }
    EXPECT_EQ(dog.state(), EnemyState::Roaming);
    EXPECT_EQ(dog.direction(), EnemyDirection::Left) << "as it was made";
}

}  // namespace
}  // namespace grub
