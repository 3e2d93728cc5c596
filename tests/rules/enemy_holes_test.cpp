#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "drawn_world.h"
#include "terrain.h"

namespace grub {
namespace {

void update(Attempt& attempt, int times) {
    for (int i = 0; i < times; ++i) {
        for (Enemy& enemy : attempt.enemies) enemy.update(attempt);
    }
}

/// One enemy above an open hole between walls. The first number makes it want left, where it cannot go.
Attempt aboveHole(EnemyKind kind, const Drawing& map = {"# . #", "# = #", "# # #"}) {
    Attempt attempt = attemptOn(map);
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
        const MapCell& hole = attempt.map.cellAt(1, 1);
        enemy.setSpeed(row.speed);
        update(attempt, 1);
        EXPECT_EQ(enemy.y, row.fallsTo);
        EXPECT_EQ(enemy.state(), EnemyState::Trapped);
        EXPECT_TRUE(hole.holeOccupied) << "it carries others from the fall on";
        const SoundId sound = row.kind == EnemyKind::Rat ? SoundId::CaughtRat : SoundId::Caught;
        ASSERT_EQ(attempt.sounds.all().size(), 1U);
        EXPECT_EQ(attempt.sounds.all()[0].sound, sound);

        update(attempt, row.in - 1);
        EXPECT_EQ(enemy.timer(), 125) << "the time runs in the hole only";
        update(attempt, 1);
        EXPECT_EQ(enemy.timer(), 124);
        EXPECT_EQ(enemy.y, 64);
        update(attempt, row.leaves - row.in - 1);
        EXPECT_EQ(enemy.state(), EnemyState::Trapped);
        update(attempt, 1);
        EXPECT_EQ(enemy.state(), EnemyState::Escaping);
        EXPECT_EQ(enemy.y, 64 - row.fallsTo);
        EXPECT_FALSE(hole.holeOccupied);
        update(attempt, row.out - row.leaves - 1);
        EXPECT_EQ(enemy.state(), EnemyState::Escaping);
        EXPECT_EQ(enemy.y, 0);
        update(attempt, 1);
        EXPECT_EQ(enemy.state(), EnemyState::Roaming);
    }
}

TEST(EnemyInHole, FallsInAgainWhenItCanOnlyStandOverIt) {
    Attempt attempt = aboveHole(EnemyKind::Dog);
    update(attempt, 157);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Roaming);
    EXPECT_EQ(attempt.enemies[0].y, 0);
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Trapped);
    EXPECT_EQ(attempt.enemies[0].y, 4);
}

// The hero acts first: what he digs is a hole for the enemies in the same frame.
TEST(EnemyInHole, FallsIntoWhatIsDugUnderIt) {
    auto world = worldFrom({"@ . d", "= = =", "# # #"});
    world.script("16:+X").runTo(15);
    EXPECT_EQ(world.enemy().x, 64);
    world.runTo(16);
    EXPECT_EQ(world.enemy().x, 64);
    EXPECT_EQ(world.enemy().y, 4);
    EXPECT_EQ(world.framesOf(SoundId::Caught), std::vector<int>{16});
}

TEST(EnemyInHole, CarriesTheNextOne) {
    auto world = worldFrom({"@ . d d", "= = = =", "# # # #"});
    world.script("16:+X").runTo(39);
    EXPECT_EQ(world.drawn(), (Drawing{"@ . . .", "= d = =", "# # # #"})) << "the second is between the columns";
    EXPECT_EQ(world.enemy(1).x, 32);
    EXPECT_FALSE(world.world().ended());
    world.runTo(40);
    EXPECT_TRUE(world.world().ended());
    EXPECT_EQ(world.enemy(0).state(), EnemyState::Trapped);
}

TEST(EnemyInHole, TakesTheFirstInTheListOfTwoAboveIt) {
    Attempt attempt = aboveHole(EnemyKind::Lady);
    attempt.enemies.emplace_back(1, 0, EnemyKind::Dog);
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Trapped);
    EXPECT_EQ(attempt.enemies[1].state(), EnemyState::Roaming);
    EXPECT_EQ(attempt.enemies[1].y, 0);
}

// A rat is half out with its leap and has him at once. Under a dog's first step the hole opens for the hero too: he
// falls towards it for three frames.
TEST(EnemyInHole, CatchesTheHeroOverItOnItsWayOut) {
    const struct {
        Drawing map;
        int leaves;
        int caught;
        LossCause cause;
    } rows[] = {{{"@ . d", "= = =", "# # #"}, 156, 159, LossCause::Dog},
                {{"@ . r", "= = =", "# # #"}, 148, 148, LossCause::Rat}};
    for (const auto& row : rows) {
        auto world = worldFrom(row.map);
        world.script("16:+X 40:+R 48:-R").runTo(row.leaves - 1);
        EXPECT_EQ(world.x(), 64);
        EXPECT_EQ(world.y(), 0) << "the enemy under him carries him";
        world.runTo(row.caught - 1);
        EXPECT_FALSE(world.world().ended());
        world.runTo(row.caught);
        EXPECT_TRUE(world.world().ended());
        EXPECT_EQ(world.world().cause(), row.cause);
    }
}

// A hole dug in frame 1 is a floor again after frame 269, when the enemies of that frame have acted. A dog from column
// n comes above it in frame 16 * (n - 1).
TEST(EnemyInHole, DiesInTheClosingHoleUnlessItIsOnItsWayOut) {
    const auto dogFrom = [](int column) {
        const auto length = static_cast<std::size_t>(column - 1);
        return worldFrom(
                   {"@" + std::string(length, '.') + "d", std::string(length + 2, '='), std::string(length + 2, '#')})
            .script("1:+X")
            .runTo(269);
    };
    auto trapped = dogFrom(12);
    EXPECT_EQ(trapped.world().map().cellAt(1, 1).type, BlockType::Floor);
    EXPECT_EQ(trapped.enemy().state(), EnemyState::Trapped);
    trapped.runTo(270);
    EXPECT_EQ(trapped.enemy().state(), EnemyState::Dead);
    EXPECT_EQ(trapped.enemy().x, 0);
    EXPECT_EQ(trapped.enemy().y, 0);
    EXPECT_FALSE(trapped.world().ended()) << "the dead lie where the hero stands and catch nobody";

    auto escaping = dogFrom(9);
    EXPECT_EQ(escaping.enemy().state(), EnemyState::Escaping);
    EXPECT_EQ(escaping.enemy().y, 56);
    EXPECT_EQ(escaping.runTo(284).enemy().state(), EnemyState::Roaming);
    EXPECT_EQ(escaping.enemy().y, 0);
    EXPECT_EQ(escaping.enemy().x, 60) << "out of the hole it goes its way at once";
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

const struct {
    const char* what;
    Drawing map;  // the floor of row 1 is dug
    bool passes;
} kLadyHoles[] = {
    {"air, in the last row", {"# . #", "# = #", "# . #"}, true},
    {"a pipe", {"# . #", "# = #", "# - #", "# # #"}, true},
    {"a ladder", {"# . #", "# = #", "# H #", "# # #"}, true},
    {"an exit", {"# . #", "# = #", "# E #", "# # #"}, true},
    {"a floor", {"# . #", "# = #", "# = #", "# # #"}, false},
    {"rock", {"# . #", "# = #", "# # #", "# # #"}, false},
    {"nothing at all", {"# . #", "# = #"}, false},
};

TEST(LadyAboveHole, FallsThroughWhereNothingIsUnderIt) {
    for (const auto& row : kLadyHoles) {
        SCOPED_TRACE(row.what);
        Attempt attempt = aboveHole(EnemyKind::Lady, row.map);
        update(attempt, 1);
        EXPECT_EQ(attempt.enemies[0].state(), row.passes ? EnemyState::Roaming : EnemyState::Trapped);
        EXPECT_EQ(attempt.sounds.all().empty(), row.passes);
        EXPECT_EQ(attempt.map.cellAt(1, 1).holeOccupied, !row.passes);
        EXPECT_EQ(attempt.enemies[0].y, 4);
    }
}

TEST(LadyAboveHole, StopsInItOnALadder) {
    Attempt attempt = aboveHole(EnemyKind::Lady, {"# . #", "# = #", "# H #", "# # #"});
    update(attempt, 16);
    EXPECT_EQ(attempt.enemies[0].y, 64);
    EXPECT_TRUE(attempt.enemies[0].isSupported(attempt.map));
}

TEST(LadyAboveHole, PassesStoreyAfterStoreyUntilTheGroundIsWhole) {
    Attempt attempt = aboveHole(EnemyKind::Lady, {"# . #", "# = #", "# = #", "# . #", "# = #", "# . #", "# = #"});
    breakFloor(attempt.map, 1, 2);
    breakFloor(attempt.map, 1, 4);
    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(attempt.enemies[0].y, row * 64);
        EXPECT_EQ(attempt.enemies[0].state(), EnemyState::Roaming);
        update(attempt, 16);
    }
    update(attempt, 1);
    EXPECT_EQ(attempt.enemies[0].y, 5 * 64);
    EXPECT_TRUE(attempt.sounds.all().empty());
}

TEST(LadyAboveHole, LivesOnInAFloorThatClosesRoundHer) {
    const std::string way(16, '.');
    auto world = worldFrom({"@" + way + "l", std::string(18, '='), "#." + std::string(16, '#'), std::string(18, '#')});
    world.script("1:+X").runTo(272);
    EXPECT_EQ(world.enemy().x, 64);
    EXPECT_GT(world.enemy().y, 64);
    EXPECT_EQ(world.world().map().cellAt(1, 1).type, BlockType::Floor);
    world.runTo(290);
    EXPECT_EQ(world.enemy().state(), EnemyState::Roaming);
    EXPECT_EQ(world.enemy().cellY(), 2);
}

}  // namespace
}  // namespace grub
