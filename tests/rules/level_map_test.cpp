#include "level_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "level_writer.h"
#include "rules.h"
#include "terrain.h"

namespace grub {
namespace {

TEST(LevelMapQueries, KnowWhereOneCanGoAndStand) {
    const struct {
        const char* what;
        char cell;            // the cell that is asked about
        char below;           // what lies under it
        const char* answers;  // entered now, entered by plan, stood in now, stood in by plan: y or n
    } rows[] = {
        {"air over air", '.', '.', "yynn"},
        {"air over a floor", '.', '=', "yyyy"},
        {"air over solid", '.', '#', "yyyy"},
        {"air over a ladder", '.', 'H', "yyyy"},
        {"air over a pipe", '.', '-', "yynn"},
        {"air over a hidden ladder", '.', 'h', "yynn"},
        {"air over an exit", '.', 'E', "yynn"},
        {"a floor", '=', '.', "nnnn"},
        {"solid", '#', '.', "nnnn"},
        {"a ladder carries its guest", 'H', '.', "yyyy"},
        {"a pipe over air", '-', '.', "yynn"},
        {"an exit", 'E', '.', "yynn"},
        {"a spawn point", 's', '.', "yynn"},
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
    EXPECT_FALSE(map.isPipe(-1, 1));
    EXPECT_FALSE(map.isPipe(2, 1));
    EXPECT_TRUE(map.isPipe(0, 1));
    EXPECT_FALSE(map.isDiggable(2, 1));
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
    int refused = 0;
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
        ++(place ? taken : refused);
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(taken, 0);
}

TEST(RandomSpawnPoint, IsOneOfTheMapsOrNothingWithoutADraw) {
    WorldRandom random(1);
    EXPECT_FALSE(mapFrom({"@ ."}).randomSpawnPoint(random));
    EXPECT_EQ(random, WorldRandom(1));

    const LevelMap map = mapFrom({"@ s s s"});
    bool seen[4] = {};
    for (int i = 0; i < 200; ++i) {
        const auto place = map.randomSpawnPoint(random);
        ASSERT_TRUE(place);
        seen[place->x] = true;
    }
    EXPECT_FALSE(seen[0]);
    EXPECT_TRUE(seen[1] && seen[2] && seen[3]);
}

TEST(WorldRandom, FollowsTheClassicSequence) {
    WorldRandom random(1);
    const int expected[] = {41, 18467, 6334, 26500, 19169};
    for (const int number : expected) EXPECT_EQ(random.next(), number);
}

}  // namespace
}  // namespace grub
