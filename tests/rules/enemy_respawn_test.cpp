#include <gtest/gtest.h>

#include <string>

#include "drawn_world.h"

namespace grub {
namespace {

std::string cells(char symbol, std::size_t count) { return std::string(count, symbol); }

/// Two dogs, each 12 columns from the hero, who digs at his right in frame 1 and at his left in frame 5. Both are in
/// their holes from frame 192 on; the right one dies in frame 270, the left one in 274. `below` is the third row.
DrawnWorld twoDogsBuried(const std::string& below) {
    auto world = worldFrom({"d" + cells('.', 11) + "@" + cells('.', 11) + "d", cells('=', 25), below, cells('#', 25)});
    world.script("1:+X 5:+Z").runTo(274);
    return world;
}

const std::string kOneSpawnPoint = cells('#', 20) + "s" + cells('#', 4);

TEST(DeadEnemy, ComesBackAtASpawnPointInFifteenSeconds) {
    auto world = twoDogsBuried(kOneSpawnPoint);
    EXPECT_EQ(world.enemy(0).state(), EnemyState::Dead);
    EXPECT_EQ(world.enemy(1).state(), EnemyState::Dead);
    world.runTo(270 + 374);
    EXPECT_EQ(world.enemy(1).state(), EnemyState::Dead);
    EXPECT_EQ(world.draws(), 0);
    world.runTo(270 + 375);
    EXPECT_EQ(world.enemy(1).state(), EnemyState::Roaming);
    EXPECT_EQ(world.enemy(1).x, 20 * 64);
    EXPECT_EQ(world.enemy(1).y, 2 * 64);
    EXPECT_EQ(world.draws(), 1);
    world.runTo(646);
    EXPECT_EQ(world.draws(), 1) << "it hunted to the left when it died, and that is where it wants to go";
    EXPECT_EQ(world.runTo(648).draws(), 3);
}

// The second comes back into the cell of the first. It has left no cell, so it is not thrown back to where the dead
// lie.
TEST(DeadEnemy, ComesBackIntoATakenCell) {
    auto world = twoDogsBuried(kOneSpawnPoint);
    world.runTo(274 + 375);
    for (const Enemy& dog : world.world().enemies()) {
        EXPECT_EQ(dog.state(), EnemyState::Roaming);
        EXPECT_EQ(dog.x, 20 * 64);
        EXPECT_EQ(dog.y, 2 * 64);
    }
    EXPECT_EQ(world.draws(), 5) << "two choices of the first, and in this frame a place and a choice";
}

// With 24 columns the generator's numbers are divided by 1365; 41, the first of seed 1, falls into column 0.
TEST(DeadEnemy, DropsInFromTheTopRowWithoutSpawnPoints) {
    Attempt attempt = attemptOn({cells('.', 24), cells('.', 24), cells('#', 24)});
    Enemy dog(5, 1, EnemyKind::Dog);
    dog.die();
    for (int frame = 0; frame < 374; ++frame) dog.update(attempt);
    EXPECT_EQ(dog.state(), EnemyState::Dead);
    dog.update(attempt);
    EXPECT_EQ(dog.state(), EnemyState::Roaming);
    EXPECT_EQ(dog.cellX(), 0);
    EXPECT_EQ(dog.cellY(), 0);
    EXPECT_EQ(dog.direction(), EnemyDirection::Left) << "as it was made";
}

// 41, 18467, 6334 and 26500 by 1365 are 0, 13, 4 and 19.
TEST(DeadEnemy, TriesAColumnInEachFrameUntilOneIsOpen) {
    std::string roof = cells('#', 24);
    roof[19] = '.';
    Attempt attempt = attemptOn({roof, cells('#', 24)});
    Enemy dog(19, 0, EnemyKind::Dog);
    dog.die();
    for (int frame = 0; frame < 374; ++frame) dog.update(attempt);
    for (const int column : {0, 13, 4}) {
        dog.update(attempt);
        EXPECT_EQ(dog.state(), EnemyState::Dead);
        EXPECT_EQ(dog.cellX(), column) << "the dead are moved all the same";
    }
    dog.update(attempt);
    EXPECT_EQ(dog.state(), EnemyState::Roaming);
    EXPECT_EQ(dog.cellX(), 19);
}

TEST(DeadEnemy, CatchesWhoStandsWhereItComesBack) {
    WorldStart start;
    start.seed = 1;
    auto world = worldFrom({"@" + cells('.', 11) + "d", cells('=', 13), cells('#', 13)}, start);
    world.script("1:+X").runTo(270 + 374);
    EXPECT_FALSE(world.world().ended());
    world.runTo(270 + 375);
    EXPECT_TRUE(world.world().ended());
    EXPECT_EQ(world.world().cause(), LossCause::Dog);
}

}  // namespace
}  // namespace grub
