#include "terrain.h"

#include <gtest/gtest.h>

#include "drawn_world.h"
#include "world_random.h"

namespace grub {
namespace {

constexpr int kFire = 83;
constexpr int kRost = 84;
constexpr int kDoor = 99;

const MapCell& cellOf(DrawnWorld& world, int x, int y) { return world.world().map().cellAt(x, y); }

TEST(BrokenFloor, GrowsBackOnTheFrame) {
    for (const int rost : {1, 4}) {
        auto counts = AnimationFrameCounts::all(kDrawnFrames);
        counts.set(kRost, rost);
        counts.set(3, 1);
        auto world = worldFrom({"@ .", "= =", "# #"}, {}, counts);
        const int dig = 1;
        world.script("1:+X").runTo(dig);
        EXPECT_EQ(cellOf(world, 1, 1).timer, 249);
        EXPECT_EQ(cellOf(world, 1, 1).sprite, kFire);
        EXPECT_EQ(cellOf(world, 1, 1).breakState, BreakState::Broken);
        EXPECT_EQ(cellOf(world.runTo(dig + 10), 1, 1).breakState, BreakState::Broken);
        EXPECT_EQ(cellOf(world.runTo(dig + 11), 1, 1).breakState, BreakState::Waiting);
        EXPECT_EQ(cellOf(world.runTo(dig + 248), 1, 1).breakState, BreakState::Waiting);
        EXPECT_EQ(cellOf(world.runTo(dig + 249), 1, 1).breakState, BreakState::Regrowing);
        EXPECT_EQ(cellOf(world, 1, 1).sprite, kRost);
        const int closed = dig + 249 + 5 * rost - 1;
        EXPECT_EQ(cellOf(world.runTo(closed - 1), 1, 1).type, BlockType::Empty);
        EXPECT_EQ(cellOf(world.runTo(closed), 1, 1).type, BlockType::Floor);
        EXPECT_EQ(cellOf(world, 1, 1).sprite, 3);
        EXPECT_EQ(cellOf(world, 1, 1).breakState, BreakState::Intact);
        for (int frame = rost - 1; frame >= 0; --frame) {
            EXPECT_EQ(cellOf(world, 1, 1).frame, frame) << "back to its one picture, a picture a frame";
            world.run(1);
        }
        EXPECT_EQ(cellOf(world.run(10), 1, 1).frame, 0);
    }
}

TEST(BrokenFloor, WithoutPicturesGrowsBackToo) {
    LevelMap map = mapFrom({"@", "=", "#"});
    map.cellAt(0, 1).fireSprite = kNoSprite;
    map.cellAt(0, 1).rostSprite = kNoSprite;
    breakFloor(map, 0, 1);
    for (int frame = 0; frame < 300; ++frame) updateCells(map, AnimationFrameCounts::all(kDrawnFrames));
    EXPECT_EQ(map.cellAt(0, 1).type, BlockType::Floor);
}

TEST(BrokenFloor, IsAHoleWithNobodyInIt) {
    LevelMap map = mapFrom({"@", "=", "#"});
    map.cellAt(0, 1).holeOccupied = true;
    breakFloor(map, 0, 1);
    EXPECT_TRUE(map.isPassable(0, 1, View::Physical));
}

TEST(BrokenFloor, CanBeDugAgain) {
    auto world = worldFrom({"@ .", "= =", "# #"});
    world.script("1:+X 300:+X").runTo(300);
    EXPECT_EQ(cellOf(world, 1, 1).breakState, BreakState::Broken);
    EXPECT_EQ(cellOf(world, 1, 1).timer, 249);
    EXPECT_EQ(cellOf(world.runTo(568), 1, 1).type, BlockType::Floor);
}

TEST(Pit, BuriesWhoIsInTheHoleWhenItCloses) {
    auto world = worldFrom({"@ . .", "= = #", "# # #"});
    world.script("1:+X 8:+R").runTo(268);
    EXPECT_FALSE(world.world().ended());
    world.runTo(269);
    EXPECT_TRUE(world.world().ended());
    EXPECT_EQ(world.world().cause(), LossCause::Pit);
}

TEST(Pit, CountsTheCellOfHisTopLeftCorner) {
    const auto endsWhenLeavingRight = [](const char* keys) {
        auto world = worldFrom({"@ . . .", "= = . .", "# # # #"});
        return world.script("1:+X 8:+R 20:-R").script(keys).runTo(275).world().ended();
    };
    EXPECT_TRUE(endsWhenLeavingRight("263:+R")) << "56 pixels out";
    EXPECT_FALSE(endsWhenLeavingRight("262:+R"));
    const auto endsWhenLeavingLeft = [](const char* keys) {
        auto world = worldFrom({". . @", ". = =", "# # #"});
        return world.script("1:+Z 8:+L 20:-L").script(keys).runTo(275).world().ended();
    };
    EXPECT_FALSE(endsWhenLeavingLeft("269:+L")) << "his first pixel saves him";
    EXPECT_TRUE(endsWhenLeavingLeft("270:+L"));
}

TEST(Exit, OpensWithTheLastKeyAndStaysOpen) {
    auto world = worldFrom({"E @ k", "# # #"});
    EXPECT_EQ(cellOf(world, 0, 0).sprite, kDoor);
    world.script("1:+R").runTo(7);
    EXPECT_EQ(cellOf(world, 0, 0).frame, 0);
    const int frames[] = {1, 2, 3, 3, 3};
    for (const int frame : frames) EXPECT_EQ(cellOf(world.run(1), 0, 0).frame, frame);
}

TEST(HiddenLadder, AppearsWithTheLastKey) {
    auto world = worldFrom({"h .", "@ k", "# #"});
    world.script("1:+R").runTo(7);
    EXPECT_EQ(cellOf(world, 0, 0).type, BlockType::Empty);
    world.runTo(8);
    EXPECT_EQ(cellOf(world, 0, 0).type, BlockType::Ladder);
    EXPECT_EQ(cellOf(world, 0, 0).sprite, 5);
}

TEST(Exit, OfALevelWithoutKeysOpensAtOnceAndInSilence) {
    auto world = worldFrom({"@ E", "# #"});
    EXPECT_EQ(cellOf(world, 1, 0).frame, 1) << "the step that settles the level is its first";
    EXPECT_TRUE(world.runTo(10).framesOf(SoundId::OpenDoor).empty());
}

// The animation of the empty cell stands on its fourth picture when the ladder comes.
TEST(HiddenLadder, GoesOnFromThePictureItsCellHasReached) {
    auto counts = AnimationFrameCounts::all(kDrawnFrames);
    counts.set(5, 6);
    auto world = worldFrom({"h .", "@ k", "# #"}, {}, counts);
    world.script("1:+R").runTo(7);
    EXPECT_EQ(cellOf(world, 0, 0).frame, 3);
    const int frames[] = {4, 5, 5};
    for (const int frame : frames) EXPECT_EQ(cellOf(world.run(1), 0, 0).frame, frame);
}

// Sleeping is only a saving: with every cell kept awake the same things happen.
TEST(SleepingCells, MissNothing) {
    auto counts = AnimationFrameCounts::all(3);
    counts.set(3, 1);
    LevelMap map = mapFrom({"@ = = = k", "= = E h =", "H - = = s", "# = = = k"});
    LevelMap watched = map;
    WorldRandom random(3);
    for (int frame = 0; frame < 3000; ++frame) {
        const int x = random.next() % 5;
        const int y = random.next() % 4;
        if (random.next() % 40 == 0 && map.cellAt(x, y).type == BlockType::Floor) {
            breakFloor(map, x, y);
            breakFloor(watched, x, y);
        }
        if (frame == 1000 || frame == 2000) {
            map.collectKey(4, frame == 1000 ? 0 : 3);
            watched.collectKey(4, frame == 1000 ? 0 : 3);
        }
        for (int i = 0; i < 20; ++i) watched.wake(i % 5, i / 5);
        updateCells(map, counts);
        updateCells(watched, counts);
        for (int i = 0; i < 20; ++i) ASSERT_EQ(map.cellAt(i % 5, i / 5), watched.cellAt(i % 5, i / 5)) << frame;
    }
    EXPECT_EQ(map.keysRemaining(), 0);
}

}  // namespace
}  // namespace grub
