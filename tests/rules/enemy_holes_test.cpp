// Enemies in holes: falling in, sitting, climbing out, being buried, coming back.
#include <gtest/gtest.h>

#include <string>

#include "scenario.h"
#include "terrain.h"

namespace grub {
namespace {

/// One enemy above an open hole between walls. The first number makes it want left, where it cannot go.
Attempt aboveHole(EnemyKind kind) {
    Attempt attempt = attemptOn({"# . #", "# = #", "# # #"});
    breakFloor(attempt.map, 1, 1);
    attempt.enemies.emplace_back(1, 0, kind);
    return attempt;
}

const struct {
    EnemyKind kind;
    int speed;
    int fallsTo;  // pixels in the frame of the fall, frame 0
    int in;       // frame in which it waits in the hole for the first time
    int leaves;   // frame in which it starts to climb
    int out;      // frame in which it roams again
} kStays[] = {
    {EnemyKind::Dog, 4, 4, 16, 140, 156}, {EnemyKind::Dog, 2, 2, 32, 156, 188},  {EnemyKind::Lady, 4, 4, 16, 140, 156},
    {EnemyKind::Rat, 4, 36, 8, 132, 140}, {EnemyKind::Rat, 2, 34, 16, 140, 156},
};

TEST(EnemyInHole, WaitsItsTimeAndClimbsOut) {
    for (const auto& row : kStays) {
        SCOPED_TRACE(&row - kStays);
        Attempt attempt = aboveHole(row.kind);
        Enemy& enemy = attempt.enemies[0];
        enemy.setSpeed(row.speed);
        const struct {
            int frame;
            EnemyState state;
            int y;
            int timer;
            bool holeCarries;
        } steps[] = {
            {0, EnemyState::Trapped, row.fallsTo, 125, true},
            {row.in - 1, EnemyState::Trapped, 64, 125, true},  // the time runs in the hole only
            {row.in, EnemyState::Trapped, 64, 124, true},
            {row.leaves - 1, EnemyState::Trapped, 64, 1, true},
            {row.leaves, EnemyState::Escaping, 64 - row.fallsTo, 0, false},
            {row.out - 1, EnemyState::Escaping, 0, 0, false},
            {row.out, EnemyState::Roaming, 0, 0, false},
        };
        int frame = -1;
        for (const auto& step : steps) {
            for (; frame < step.frame; ++frame) update(attempt, 1);
            EXPECT_EQ(enemy.state(), step.state) << frame;
            EXPECT_EQ(enemy.y, step.y) << frame;
            EXPECT_EQ(enemy.timer(), step.timer) << frame;
            EXPECT_EQ(attempt.map.cellAt(1, 1).holeOccupied, step.holeCarries) << frame;
        }
        ASSERT_EQ(attempt.sounds.all().size(), 1U);
        const SoundId sound = row.kind == EnemyKind::Rat ? SoundId::CaughtRat : SoundId::Caught;
        EXPECT_EQ(attempt.sounds.all()[0].sound, sound);
        update(attempt, 1);
        EXPECT_EQ(enemy.state(), row.kind == EnemyKind::Rat ? EnemyState::Roaming : EnemyState::Trapped)
            << "only a rat does more than stand over the hole and fall in again: it runs into the wall";
    }
}

TEST(EnemyInHole, TakesTheFirstInTheListOfTwoAboveIt) {
    Attempt attempt = aboveHole(EnemyKind::Lady);
    attempt.enemies.emplace_back(1, 0, EnemyKind::Dog);
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Trapped);
    EXPECT_EQ(attempt.enemies[1].state(), EnemyState::Roaming);
    EXPECT_EQ(attempt.enemies[1].y, 0);
}

TEST(EnemyInHole, LeavesAHoleThatCarriesWhenItIsKilledThere) {
    Attempt attempt = aboveHole(EnemyKind::Dog);
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
         "39: map=@.../=d==/#### at2=32,0 end=no; 40: end=Dog is1=trapped"},
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
        {"a ladder, on which she stops", "@ . l/= = =/# H #/# # #", "16 down X", "16: at1=64,4 is1=roams caught="},
        {"an exit", "@ . l/= = =/# E #/# # #", "16 down X", "16: at1=64,4 is1=roams caught="},
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
    const struct {
        Drawing map;
        std::vector<int> columns;  // one a frame, the last is open
    } rows[] = {
        {{"........................", "########################"}, {0}},
        {{"###################.####", "########################"}, {0, 13, 4, 19}},
    };
    for (const auto& row : rows) {
        Attempt attempt = attemptOn(row.map);
        Enemy& dog = attempt.enemies.emplace_back(19, 0, EnemyKind::Dog);
        dog.die();
        update(attempt, 374);
        for (const int column : row.columns) {
            EXPECT_EQ(dog.state(), EnemyState::Dead);
            update(attempt, 1);
            EXPECT_EQ(dog.cellX(), column) << "the dead are moved all the same";
        }
        EXPECT_EQ(dog.state(), EnemyState::Roaming);
        EXPECT_EQ(dog.cellY(), 0);
        EXPECT_EQ(dog.direction(), EnemyDirection::Left) << "as it was made";
    }
}

}  // namespace
}  // namespace grub
