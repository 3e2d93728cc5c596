#include "distance_fill.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "direct_fill.h"
#include "drawn_world.h"
#include "level_writer.h"
#include "world_random.h"

namespace grub {
namespace {

void expectSameField(const LevelMap& map, const DirectFill& direct) {
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) ASSERT_EQ(map.distanceAt(x, y), direct.at(x, y)) << x << ", " << y;
    }
}

void setType(LevelMap& map, int x, int y, BlockType type) {
    map.cellAt(x, y).type = type;
    map.cellAt(x, y).baseType = type;
}

/// Cells by chance; the larger `ladders`, the more often ways meet again.
LevelMap randomMap(WorldRandom& random, int ladders) {
    LevelMap map(1 + random.next() % 24, 1 + random.next() % 24);
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            const int dice = random.next() % 100;
            if (dice < ladders)
                setType(map, x, y, BlockType::Ladder);
            else if (dice < ladders + 15)
                setType(map, x, y, BlockType::Floor);
            else if (dice < ladders + 20)
                setType(map, x, y, BlockType::Solid);
            else if (dice < ladders + 26)
                setType(map, x, y, BlockType::Pipe);
            else if (dice < ladders + 28)
                setType(map, x, y, BlockType::HiddenLadder);
        }
    }
    return map;
}

TEST(DistanceFill, AgreesWithTheRecursionOnRandomMaps) {
    WorldRandom random(20);
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        LevelMap map = randomMap(random, 5 + random.next() % 60);
        DirectFill direct(map);
        const int x = random.next() % map.width();
        const int y = random.next() % map.height();
        map.fillDistances(x, y, 0);
        direct.fill(x, y, 0);
        expectSameField(map, direct);
        if (HasFatalFailure()) return;
    }
}

/// Storeys with holes in their floors, ladders, pipes and walls: corridors that end somewhere, and air above them.
LevelMap randomHouse(WorldRandom& random) {
    LevelMap map(2 + random.next() % 30, 2 + random.next() % 30);
    const auto chance = [&random](int percent) { return random.next() % 100 < percent; };
    const int storey = 2 + random.next() % 4;
    const int ladders = random.next() % 12;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            if (y % storey == storey - 1)
                setType(map, x, y, chance(90) ? BlockType::Floor : BlockType::Empty);
            else if (chance(4))
                setType(map, x, y, chance(50) ? BlockType::Solid : BlockType::Pipe);
            if (chance(10) && map.cellAt(x, y).type == BlockType::Floor)
                map.cellAt(x, y).type = BlockType::Empty;  // dug
            if (y > 0 && chance(70) && map.cellAt(x, y - 1).type == BlockType::Ladder)
                setType(map, x, y, BlockType::Ladder);
            else if (chance(ladders))
                setType(map, x, y, chance(80) ? BlockType::Ladder : BlockType::HiddenLadder);
        }
    }
    return map;
}

void raiseHiddenLadders(LevelMap& map) {
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            MapCell& cell = map.cellAt(x, y);
            if (cell.baseType == BlockType::HiddenLadder) cell.type = BlockType::Ladder;
        }
    }
    map.routesChanged();
}

TEST(DistanceFill, AgreesWithTheRecursionInHousesFromEverywhere) {
    WorldRandom random(22);
    for (int round = 0; round < 1500; ++round) {
        SCOPED_TRACE(round);
        LevelMap map = randomHouse(random);
        DirectFill direct(map);
        for (int start = 0; start < 8; ++start) {
            if (start == 6) raiseHiddenLadders(map);
            const int x = random.next() % map.width();
            const int y = random.next() % map.height();
            const int distance = start % 2 * random.next();
            map.resetDistances();
            map.fillDistances(x, y, distance);
            direct.reset();
            direct.fill(x, y, distance);
            expectSameField(map, direct);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(DistanceFill, AddsToAFieldThatIsThere) {
    WorldRandom random(21);
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        LevelMap map = randomMap(random, 40);
        DirectFill direct(map);
        for (int fill = 0; fill < 4; ++fill) {
            const int x = random.next() % map.width();
            const int y = random.next() % map.height();
            const int distance = random.next() % 40;
            map.fillDistances(x, y, distance);
            direct.fill(x, y, distance);
        }
        expectSameField(map, direct);
        if (HasFatalFailure()) return;
    }
}

TEST(DistanceFill, AgreesOnTheLongestWay) {
    LevelMap map(kMaxMapSize, kMaxMapSize);
    for (int y = 0; y < kMaxMapSize; ++y) {
        for (int x = 0; x < kMaxMapSize; ++x) setType(map, x, y, BlockType::Ladder);
    }
    DirectFill direct(map);
    map.fillDistances(50, 50, 0);
    direct.fill(50, 50, 0);
    expectSameField(map, direct);
}

// The right-hand ladder's foot is four steps away along the floor. Up comes first, so the long way round has given it 8
// before, and four steps less are not worth entering it again; six less were, one cell before.
TEST(DistanceFill, GoesUpDownRightLeftAndKeepsWhatIsNearlyAsGood) {
    auto world = worldFrom({"H . . . H",  //
                            "H = = = H",  //
                            "@ . . . H",  //
                            "# # # # #"});
    EXPECT_EQ(world.distances(), (std::vector<std::string>{"2 3 4 5 6",  //
                                                           "1 . . . 7",  //
                                                           "0 1 2 3 8",  //
                                                           ". . . . ."}));
}

TEST(DistanceFill, KeepsNineForFiveAndTakesThree) {
    LevelMap map = mapFrom({"@ . .", "# # #"});
    map.fillDistances(0, 0, 9);
    map.fillDistances(0, 0, 5);
    EXPECT_EQ(map.distanceAt(0, 0), 9);
    map.fillDistances(0, 0, 4);
    EXPECT_EQ(map.distanceAt(0, 0), 9);
    map.fillDistances(0, 0, 3);
    EXPECT_EQ(map.distanceAt(0, 0), 3);
    EXPECT_EQ(map.distanceAt(2, 0), 5);
}

TEST(DistanceFill, DoesNotStartInAHole) {
    auto world = worldFrom({"@ .", "= #", "# #"});
    world.script("1:+D").runTo(1);
    EXPECT_EQ(world.world().map().distanceAt(0, 0), 0);

    auto pit = worldFrom({"@ . .", "= = #", "# # #"});
    pit.script("1:+X 8:+R").runTo(30);
    ASSERT_EQ(pit.drawn(), (Drawing{". . .", "= @ #", "# # #"}));
    EXPECT_EQ(pit.distances(), (std::vector<std::string>{". . .", ". . .", ". . ."}));
}

TEST(DistanceFill, StaysAsItIsWhileTheHeroStaysInHisCell) {
    LevelMap map = mapFrom({"H . h . @", "# # # # #"});
    map.addKey(4, 0, 0);  // taken in the first step, so that the ladder appears after the fill
    World world(map, {}, AnimationFrameCounts::all(kDrawnFrames));
    for (int frame = 0; frame < 10; ++frame) world.step();
    EXPECT_EQ(world.map().cellAt(2, 0).type, BlockType::Ladder);
    EXPECT_EQ(world.map().distanceAt(0, 0), DistanceField::kUnreached);
    world.keyDown(PlayKey::Left);
    for (int frame = 0; frame < 9; ++frame) world.step();
    EXPECT_EQ(world.map().distanceAt(0, 0), 3);
}

TEST(DistanceFill, FollowsAHiddenLadderOnceItHasAppeared) {
    auto world = worldFrom({"H . h . @ k", "# # # # # #"});
    EXPECT_EQ(world.distances().front(), ". . . 1 0 1");
    world.script("1:+R").runTo(12);  // three frames turn, eight walk: on the key, which was the last
    EXPECT_EQ(world.distances().front(), "5 4 3 2 1 0");
}

}  // namespace
}  // namespace grub
