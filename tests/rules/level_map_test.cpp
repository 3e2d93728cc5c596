// What a map says of its cells: where one can go, stand and dig, random places, and the distances from the hero.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>

#include "direct_fill.h"
#include "distance_fill.h"
#include "level_map.h"
#include "level_writer.h"
#include "rules.h"
#include "scenario.h"
#include "terrain.h"
#include "world_random.h"

namespace grub {
namespace {

TEST(LevelMapQueries, KnowWhereOneCanGoAndStand) {
    const struct {
        const char* what;
        char cell;            // the cell that is asked about
        char below;           // what lies under it
        const char* answers;  // entered now, entered by plan, stood in now, stood in by plan: y or n
    } rows[] = {
        {"air over a floor", '.', '=', "yyyy"},
        {"air over solid", '.', '#', "yyyy"},
        {"air over a ladder", '.', 'H', "yyyy"},
        {"air over a pipe", '.', '-', "yynn"},
        {"air over a hidden ladder", '.', 'h', "yynn"},
        {"a floor", '=', '.', "nnnn"},
        {"a ladder carries its guest", 'H', '.', "yyyy"},
        {"a pipe over air", '-', '.', "yynn"},
        {"an exit", 'E', '.', "yynn"},
        {"routes do not lead through a hidden ladder", 'h', '.', "ynnn"},
    };
    for (const auto& row : rows) {
        const LevelMap map = mapFrom(Drawing({std::string{'@', row.cell}, std::string{'#', row.below}, "##"}));
        std::string answers;
        for (const bool yes : {map.isPassable(1, 0, View::Physical), map.isPassable(1, 0, View::Planned),
                               map.canStand(1, 0, View::Physical), map.canStand(1, 0, View::Planned)})
            answers += yes ? 'y' : 'n';
        EXPECT_EQ(answers, row.answers) << row.what;
    }
}

TEST(LevelMapQueries, PlanWithTheFloorThatADugOneWillBe) {
    LevelMap map = mapFrom({"@ .", "= .", ". ."});
    breakFloor(map, 0, 1);
    EXPECT_FALSE(map.canStand(0, 0, View::Physical));
    EXPECT_TRUE(map.canStand(0, 0, View::Planned));
    EXPECT_TRUE(map.isPassable(0, 1, View::Physical));
    EXPECT_FALSE(map.isPassable(0, 1, View::Planned));
    map.cellAt(0, 1).holeOccupied = true;
    EXPECT_TRUE(map.canStand(0, 0, View::Physical)) << "an occupied hole carries";
    EXPECT_FALSE(map.isPassable(0, 1, View::Physical)) << "and is shut";
}

TEST(LevelMapQueries, AnswerNoOutsideTheMap) {
    const LevelMap map = mapFrom({"@ H", "- ="});
    for (const View view : {View::Physical, View::Planned}) {
        for (const CellPosition outside : {CellPosition{-1, 0}, {2, 0}, {0, -1}, {0, 2}}) {
            EXPECT_FALSE(map.isPassable(outside.x, outside.y, view));
            EXPECT_FALSE(map.isClimbableLadder(outside.x, outside.y, view));
        }
        EXPECT_FALSE(map.canStand(2, 0, view));
        EXPECT_FALSE(map.canStand(0, -1, view));
        EXPECT_TRUE(map.canStand(0, 1, view)) << "the bottom row carries";
        EXPECT_FALSE(map.isClimbableLadder(1, 0, view)) << "nothing leads up from the top row";
    }
    EXPECT_FALSE(map.isPipe(-1, 1) || map.isPipe(2, 1) || map.isDiggable(2, 1));
}

TEST(LevelMapQueries, DigOnlyFloorsWithRoomAbove) {
    const LevelMap map = mapFrom({"@ . = H -", "= # = = ="});
    const bool expected[] = {true, false, false, true, true};
    for (int x = 0; x < 5; ++x) EXPECT_EQ(map.isDiggable(x, 1), expected[x]) << "column " << x;
    EXPECT_FALSE(map.isDiggable(2, 0)) << "above the top row is no room";
}

TEST(LevelMapKeys, BeyondTheMemoryAreTakenAndForgotten) {
    LevelMap map(100, 2);
    for (int x = 0; x < 100; ++x) map.addKey(x, 0, 0);
    map.addKey(0, 1, 0);
    for (int x = 0; x < 100; ++x) ASSERT_TRUE(map.collectKey(x, 0));
    EXPECT_TRUE(map.collectKey(0, 1));
    EXPECT_EQ(map.collectedKeys().size(), kMaxCollectedKeys);
    EXPECT_FALSE(map.isKeyCollected(0, 1));
    EXPECT_EQ(map.keysRemaining(), 0);
}

// The range of the generator is cut into equal parts, and the rest falls to the last.
TEST(RandomFreeCell, IsTheDrawnCellOrTheFirstBelowItWhereOneCanStand) {
    const LevelMap maps[] = {LevelMap(1, 1), LevelMap(100, 1), LevelMap(7, 100), LevelMap(99, 99),
                             mapFrom({"@ . . .", ". . - s", ". = H E"})};
    WorldRandom random(7);
    int taken = 0;
    for (int round = 0; round < 10000; ++round) {
        const LevelMap& map = maps[round % 5];
        WorldRandom ahead = random;
        const int x = std::min(ahead.next() / (32767 / map.width()), map.width() - 1);
        int y = std::min(ahead.next() / (32767 / map.height()), map.height() - 1);
        while (!map.canStand(x, y, View::Physical)) ++y;
        const bool isFree = map.isPassable(x, y, View::Physical) && map.cellAt(x, y).baseType == BlockType::Empty;
        const auto place = map.randomFreeCell(random);
        ASSERT_EQ(place, isFree ? std::optional(CellPosition{x, y}) : std::nullopt);
        ASSERT_EQ(random, ahead);
        taken += place ? 1 : 0;
    }
    EXPECT_TRUE(taken > 0 && taken < 10000);
}

TEST(RandomSpawnPoint, IsEachOfTheMaps) {
    WorldRandom random(1);
    const LevelMap map = mapFrom({"@ s s s"});
    std::set<int> columns;
    for (int i = 0; i < 200; ++i) columns.insert(map.randomSpawnPoint(random).value().x);
    EXPECT_EQ(columns, (std::set{1, 2, 3}));
}

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

// Every third fill adds to the field of the one before, whatever that was. In every other round there is a cache, from
// which a fill from distance 0 comes at the second time.
TEST(DistanceFill, AgreesWithTheRecursionFromEverywhere) {
    WorldRandom random(22);
    for (int round = 0; round < 1000; ++round) {
        SCOPED_TRACE(round);
        LevelMap map = mapByChance(round % 3 == 0, random);
        DirectFill direct(map);
        DistanceCache cache;
        if (round % 2 == 1) map.cacheDistances(cache);
        for (int fill = 0; fill < 9; ++fill) {
            const bool adds = fill % 3 == 2;
            if (fill == 6) raiseHiddenLadders(map);
            const int x = random.next() % map.width();
            const int y = random.next() % map.height();
            const int distance = adds ? random.next() % 40 : fill % 3 * random.next();
            if (!adds) {
                map.resetDistances();
                map.fillDistances(x, y, distance);
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
        {"goes up, down, right, left and keeps what is nearly as good", "H . . . H/H = = = H/@ . . . H/# # # # #", "",
         "0: far0=2,3,4,5,6 far1=1,.,.,.,7 far2=0,1,2,3,8"},
        {"does not start in a hole", "@ . ./= = #/# # #", "1 down X, 8 down Right",
         "30: map=.../=@#/### far0=.,.,. far1=.,.,."},
        {"stays over a floor on which he presses down", "@ ./= #/# #", "1 down Down", "1: far0=0,1"},
    });
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
