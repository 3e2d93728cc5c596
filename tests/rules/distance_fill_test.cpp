// The distances from the hero: what they are, and that the fast fill finds them.
#include "distance_fill.h"

#include <gtest/gtest.h>

#include "direct_fill.h"
#include "drawing_by_chance.h"
#include "scenario.h"
#include "terrain.h"
#include "world_random.h"

namespace grub {
namespace {

LevelMap mapByChance(bool isThicket, WorldRandom& random) {
    const int width = 1 + random.next() % 24;
    const int height = 1 + random.next() % 24;
    LevelMap map = mapFrom(drawingByChance(width, height, isThicket, random));
    for (int i = 0; i < width * height / 20; ++i) {
        const CellPosition place{random.next() % width, random.next() % height};
        if (map.cellAt(place.x, place.y).type == BlockType::Floor) breakFloor(map, place.x, place.y);
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

void expectSameField(const LevelMap& map, const DirectFill& direct) {
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) ASSERT_EQ(map.distanceAt(x, y), direct.at(x, y)) << x << ", " << y;
    }
}

// Every third fill adds to the field of the one before, whatever that was.
TEST(DistanceFill, AgreesWithTheRecursionFromEverywhere) {
    WorldRandom random(22);
    for (int round = 0; round < 1000; ++round) {
        SCOPED_TRACE(round);
        LevelMap map = mapByChance(round % 3 == 0, random);
        DirectFill direct(map);
        for (int fill = 0; fill < 9; ++fill) {
            const bool adds = fill % 3 == 2;
            if (fill == 6) raiseHiddenLadders(map);
            const int x = random.next() % map.width();
            const int y = random.next() % map.height();
            const int distance = adds ? random.next() % 40 : fill % 3 * random.next();
            if (!adds) {
                map.resetDistances();
                direct.reset();
            }
            map.fillDistances(x, y, distance);
            direct.fill(x, y, distance);
            expectSameField(map, direct);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(DistanceFill, AgreesOnTheLongestWay) {
    LevelMap map(kMaxMapSize, kMaxMapSize);
    for (int y = 0; y < kMaxMapSize; ++y) {
        for (int x = 0; x < kMaxMapSize; ++x) map.cellAt(x, y).type = BlockType::Ladder;
    }
    DirectFill direct(map);
    map.fillDistances(50, 50, 0);
    direct.fill(50, 50, 0);
    expectSameField(map, direct);
}

TEST(DistanceFill, IsKeptByTheHero) {
    expectScenarios({
        // The right-hand ladder's foot is four steps away along the floor. Up comes first, so the long way round has
        // given it 8 before, and four steps less are not worth entering it again; six less were, one cell before.
        {"goes up, down, right, left and keeps what is nearly as good",
         "H . . . H/"
         "H = = = H/"
         "@ . . . H/"
         "# # # # #",
         "", "0: far0=2,3,4,5,6 far1=1,.,.,.,7 far2=0,1,2,3,8"},
        {"does not start in a hole", "@ . ./= = #/# # #", "1 down X, 8 down Right",
         "30: map=.../=@#/### far0=.,.,. far1=.,.,."},
        {"stays over a floor on which he presses down", "@ ./= #/# #", "1 down Down", "1: far0=0,1"},
    });
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

}  // namespace
}  // namespace grub
